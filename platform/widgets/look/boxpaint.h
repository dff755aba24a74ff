#pragma once
// How buttons, fields, boxes and tabs are drawn: flat, with one edge; what is pressed or chosen is told by its ground
// and its edge. None of them marks the focus: FocusRing does.
#include <QColor>
#include <QRect>

class QPainter;
class QPalette;
class QStyle;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionProgressBar;
class QStyleOptionTab;
class QStyleOptionToolButton;
class QWidget;

namespace velm {

/// The least height of a button, a field or a drop-down list, and the room beside a button's words, in pixels.
inline constexpr int controlHeight = 28;
inline constexpr int besideWords = 12;

/// A ground with an edge of one pixel inside of `place`; either may be invalid, and is not drawn then.
void drawFace(QPainter& painter, const QRect& place, const QColor& ground, const QColor& edge);

void drawPushButton(const QStyleOption& option, QPainter& painter);
/// Whether the button is drawn filled, with white words.
bool isFilled(const QStyleOptionButton& button);
void drawToolButton(const QStyle& style, const QStyleOptionToolButton& button, QPainter& painter,
                    const QWidget* widget);
void drawField(const QStyleOption& option, QPainter& painter);
void drawComboBox(const QStyle& style, const QStyleOptionComboBox& box, QPainter& painter, const QWidget* widget);
void drawCheck(const QStyleOption& option, QPainter& painter);
void drawRadio(const QStyleOption& option, QPainter& painter);
void drawTab(const QStyleOptionTab& tab, QPainter& painter);
void drawProgressGround(const QStyleOptionProgressBar& bar, QPainter& painter);
/// What is done of it; false for a bar that does not know its end.
bool drawProgress(const QStyleOptionProgressBar& bar, QPainter& painter);
/// A small arrow that points down.
void drawArrow(QPainter& painter, const QPointF& centre, const QColor& ink);

} // namespace velm
