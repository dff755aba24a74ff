#pragma once
// Where the windows of an area stand: pure arithmetic on pixels, areas begin at 0, 0.
#include <QRect>
#include <QSize>

#include <vector>

namespace velm {

/// What a window asks of its place.
struct ChildWish {
    QRect place;  ///< a width or height below 1 stands for the usual one
    QSize least;  ///< the window's minimum size
    int rank = 0; ///< windows without any size of their own stand one step apart by it
};

/// Distance of two windows that lie in a cascade.
inline constexpr int cascadeStep = 28;

/// The place that a wish gets in an area: its own where it fits, otherwise smaller, and moved in.
QRect fittedPlace(const ChildWish& wish, const QSize& area);

/// One window behind the other, each a step to the right and down, the last one in front.
std::vector<QRect> cascadePlaces(const std::vector<QSize>& least, const QSize& area);

/// Windows one above the other (Qt::Vertical) or side by side (Qt::Horizontal). They fill the area to the last pixel;
/// no window gets less than its minimum, then they reach beyond the area, and `scrollBar` is the room for its bar.
std::vector<QRect> tilePlaces(const std::vector<QSize>& least, const QSize& area, Qt::Orientation along, int scrollBar);

} // namespace velm
