#pragma once
// A rich text as the view's document holds it, and the way between both kinds of position.
//
// The document has one position for a paragraph's end where the model has two (CR LF); every other character of the
// model stands for exactly one of the document. So a document position plus the number of paragraphs that end before it
// is the model's position.
//
// A paragraph beyond longestPart characters stands in the document as several blocks, so that one block is laid out and
// painted in bounded time whatever the text. It is parted where a line ends anyhow: at a line end of its own, else at a
// blank, which the block's end then stands for; where there is neither, as in one word without end, between two
// characters, and that block's end is the one position of the document that stands for none of the model.
#include "platform/richtext/richtext.h"

#include <QString>

#include <vector>

namespace velm {

/// A block of the document: a paragraph, or a part of one.
struct ShownParagraph {
    qsizetype start = 0;    ///< in the model
    int documentStart = 0;  ///< in the document
    FormatId format = 0;    ///< of the paragraph
    FormatId mark = 0;      ///< of its end
    bool pageBreak = false; ///< holds nothing but a page break
    bool tabs = false;      ///< holds a tab
    bool objects = false;   ///< holds a picture
    bool first = true;      ///< where the paragraph begins
    bool last = true;       ///< where it ends
    bool headEnd = false;   ///< ends the first row of a table, which is told from the others
};

/// A run of one character format, in positions of the document.
struct ShownRun {
    int start = 0;
    int count = 0;
    FormatId format = 0;
};

class ShownText {
public:
    ShownText();
    explicit ShownText(const RichText& rich);

    int count() const { return static_cast<int>(paragraphs_.size()); }
    const ShownParagraph& paragraph(int number) const;
    const ParaFormat& format(int number) const; ///< no length beyond 32767 twips
    const std::vector<ShownRun>& runs() const { return runs_; }

    static constexpr int longestPart = 16'384;

    /// Block ends as U+2029, line ends inside a paragraph as U+2028; what has no shape is a joiner of no width;
    /// blanks that belong to punctuation, or to the number of an article, hold the line together.
    const QString& text() const { return text_; }
    int documentLength() const { return static_cast<int>(text_.size()); }
    qsizetype modelLength() const { return modelLength_; }

    /// A position between CR and LF is the paragraph's end. Clamped.
    int toDocument(qsizetype model) const;
    qsizetype toModel(int document) const;
    int paragraphAt(qsizetype model) const;
    int documentStart(int number) const { return paragraph(number).documentStart; }
    /// Without the block's end.
    int documentEnd(int number) const {
        return number + 1 < count() ? documentStart(number + 1) - 1 : documentLength();
    }
    /// The block that holds a position of the document. Clamped.
    int blockAt(int document) const;

    const std::vector<RichObject>& objects() const { return objects_; }

    /// The format of most characters.
    const CharFormat& mainFormat() const { return mainFormat_; }
    /// The last stop of the widest table on tab stops, in twips; 0 when there is none.
    std::int32_t widestTable() const { return widestTable_; }
    /// The characters of the longest cell behind all tabs of a row.
    int longestLastCell() const { return longestLastCell_; }
    /// Of a format of the runs: one from the character table, or autoColour.
    std::int32_t colour(FormatId format) const { return format < colours_.size() ? colours_[format] : autoColour; }

private:
    struct Reading;
    void readRun(Reading& reading, qsizetype start, qsizetype count, FormatId format);
    void endParagraph(const RichText& rich, qsizetype position, FormatId mark);
    void finish(const RichText& rich);
    void measureTables();
    void findMainFormat(const RichText& rich);
    void findColours(const RichText& rich);

    std::vector<ShownParagraph> paragraphs_;
    std::vector<ShownRun> runs_;
    std::vector<ParaFormat> formats_; // by id, those that known_ tells
    std::vector<bool> known_;
    std::vector<RichObject> objects_;
    QString text_;
    qsizetype modelLength_ = 0;
    CharFormat mainFormat_;
    std::vector<std::int32_t> colours_; // by format
    std::int32_t widestTable_ = 0;
    int longestLastCell_ = 0;
};

} // namespace velm
