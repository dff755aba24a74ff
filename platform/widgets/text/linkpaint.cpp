#include "platform/widgets/text/linkpaint.h"

#include "platform/widgets/text/viewformats.h"

#include <algorithm>
#include <cmath>

namespace velm {

namespace {

// Text of a decided colour keeps it in a link; black and greys take the link's.
bool isGreyish(const QColor& colour) {
    const auto [least, most] = std::minmax({colour.red(), colour.green(), colour.blue()});
    return most - least < 48;
}

bool runsLeftward(QStringView text) {
    return std::any_of(text.begin(), text.end(), [](QChar unit) {
        const QChar::Direction direction = unit.direction();
        return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirRLE ||
               direction == QChar::DirRLO || direction == QChar::DirRLI || direction == QChar::DirAN;
    });
}

/// Gathers the passes of one block, piece by piece in the order of the text.
class Gathering {
public:
    /// From line `first` on.
    Gathering(const QTextLayout& lines, const LineBands& bands, int first, const LinkPaint::Ranges& selected)
        : lines_(lines), bands_(bands), line_(first), selected_(selected) {}

    void setMixedDirections(bool mixed) { mixed_ = mixed; }

    /// What of [from, to) lies outside the selections.
    void add(int from, int to, const QTextCharFormat& look) {
        QRegion& where = passFor(look).where;
        for (const QTextLayout::FormatRange& selection : selected_) {
            addPiece(from, std::min(to, selection.start), where);
            from = std::max(from, selection.start + selection.length);
        }
        addPiece(from, to, where);
    }
    std::vector<LookPass> take() { return std::move(passes_); }

private:
    LookPass& passFor(const QTextCharFormat& look) {
        const auto known =
            std::find_if(passes_.begin(), passes_.end(), [&look](const LookPass& pass) { return pass.look == look; });
        return known != passes_.end() ? *known : passes_.emplace_back(LookPass{look, {}});
    }

    void addPiece(int from, int to, QRegion& where) {
        while (from < to) {
            const QTextLine line = lines_.lineAt(line_);
            if (!line.isValid())
                return;
            const int end = std::min(to, line.textStart() + line.textLength());
            if (from < end) {
                addSpans(line, from, end, where);
                from = end;
            }
            if (from < to)
                ++line_;
        }
    }

    // Where text runs both ways a piece of it may lie in several places of the line.
    void addSpans(const QTextLine& line, int from, int to, QRegion& where) const {
        if (!mixed_) {
            addSpan(line.cursorToX(from), line.cursorToX(to), where);
            return;
        }
        for (int i = from; i < to; ++i)
            addSpan(line.cursorToX(i, QTextLine::Leading), line.cursorToX(i, QTextLine::Trailing), where);
    }

    void addSpan(double one, double other, QRegion& where) const {
        const int left = static_cast<int>(std::floor(std::min(one, other)));
        const int right = qRound(std::max(one, other));
        where += QRect(left, bands_.top(line_), right - left, bands_.top(line_ + 1) - bands_.top(line_));
    }

    const QTextLayout& lines_;
    const LineBands& bands_;
    int line_ = 0;
    const LinkPaint::Ranges& selected_;
    bool mixed_ = false;
    std::vector<LookPass> passes_;
};

} // namespace

/// Nothing where a run keeps its look.
std::optional<QTextCharFormat> LinkPaint::lookOf(const ShownRun& run, bool underlined) const {
    const std::int32_t own = shown_.colour(run.format);
    const bool recoloured = own == autoColour || isGreyish(viewColour(own));
    if (!recoloured && !underlined)
        return std::nullopt;
    QTextCharFormat look;
    look.setForeground(recoloured ? sheet_.link : viewColour(own));
    if (underlined)
        look.setFontUnderline(true);
    return look;
}

std::vector<LookPass> LinkPaint::passes(int number, const QTextLayout& lines, const LineBands& bands, int first,
                                        int last, const Ranges& selected) const {
    const int start = shown_.documentStart(number);
    const int from = start + lines.lineAt(first).textStart();
    const int to = start + lines.lineAt(last).textStart() + lines.lineAt(last).textLength();
    const auto links = links_.within(from, to);
    if (links.empty())
        return {};
    Gathering gathering(lines, bands, first, selected);
    gathering.setMixedDirections(runsLeftward(QStringView(shown_.text()).sliced(from, to - from)));
    auto run = std::upper_bound(shown_.runs().begin(), shown_.runs().end(), from,
                                [](int position, const ShownRun& r) { return position < r.start + r.count; });
    for (const LinkRanges::Entry& link : links) {
        const int linkEnd = static_cast<int>(std::min<qsizetype>(link.end, to));
        for (int at = static_cast<int>(std::max<qsizetype>(link.start, from)); at < linkEnd;) {
            while (run->start + run->count <= at)
                ++run;
            const int end = std::min(linkEnd, run->start + run->count);
            if (const auto look = lookOf(*run, link.index == hovered_))
                gathering.add(at - start, end - start, *look);
            at = end;
        }
    }
    return gathering.take();
}

} // namespace velm
