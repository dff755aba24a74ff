#pragma once
// How lists look: distances, hairlines, the quiet selection of a list that the keyboard does not reach, tool tips.
#include <QColor>
#include <QFontMetrics>
#include <QPalette>

class QHelpEvent;
class QPainter;
class QWidget;

namespace velm::gridlook {

inline constexpr int padding = 8;       ///< beside the text of a cell
inline constexpr int narrowPadding = 3; ///< in columns of a letter or two

/// Lines of text with air around them: 24 pixels for one at the usual size.
int rowHeight(const QFontMetrics& metrics, int lines = 1);
/// Edge of a picture beside such a text.
int iconEdge(const QFontMetrics& metrics);
/// A line that parts rows without being noticed.
QColor hairline(const QPalette& palette);
/// The palette of a list without focus: its selection is grey.
QPalette unfocused(const QPalette& palette);
/// The edges of a selected row, or of a stretch of it, over the grey that alone would not tell it from the others.
void paintUnfocused(QPainter& painter, const QRect& row, const QPalette& palette);

/// Where the text of a cell may stand in it.
QRect textRect(const QRect& cell);
enum class Point { Up, Down, Right };
inline constexpr int chevronWidth = 7;
/// The small arrow of sorted columns and of branches.
void paintChevron(QPainter& painter, const QPointF& centre, Point point, const QColor& colour);

/// Shows the text of a cell beside the pointer, as long as that stays in the cell; an empty one hides the tip.
void showTip(QWidget* widget, const QHelpEvent& event, const QRect& cell, const QString& text);

} // namespace velm::gridlook
