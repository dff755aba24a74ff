#include "platform/widgets/text/hitmarks.h"

#include "platform/widgets/text/hitstrip.h"
#include "platform/widgets/text/paperlayout.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

namespace velm {

namespace {

/// Of several lines as wide as the view; empty where none of it is seen.
QRect placeIn(const QTextEdit& view, const HitRange& hit) {
    QTextCursor cursor(view.document());
    cursor.setPosition(static_cast<int>(hit.start));
    const QRect first = view.cursorRect(cursor);
    cursor.setPosition(static_cast<int>(hit.end));
    QRect whole = first.united(view.cursorRect(cursor));
    const QRect seen = view.viewport()->rect();
    if (whole.height() > first.height())
        whole = QRect(seen.left(), whole.top(), seen.width(), whole.height());
    return whole & seen;
}

} // namespace

HitMarks::HitMarks(const ShownText& shown, PaperLayout& layout, HitStrip& strip, QObject* parent)
    : QObject(parent), shown_(shown), layout_(layout), strip_(strip) {
    connect(&layout_, &QAbstractTextDocumentLayout::documentSizeChanged, this,
            [this](const QSizeF& size) { followHeights(size.height()); });
}

const HitRanges& HitMarks::shownOnes() const {
    const HitRanges& text = hits_[static_cast<std::size_t>(HitKind::Text)];
    return text.isEmpty() ? hits_[static_cast<std::size_t>(HitKind::Words)] : text;
}

void HitMarks::set(HitKind kind, HitRanges hits) {
    hits_[static_cast<std::size_t>(kind)] = std::move(hits);
    place(false);
}

void HitMarks::place(bool another) {
    if (another)
        hits_ = {};
    std::vector<HitRange> placed;
    placed.reserve(shownOnes().all().size());
    for (const HitRange& hit : shownOnes().all())
        placed.push_back({shown_.toDocument(hit.start), shown_.toDocument(hit.end)});
    layout_.setHits(HitRanges(std::move(placed)));
    layout_.setCurrentHit(-1);
    select(selected_);
    placeTicks();
}

qsizetype HitMarks::start(int tick) const {
    return shown_.toModel(static_cast<int>(layout_.hits().all()[static_cast<std::size_t>(tick)].start));
}

bool HitMarks::select(const HitRange& selected) {
    selected_ = selected;
    const HitRange placed{shown_.toDocument(selected.start), shown_.toDocument(selected.end)};
    const int current = layout_.hits().indexOf(placed);
    if (current == layout_.currentHit())
        return false;
    layout_.setCurrentHit(current);
    strip_.setCurrent(current);
    return true;
}

SeenHits HitMarks::seen(const QTextEdit& view) const {
    constexpr std::size_t most = 200;
    SeenHits seen;
    const std::int64_t top = view.verticalScrollBar()->value();
    const PaperLayout::Line last = layout_.lineAt(top + view.viewport()->height());
    const int end = shown_.documentEnd(shown_.blockAt(last.start));
    for (const HitRange& hit : layout_.hits().around(layout_.lineAt(top).start, end)) {
        if (!layout_.isAvailable(static_cast<int>(hit.end)))
            break; // the document does not hold it yet
        const QRect place = placeIn(view, hit);
        if (place.isEmpty())
            continue;
        if (layout_.hits().indexOf(hit) == layout_.currentHit())
            seen.current = place;
        else if (seen.others.size() < most)
            seen.others.push_back(place);
    }
    return seen;
}

/// In the whole document, as far as heights are known.
std::vector<float> HitMarks::places() const {
    std::vector<float> places;
    places.reserve(layout_.hits().all().size());
    const double whole = std::max(1.0, height_);
    int number = -1;
    double top = 0;
    double height = 0;
    for (const HitRange& hit : layout_.hits().all()) { // in the order of the text
        const auto at = static_cast<int>(hit.start);
        if (number < 0 || at > shown_.documentEnd(number)) {
            number = shown_.blockAt(at);
            top = double(layout_.paragraphTop(number));
            height = double(layout_.paragraphTop(number + 1)) - top;
        }
        const int start = shown_.documentStart(number);
        const double part = double(at - start) / std::max(1, shown_.documentEnd(number) - start);
        places.push_back(static_cast<float>((top + part * height) / whole));
    }
    return places;
}

void HitMarks::placeTicks() {
    height_ = layout_.documentSize().height();
    settled_ = layout_.isComplete();
    strip_.setTicks(places(), layout_.currentHit(), height_);
}

// While heights are becoming known a tick moves when that can be seen, and at the end once more.
void HitMarks::followHeights(double height) {
    constexpr double seen = 0.004;
    if (layout_.hits().isEmpty())
        return;
    const bool moved = std::abs(height - height_) > seen * height_;
    if (moved || (!settled_ && layout_.isComplete()))
        placeTicks();
}

} // namespace velm
