#pragma once
// A text set in type for one width, a block at a time: what paper shows. It is set as the screen sets it at 100 %, in
// the same whole dots, for the text engine has type in whole dots only, which is up to 3 % larger or smaller than asked
// for: only so do lines break on paper where they break on the screen.
#include "platform/base/twips.h"
#include "platform/typeset/density.h"
#include "platform/typeset/documentfill.h"
#include "platform/typeset/linesetter.h"
#include "platform/typeset/sheetpictures.h"

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>

#include <limits>

namespace velm {

class SetDocument {
public:
    static constexpr int dpi = 96;
    static constexpr double twipsPerDot = double(twipsPerInch) / dpi;
    /// The size that type of so many points has.
    static double points(double asked);

    /// Lengths are twips. Hanging lines reach at most `hang` to the left of the text; no picture is higher than
    /// `height`.
    SetDocument(const RichText& rich, int width, int hang, int height = std::numeric_limits<int>::max());
    ~SetDocument();
    SetDocument(const SetDocument&) = delete;
    SetDocument& operator=(const SetDocument&) = delete;
    SetDocument(SetDocument&&) = delete;
    SetDocument& operator=(SetDocument&&) = delete;

    const ShownText& shown() const { return shown_; }
    const LineSetter& setter() const { return setter_; }

    /// Lengths are dots.
    struct Block {
        const QTextLayout* lines = nullptr; ///< until another block is asked for
        int height = 0;
    };
    /// Sets a block; blocks are asked for in order, each as often as wanted.
    Block block(int number);
    /// The height of a block's first letter, in dots.
    double firstLetter(int number) const;

private:
    class Layout;

    ShownText shown_;
    PaperPage page_;
    LineSetter setter_;
    QTextDocument document_;
    DocumentFill fill_;
    LayoutWork work_;
    int current_ = -1;
    int height_ = 0;
};

} // namespace velm
