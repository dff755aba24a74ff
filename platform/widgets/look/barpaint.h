#pragma once
// How bars are drawn: scroll bars without arrows or track, flat tool bars and what parts their groups, the menu bar.
#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QStyleOptionToolBar;

namespace velm {

inline constexpr int scrollExtent = 12; ///< width of an upright scroll bar
inline constexpr int leastThumb = 28;

/// Where a part of a scroll bar lies: the whole of it is the groove, and there are no arrows.
QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);
/// The thumb alone: it lies on whatever the bar stands on.
void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter);

/// The ground, and a thin line towards what the bar is docked at.
void drawToolBar(const QStyleOptionToolBar& bar, QPainter& painter);
void drawSeparator(const QStyleOption& option, QPainter& painter);
void drawMenuBarItem(const QStyle& style, const QStyleOptionMenuItem& item, QPainter& painter);

} // namespace velm
