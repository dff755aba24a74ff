#include "platform/widgets/text/viewplace.h"

#include "platform/widgets/text/paperlayout.h"

#include <QScrollBar>
#include <QtMath>

#include <limits>

namespace velm {

ViewPlace::ViewPlace(QAbstractScrollArea& view, PaperLayout& layout, std::function<void()> went)
    : view_(view), layout_(layout), went_(std::move(went)) {}

ViewPlace::Moving::Moving(ViewPlace& place) : place_(place) {
    ++place_.moving_;
}

ViewPlace::Moving::~Moving() {
    if (place_.moving_ == 1)
        place_.followPlaces();
    --place_.moving_;
}

std::int64_t ViewPlace::top() const {
    return view_.verticalScrollBar()->value();
}

int ViewPlace::height() const {
    return view_.viewport()->height();
}

void ViewPlace::tellHeight() {
    emit layout_.documentSizeChanged(layout_.documentSize());
}

void ViewPlace::scrollTo(std::int64_t top) {
    tellHeight();
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    view_.verticalScrollBar()->setValue(static_cast<int>(std::clamp<std::int64_t>(top, 0, most)));
}

ViewPlace::Anchor ViewPlace::anchor() {
    stay();
    if (top() <= layout_.page().margin)
        return {0, static_cast<int>(top()), true};
    const PaperLayout::Line line = layout_.lineAt(top());
    return {line.start, static_cast<int>(top() - line.top), false};
}

void ViewPlace::restore(const Anchor& anchor) {
    const Moving moving(*this);
    if (anchor.atTop) {
        view_.verticalScrollBar()->setValue(anchor.offset);
    } else {
        const PaperLayout::Line line = layout_.lineOf(anchor.position);
        scrollTo(line.top + std::min(anchor.offset, line.height - 1));
    }
}

void ViewPlace::stay() {
    if (moving_ > 0 || seen_.empty())
        return;
    const std::int64_t now = layout_.paragraphTop(seen_.front().paragraph) - seen_.front().top;
    if (now != top()) {
        const Moving moving(*this);
        scrollTo(now);
    }
}

void ViewPlace::layOutAround() {
    if (!layout_.isComplete()) {
        const Moving moving(*this);
        const Anchor place = anchor();
        layout_.layOutBetween(top() - height(), top() + 2 * height());
        restore(place);
    }
}

/// Sideways, where a table is wider than the screen.
void ViewPlace::revealColumn(int position) {
    QScrollBar& bar = *view_.horizontalScrollBar();
    const int width = view_.viewport()->width();
    const int left = qFloor(layout_.leftOf(position));
    const int room = width / 8;
    if (left < bar.value() + layout_.page().margin || left > bar.value() + width - room)
        bar.setValue(left <= width - room ? 0 : left - width / 4);
}

void ViewPlace::reveal(int position) {
    const Moving moving(*this);
    PaperLayout::Line line = layout_.lineOf(position);
    // What turns out higher than it was thought pushes the place down, away from what was laid out around it.
    while (layout_.layOutBetween(line.top - height(), line.top + height()))
        line = layout_.lineOf(position);
    tellHeight();
    const int room = height() / 8;
    if (position == 0)
        scrollTo(0);
    else if (line.top < top() + room || line.top + line.height > top() + height() - room)
        scrollTo(line.top - height() / 4);
    revealColumn(position);
}

/// Pixels move only together: where places went apart, all is painted anew. What the screen shows is laid out first, so
/// that painting changes no height. Where the text's end is in sight it stays there.
void ViewPlace::followPlaces() {
    const Anchor place = anchor();
    const bool atEnd = top() > 0 && top() == view_.verticalScrollBar()->maximum();
    while (layout_.layOutBetween(top(), top() + height())) {
        tellHeight();
        atEnd ? scrollTo(std::numeric_limits<int>::max()) : restore(place);
    }
    SeenPlaces now = layout_.placesFrom(top(), height());
    if (now == seen_)
        return;
    const std::optional<int> move = commonMove(seen_, now);
    seen_ = std::move(now);
    went_();
    if (move.value_or(0) != 0)
        view_.viewport()->scroll(0, *move);
    else
        view_.viewport()->update();
}

} // namespace velm
