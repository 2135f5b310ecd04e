#pragma once

#include <utility>
#include <vector>

#include <QWidget>

#include "support/mirror_findings.h"

class QAbstractItemView;

namespace rulemesh {

/// Compares a view with its widget: what is common to all kinds, and what its kind shows.
void CompareWidget(const View& view, const QWidget& root, const QWidget& widget, Findings& findings);

/// Compares a view with what a screen reader is told of its widget.
void CompareAccessible(const View& view, const QWidget& root, QWidget& widget, Findings& findings);

/// A text box's text as its widget must hold it: one line end for a carriage return and line feed, and a soft one for a
/// carriage return alone.
[[nodiscard]] QString BoxText(TextView text);

/// Whether a box may show another character in its place.
[[nodiscard]] bool HasPicture(QChar character);

/// Whether two texts of a box look alike. Characters that an editor can't hold may be shown by others.
[[nodiscard]] bool LooksLike(const QString& shown, const QString& held);

/// The rows that an item view shows a part of, from 0, with the first and the last of all.
[[nodiscard]] std::vector<int> RowsInSight(const QAbstractItemView& view);

} // namespace rulemesh
