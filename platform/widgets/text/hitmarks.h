#pragma once
// What was found in a text that a view shows: a ground under each place, and a tick for each beside the scroll bar.
#include "platform/typeset/showntext.h"
#include "platform/widgets/text/hitranges.h"

#include <QObject>
#include <QRect>

#include <array>

class QTextEdit;

namespace velm {

class PaperLayout;
class HitStrip;

/// The marked words of a search, or what somebody looks for in this text now. The latter hides the former meanwhile.
enum class HitKind { Words, Text };

/// Hits on the screen, in pixels of the viewport; of very many the first ones.
struct SeenHits {
    QRect current; ///< null when none is selected, or it is not in sight
    std::vector<QRect> others;
};

class HitMarks final : public QObject {
public:
    /// All outlive it.
    HitMarks(const ShownText& shown, PaperLayout& layout, HitStrip& strip, QObject* parent);

    /// In positions of the model; none: no longer.
    void set(HitKind kind, HitRanges hits);
    /// The same text is laid out anew, or another one has come: then nothing was found in it yet.
    void place(bool another);
    /// What is selected, in positions of the model: where that is one of the hits, it is the one that is shown. True
    /// when that changed what is to be painted.
    bool select(const HitRange& selected);
    /// Of those that show: where the one of a tick begins, in the model.
    qsizetype start(int tick) const;
    /// Those that the view of the layout shows now.
    SeenHits seen(const QTextEdit& view) const;

private:
    const HitRanges& shownOnes() const;
    std::vector<float> places() const;
    void placeTicks();
    void followHeights(double height);

    const ShownText& shown_;
    PaperLayout& layout_;
    HitStrip& strip_;
    std::array<HitRanges, 2> hits_; ///< by kind
    HitRange selected_;
    double height_ = 0; ///< of the document, as the ticks know it
    bool settled_ = false;
};

} // namespace velm
