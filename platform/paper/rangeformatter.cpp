#include "platform/paper/rangeformatter.h"

#include "platform/paper/lineout.h"

#include <algorithm>
#include <optional>

namespace velm {

namespace {

int inTwips(int dots) {
    return qRound(dots * SetDocument::twipsPerDot);
}

/// The bands of a set block's lines, which share the room between them, in twips.
class Bands {
public:
    explicit Bands(const SetDocument::Block& block) : block_(block) {}
    int count() const { return block_.lines->lineCount(); }
    int top(int line) const {
        if (line <= 0)
            return 0;
        if (line >= count())
            return inTwips(block_.height);
        const QRectF above = block_.lines->lineAt(line - 1).rect();
        return inTwips(qRound((above.bottom() + block_.lines->lineAt(line).y()) / 2));
    }

private:
    const SetDocument::Block& block_;
};

} // namespace

struct RangeFormatter::Setting {
    Setting(const RichText& rich, qsizetype first, qsizetype end, const QRect& rectangle)
        : origin(&rich), revision(rich.revision()), from(first), to(end), width(rectangle.width()), next(first),
          part(first > 0 || end < rich.length() ? std::optional(rich.copy(first, end - first)) : std::nullopt),
          set(part ? *part : rich, rectangle.width(), rectangle.left(), rectangle.height()) {}

    bool goesOn(const RichText& rich, qsizetype at, qsizetype end, const QRect& rectangle) const {
        return origin == &rich && revision == rich.revision() && to == end && next == at && at > from &&
               width == rectangle.width();
    }

    const RichText* origin;
    quint64 revision;
    qsizetype from;
    qsizetype to;
    int width;
    qsizetype next; ///< the first character that is not printed
    std::optional<RichText> part;
    SetDocument set;
    std::unique_ptr<LineOut> out;
    int block = 0; ///< where it goes on
    int line = 0;
};

RangeFormatter::RangeFormatter() = default;
RangeFormatter::~RangeFormatter() = default;

void RangeFormatter::release() {
    setting_.reset();
}

void RangeFormatter::begin(const RichText& rich, qsizetype from, qsizetype to, const QRect& rectangle, JobPages& job) {
    setting_ = std::make_unique<Setting>(rich, from, to, rectangle);
    const ShownText& shown = setting_->set.shown();
    const auto source = static_cast<std::uint32_t>(job.sources.size());
    job.sources.push_back({shown.text(),
                           shown.objects(),
                           {},
                           static_cast<int>(job.pages.size()) - 1,
                           static_cast<float>(rectangle.top())});
    setting_->out = std::make_unique<LineOut>(setting_->set, setting_->part ? *setting_->part : rich, job, source);
    std::vector<LinkSpan> links;
    for (const LinkSpan& link : links_) {
        const qsizetype start = std::clamp(link.start, from, to) - from;
        const qsizetype end = std::clamp(link.end, from, to) - from;
        if (end > start)
            links.push_back({shown.toDocument(start), shown.toDocument(end), link.address});
    }
    setting_->out->setLinks(std::move(links));
}

PrintDevice::Formatted RangeFormatter::format(const RichText& rich, qsizetype from, qsizetype to,
                                              const QRect& rectangle, JobPages& job) {
    const qsizetype length = rich.length();
    const qsizetype first = std::clamp<qsizetype>(from, 0, length);
    const qsizetype end = to < 0 ? length : std::clamp<qsizetype>(to, first, length);
    if (!setting_ || !setting_->goesOn(rich, first, end, rectangle))
        begin(rich, first, end, rectangle, job);
    Setting& s = *setting_;
    const ShownText& shown = s.set.shown();
    const bool continued = s.block > 0 || s.line > 0;
    int y = rectangle.top();
    bool any = false;
    const int bottomLimit = rectangle.top() + rectangle.height();
    for (; s.block < shown.count(); ++s.block, s.line = 0) {
        const SetDocument::Block block = s.set.block(s.block);
        const Bands bands(block);
        if (shown.paragraph(s.block).pageBreak && s.block + 1 < shown.count()) {
            ++s.block;
            s.line = 0;
            s.next = first == end ? end : s.from + shown.toModel(shown.documentStart(s.block));
            return {s.next, y};
        }
        const int skipped = continued && !any && s.line == 0 ? inTwips(s.set.setter().spaceBefore(s.block)) : 0;
        const int text = inTwips(block.height - s.set.setter().spaceAfter(s.block));
        const bool row = shown.paragraph(s.block).tabs && !shown.format(s.block).tabs.empty();
        int corner = y - std::max(bands.top(s.line), skipped);
        const bool whole = row && s.line == 0 && text - skipped <= rectangle.height();
        for (; s.line < bands.count(); ++s.line) {
            const bool last = s.line + 1 == bands.count();
            const int reach = whole ? corner + text : corner + (last ? text : bands.top(s.line + 1));
            if (any && reach > bottomLimit) {
                const int at = shown.documentStart(s.block) + block.lines->lineAt(s.line).textStart();
                s.next = s.from + shown.toModel(at);
                return {s.next, y};
            }
            s.out->put(s.block, block, s.line, QPointF(rectangle.left(), corner));
            any = true;
            y = corner + bands.top(s.line + 1);
        }
    }
    s.next = end;
    return {end, std::min(y, std::max(bottomLimit, rectangle.top()))};
}

} // namespace velm
