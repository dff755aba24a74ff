#include "platform/widgets/frame/childareaplaces.h"

#include <algorithm>

namespace velm {

namespace {

/// At most the area's length, at least the window's own minimum.
int fittedLength(int wanted, int usual, int least, int area) {
    return std::max(std::min(wanted < 1 ? usual : wanted, area), least);
}

int movedIn(int start, int length, int area) {
    return std::clamp(start, 0, std::max(0, area - length));
}

int length(const QSize& size, Qt::Orientation along) {
    return along == Qt::Horizontal ? size.width() : size.height();
}

} // namespace

QRect fittedPlace(const ChildWish& wish, const QSize& area) {
    const int width = fittedLength(wish.place.width(), area.width() * 2 / 3, wish.least.width(), area.width());
    const int height = fittedLength(wish.place.height(), area.height() * 2 / 3, wish.least.height(), area.height());
    QPoint start = wish.place.topLeft();
    if (wish.place.width() < 1 && wish.place.height() < 1) {
        const int steps = std::min(area.width() - width, area.height() - height) / cascadeStep + 1;
        start = QPoint(1, 1) * (wish.rank % std::max(1, steps) * cascadeStep);
    }
    return {movedIn(start.x(), width, area.width()), movedIn(start.y(), height, area.height()), width, height};
}

std::vector<QRect> cascadePlaces(const std::vector<QSize>& least, const QSize& area) {
    std::vector<QRect> places;
    places.reserve(least.size());
    const QSize usual(area.width() * 7 / 10, area.height() * 7 / 10);
    const QSize free = area - usual;
    const int round = std::max(1, std::min(free.width(), free.height()) / cascadeStep + 1);
    for (const QSize& own : least) {
        const int index = static_cast<int>(places.size());
        const QSize size = usual.expandedTo(own);
        // A new round begins one step further to the right, so that no window covers another one's title.
        const int left = (index % round + index / round) * cascadeStep;
        const int top = index % round * cascadeStep;
        places.emplace_back(
            QPoint(movedIn(left, size.width(), area.width()), movedIn(top, size.height(), area.height())), size);
    }
    return places;
}

std::vector<QRect> tilePlaces(const std::vector<QSize>& least, const QSize& area, Qt::Orientation along,
                              int scrollBar) {
    std::vector<QRect> places;
    if (least.empty())
        return places;
    const Qt::Orientation across = along == Qt::Horizontal ? Qt::Vertical : Qt::Horizontal;
    int most = 0;
    int broadest = 0;
    for (const QSize& own : least) {
        most = std::max(most, length(own, along));
        broadest = std::max(broadest, length(own, across));
    }
    const auto count = static_cast<int>(least.size());
    const int share = length(area, along) / count;
    const bool fits = share >= most;
    const int rest = fits ? length(area, along) % count : 0;
    const int breadth = std::max(length(area, across) - (fits ? 0 : scrollBar), broadest);
    int start = 0;
    places.reserve(least.size());
    for (int index = 0; index < count; ++index) {
        const int size = fits ? share + (index < rest ? 1 : 0) : most;
        places.push_back(along == Qt::Horizontal ? QRect(start, 0, size, breadth) : QRect(0, start, breadth, size));
        start += size;
    }
    return places;
}

} // namespace velm
