#pragma once
// A rich text as the view's document holds it, and the way between both kinds of position.
//
// The document has one position for a paragraph's end where the model has two (CR LF); every other character of the
// model stands for exactly one of the document. So a document position plus the number of its paragraph is the model's
// position.
#include "platform/richtext/richtext.h"

#include <QString>

#include <vector>

namespace velm {

struct ShownParagraph {
    qsizetype start = 0;    ///< in the model
    FormatId format = 0;    ///< of the paragraph
    FormatId mark = 0;      ///< of its end
    bool pageBreak = false; ///< holds nothing but a page break
    bool tabs = false;      ///< holds a tab
    bool objects = false;   ///< holds a picture
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

    /// Paragraph ends as U+2029, line ends inside a paragraph as U+2028; what has no shape is a joiner of no width;
    /// blanks that belong to punctuation hold the line together.
    const QString& text() const { return text_; }
    int documentLength() const { return static_cast<int>(text_.size()); }
    qsizetype modelLength() const { return modelLength_; }

    /// A position between CR and LF is the paragraph's end. Clamped.
    int toDocument(qsizetype model) const;
    qsizetype toModel(int document) const;
    int paragraphAt(qsizetype model) const;
    int documentStart(int number) const { return static_cast<int>(paragraph(number).start) - number; }

    const std::vector<RichObject>& objects() const { return objects_; }

    /// The format of most characters.
    const CharFormat& mainFormat() const { return mainFormat_; }

private:
    struct Reading;
    void readRun(Reading& reading, qsizetype start, qsizetype count, FormatId format);
    void endParagraph(const RichText& rich, qsizetype position, FormatId mark);
    void findMainFormat(const RichText& rich);

    std::vector<ShownParagraph> paragraphs_;
    std::vector<ShownRun> runs_;
    std::vector<ParaFormat> formats_; // by id, those that known_ tells
    std::vector<bool> known_;
    std::vector<RichObject> objects_;
    QString text_;
    qsizetype modelLength_ = 0;
    CharFormat mainFormat_;
};

} // namespace velm
