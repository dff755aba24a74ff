#include "platform/typeset/documentfill.h"

#include <QTextDocument>

#include <algorithm>

namespace velm {

namespace {

// What the document takes to begin them, in characters added.
constexpr qsizetype costOfRun = 100;
constexpr qsizetype costOfBlock = 200;

} // namespace

DocumentFill::DocumentFill(QTextDocument& document) : cursor_(&document) {}

void DocumentFill::begin(const ShownText& shown, const RichText& rich) {
    shown_ = &shown;
    run_ = 0;
    runCount_ = shown.runs().size();
    position_ = 0;
    block_ = 0;
    formats_.reset();
    for (const ShownRun& run : shown.runs())
        formats_.add(rich, run.format);
    for (int i = 0; i < shown.count(); ++i)
        formats_.add(rich, shown.paragraph(i).mark);
    QTextDocument& document = *cursor_.document();
    document.setUndoRedoEnabled(false);
    document.clear(); // at once; to remove the text would take it apart piece by piece
    cursor_.setBlockCharFormat(formats_.at(shown.paragraph(0).mark));
}

bool DocumentFill::step(qsizetype characters) {
    if (isDone())
        return true;
    cursor_.beginEditBlock();
    for (qsizetype left = characters; left > 0 && run_ < runCount_;) {
        const ShownRun& run = shown_->runs()[run_];
        left -= costOfRun;
        fill(run, left);
        if (position_ == run.start + run.count)
            ++run_;
    }
    cursor_.endEditBlock();
    return isDone();
}

int DocumentFill::blocks() const {
    return isDone() && shown_ != nullptr ? shown_->count() : block_;
}

void DocumentFill::fill(const ShownRun& run, qsizetype& left) {
    const QStringView text = shown_->text();
    const int end = run.start + run.count;
    int from = position_;
    do {
        const qsizetype room = std::clamp<qsizetype>(left, 1, end - position_);
        const qsizetype blockEnd = text.sliced(position_, room).indexOf(QChar::ParagraphSeparator);
        const qsizetype added = blockEnd < 0 ? room : blockEnd + 1;
        position_ += static_cast<int>(added);
        left -= added;
        if (blockEnd >= 0) {
            left -= costOfBlock;
            beginBlock(run, from);
        }
    } while (left > 0 && position_ < end);
    insert(from, run);
}

// An empty block takes its height from the format of the end before it: there its own end's format is put.
void DocumentFill::beginBlock(const ShownRun& run, int& from) {
    ++block_;
    const FormatId mark = shown_->paragraph(block_).mark;
    const bool empty = shown_->documentStart(block_) == shown_->documentEnd(block_);
    if (empty && mark != run.format) {
        --position_;
        insert(from, run);
        cursor_.insertBlock({}, formats_.at(mark));
        from = ++position_;
    }
}

/// What lies between `from` and position_.
void DocumentFill::insert(int from, const ShownRun& run) {
    if (position_ > from)
        cursor_.insertText(shown_->text().mid(from, position_ - from), formats_.at(run.format));
}

} // namespace velm
