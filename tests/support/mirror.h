#pragma once

#include <string>
#include <vector>

class QWidget;

namespace rulemesh {

class RulemeshWidget;
class ViewTree;

/// Where what a designer's widgets show differs from what its views hold: a sentence for each difference, none when
/// all agree. The widgets are found by their names and asked themselves, and then once more through the accessibility
/// tree, as a screen reader asks; nothing of the code that draws them is used. What is queued to be shown is shown
/// first.
[[nodiscard]] std::vector<std::string> Differences(RulemeshWidget& designer);

/// The same for a form of views whose widgets stand below `root`.
[[nodiscard]] std::vector<std::string> Differences(const ViewTree& tree, const QWidget& root);

/// The differences of every designer and every note form or chooser that there is.
[[nodiscard]] std::vector<std::string> DifferencesEverywhere();

} // namespace rulemesh
