#pragma once

#include <string>
#include <vector>

#include <QString>

#include "desktop/qt_text.h"
#include "views/view.h"

namespace rulemesh {

/// Collects the sentences of a mirror: "CmbDump current entry: the widget shows 2, the view holds 3".
class Findings {
public:
    Findings(const View& view, const char* witness) : name_(ToQt(view.Name())), witness_(QLatin1String(witness)) {}

    void Compare(const QString& what, const QString& shown, const QString& held);
    void Compare(const QString& what, int shown, int held);
    void Compare(const QString& what, bool shown, bool held);
    void Say(const QString& sentence);

    [[nodiscard]] std::vector<std::string>& Sentences() noexcept { return sentences_; }

private:
    QString name_;
    QString witness_;
    std::vector<std::string> sentences_;
};

/// What a reader of a text sees of it where a toolkit takes texts that look like HTML for HTML.
[[nodiscard]] QString Seen(const QString& text);

/// A caption without the marks of its access key.
[[nodiscard]] QString PlainCaption(TextView caption);

/// Whether the user sees a view or can use it: it and all its parents are shown, or enabled.
[[nodiscard]] bool IsSeen(const View& view);
[[nodiscard]] bool IsUsable(const View& view);

} // namespace rulemesh
