#pragma once
// A text set in type for one width, a block at a time: what paper shows, with the rules by which the screen breaks
// lines. Lengths are twips, as dots of a device of 1440 to the inch.
#include "platform/typeset/density.h"
#include "platform/typeset/documentfill.h"
#include "platform/typeset/linesetter.h"
#include "platform/typeset/sheetpictures.h"

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>

namespace velm {

class SetDocument {
public:
    static constexpr int dpi = 1440;

    /// Hanging lines reach at most `hang` to the left of the text.
    SetDocument(const RichText& rich, int width, int hang);
    ~SetDocument();
    SetDocument(const SetDocument&) = delete;
    SetDocument& operator=(const SetDocument&) = delete;
    SetDocument(SetDocument&&) = delete;
    SetDocument& operator=(SetDocument&&) = delete;

    const ShownText& shown() const { return shown_; }
    const LineSetter& setter() const { return setter_; }

    struct Block {
        const QTextLayout* lines = nullptr; ///< until another block is asked for
        int height = 0;
    };
    /// Sets a block; blocks are asked for in order, each as often as wanted.
    Block block(int number);
    /// The height of a block's first letter.
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
