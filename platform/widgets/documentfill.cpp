#include "platform/widgets/documentfill.h"

#include <QTextCursor>
#include <QTextDocument>

namespace velm {

namespace {

class Filler {
public:
    Filler(QTextDocument& document, const ShownText& shown, const RichText& rich, ViewFormats& formats)
        : cursor_(&document), shown_(shown), rich_(rich), formats_(formats) {}

    void fill() {
        cursor_.beginEditBlock();
        cursor_.select(QTextCursor::Document);
        cursor_.removeSelectedText();
        cursor_.setBlockFormat({});
        cursor_.setBlockCharFormat(formats_.format(rich_, shown_.paragraph(0).mark));
        for (const ShownRun& run : shown_.runs()) {
            insert(run);
        }
        cursor_.endEditBlock();
    }

private:
    // An empty paragraph takes its height from the format of the end before it: there its own end's format is put.
    void insert(const ShownRun& run) {
        int from = run.start;
        const int end = run.start + run.count;
        for (int i = from; i < end; ++i) {
            if (shown_.text().at(i) != QChar::ParagraphSeparator) {
                continue;
            }
            const ShownParagraph& next = shown_.paragraph(++paragraph_);
            const bool empty = shown_.documentStart(paragraph_ + 1) == i + 2 || i + 1 == shown_.documentLength();
            if (empty && next.mark != run.format) {
                insertPlain(from, i, run.format);
                cursor_.insertBlock({}, formats_.format(rich_, next.mark));
                from = i + 1;
            }
        }
        insertPlain(from, end, run.format);
    }

    void insertPlain(int from, int to, FormatId format) {
        if (to > from) {
            cursor_.insertText(shown_.text().mid(from, to - from), formats_.format(rich_, format));
        }
    }

    QTextCursor cursor_;
    const ShownText& shown_;
    const RichText& rich_;
    ViewFormats& formats_;
    int paragraph_ = 0;
};

} // namespace

void fillDocument(QTextDocument& document, const ShownText& shown, const RichText& rich, ViewFormats& formats) {
    document.setUndoRedoEnabled(false);
    Filler(document, shown, rich, formats).fill();
}

} // namespace velm
