#include "platform/widgets/text/linkpaint.h"

#include "platform/typeset/viewformats.h"
#include "platform/widgets/text/textpieces.h"

#include <algorithm>

namespace velm {

namespace {

// Text of a decided colour keeps it in a link; black and greys take the link's, and so does the accent, in which
// publishers set links and headings alike.
bool takesLinkColour(const QColor& colour) {
    const auto [least, most] = std::minmax({colour.red(), colour.green(), colour.blue()});
    return most - least < 48 || colour.rgb() == look::accent;
}

/// Gathers the passes of one block, piece by piece in the order of the text.
class Gathering {
public:
    /// From line `first` on.
    Gathering(const QTextLayout& lines, const LineBands& bands, int first, const LinkPaint::Ranges& selected)
        : pieces_(lines, first), bands_(bands), selected_(selected) {}

    void setMixedDirections(bool mixed) { pieces_.setMixedDirections(mixed); }

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
        pieces_.each(from, to, [this, &where](int line, int left, int right) {
            where += QRect(left, bands_.top(line), right - left, bands_.top(line + 1) - bands_.top(line));
        });
    }

    TextPieces pieces_;
    const LineBands& bands_;
    const LinkPaint::Ranges& selected_;
    std::vector<LookPass> passes_;
};

} // namespace

QTextCharFormat LinkPaint::lookOf(const ShownRun& run, bool hovered) const {
    constexpr float quiet = 0.4F; // of the line under a link that is not pointed at
    const std::int32_t own = shown_.colour(run.format);
    const bool recoloured = own == autoColour || takesLinkColour(viewColour(own));
    QColor colour = recoloured ? sheet_.link : viewColour(own);
    QTextCharFormat look;
    look.setForeground(colour);
    if (!hovered)
        colour.setAlphaF(quiet);
    look.setFontUnderline(true);
    look.setUnderlineColor(colour);
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
            gathering.add(at - start, end - start, lookOf(*run, link.index == hovered_));
            at = end;
        }
    }
    return gathering.take();
}

} // namespace velm
