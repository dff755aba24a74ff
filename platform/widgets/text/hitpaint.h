#pragma once
// The ground under what was found, laid over the painted text the way a marker pen does it: dark paper lights up, light
// paper is tinted, and ink stays ink. The hit that is being shown is stronger and has a ring.
#include "platform/typeset/showntext.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/hitranges.h"
#include "platform/widgets/text/linebands.h"

#include <QRegion>
#include <QTextLayout>

class QPainter;

namespace velm {

class HitPaint {
public:
    /// Positions of the document; `current` is the number of one, or -1. All outlive it.
    HitPaint(const ShownText& shown, const HitRanges& hits, int current, const look::Sheet& sheet)
        : shown_(shown), hits_(hits), current_(current), sheet_(sheet) {}

    /// For the lines of a block in the clip, from the block's own corner; nothing where `but` is.
    void paint(QPainter& painter, int number, const QTextLayout& lines, const LineBands& bands, const QRectF& clip,
               const QRegion& but) const;

private:
    const ShownText& shown_;
    const HitRanges& hits_;
    int current_ = -1;
    const look::Sheet& sheet_;
};

} // namespace velm
