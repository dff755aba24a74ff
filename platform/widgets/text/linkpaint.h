#pragma once
// How the text of links is painted: in the colour of links unless it has one of its own, on a line that is
// faint but under the pointer.
//
// The text engine draws a range in another look by drawing its lines once more, clipped to that range; for as many
// ranges as a page of references has, that is most of the painting, and for thousands it has no end. So links of one
// look are gathered, and drawn in one pass clipped to all of them.
#include "platform/typeset/showntext.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/linebands.h"
#include "platform/widgets/text/linkranges.h"

#include <QRegion>
#include <QTextLayout>

namespace velm {

/// Where a block shows text in another look, in pixels from its own corner.
struct LookPass {
    QTextCharFormat look;
    QRegion where;
};

class LinkPaint {
public:
    using Ranges = QList<QTextLayout::FormatRange>;

    /// All outlive it. `hovered` is the number of the link under the pointer, or -1.
    LinkPaint(const ShownText& shown, const LinkRanges& links, const look::Sheet& sheet, int hovered)
        : shown_(shown), links_(links), sheet_(sheet), hovered_(hovered) {}

    /// For a block's lines from `first` to `last`. Where something is selected, in positions of the block, the
    /// selection's look counts; selections ascend.
    std::vector<LookPass> passes(int number, const QTextLayout& lines, const LineBands& bands, int first, int last,
                                 const Ranges& selected) const;

private:
    QTextCharFormat lookOf(const ShownRun& run, bool hovered) const;

    const ShownText& shown_;
    const LinkRanges& links_;
    const look::Sheet& sheet_;
    int hovered_ = -1;
};

} // namespace velm
