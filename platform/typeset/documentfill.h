#pragma once
// Puts a rich text into the view's document, in as many steps as its owner likes.
#include "platform/typeset/showntext.h"
#include "platform/typeset/viewformats.h"

#include <QTextCursor>

class QTextDocument;

namespace velm {

class DocumentFill {
public:
    /// The document outlives the fill.
    explicit DocumentFill(QTextDocument& document);

    /// Empties the document; what `shown` holds of `rich` comes with the steps. `shown` is needed until then, `rich` is
    /// not: the view may fall behind it.
    void begin(const ShownText& shown, const RichText& rich);
    /// Adds about so many characters, a change of format and a block counting as some more; true when all is in.
    bool step(qsizetype characters);
    bool isDone() const { return run_ >= runCount_; }
    /// As many blocks as the document holds whole.
    int blocks() const;

private:
    void fill(const ShownRun& run, qsizetype& left);
    void insert(int from, const ShownRun& run);
    void beginBlock(const ShownRun& run, int& from);

    QTextCursor cursor_;
    ViewFormats formats_;
    const ShownText* shown_ = nullptr;
    std::size_t run_ = 0;
    std::size_t runCount_ = 0;
    int position_ = 0; ///< in the document: up to here it is filled
    int block_ = 0;    ///< the block there
};

} // namespace velm
