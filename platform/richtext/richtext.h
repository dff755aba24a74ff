#pragma once
// The truth of what is shown, searched, marked, saved and printed: a text with formats.
//
// Positions count UTF-16 units from 0. A paragraph ends in CR LF, two positions. Three parallel gap buffers hold the
// text, the character format and the paragraph format of every position, so that a run of replacements from left to
// right is linear in the text. The format of a paragraph is that of its last position; for the last paragraph, when it
// is empty, it is tailParagraph(). So when a removal joins two paragraphs, the joined one has the format of the last.
//
// The text never holds a CR or LF alone. A position between the two of a pair may be read, but a change that takes half
// of a pair takes the whole, and what is inserted between the two comes before the pair: see changeRange().
// Out-of-range positions and lengths are clamped.
#include "platform/richtext/format.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <memory>
#include <utility>

namespace velm {

struct RichTextData;

class RichText {
public:
    RichText();
    ~RichText();
    RichText(const RichText& other);
    RichText& operator=(const RichText& other);
    RichText(RichText&&) noexcept;
    RichText& operator=(RichText&&) noexcept;

    // ---- reading
    qsizetype length() const;
    bool isEmpty() const { return length() == 0; }
    char16_t at(qsizetype position) const;
    QString text() const;
    QString text(qsizetype position, qsizetype length) const;

    /// The text in two pieces that follow one another, for scanners; valid until the next change.
    std::pair<QStringView, QStringView> segments() const;

    /// First occurrence at or after `from`, or -1. Never copies the text; linear.
    qsizetype indexOf(QStringView needle, qsizetype from = 0) const;
    qsizetype indexOf(char16_t unit, qsizetype from = 0) const;
    /// Last occurrence that begins at or before `from`, or -1.
    qsizetype lastIndexOf(char16_t unit, qsizetype from) const;

    /// At the text's end: the formats of the tail, or of the last position if the last paragraph is not empty.
    FormatId charFormatIdAt(qsizetype position) const;
    /// Looks for the paragraph's end: walk by paragraphEnd(), don't ask for every position.
    FormatId paraFormatIdAt(qsizetype position) const;
    /// References stay valid until clear() or an assignment. An unknown id stands for the default format.
    const CharFormat& charFormat(FormatId id) const;
    const ParaFormat& paraFormat(FormatId id) const;
    const CharFormat& charFormatAt(qsizetype position) const { return charFormat(charFormatIdAt(position)); }
    const ParaFormat& paraFormatAt(qsizetype position) const { return paraFormat(paraFormatIdAt(position)); }
    const std::vector<RichObject>& objects() const;

    /// First position of the paragraph that holds `position`; first position behind its CR LF (or the text's end).
    qsizetype paragraphStart(qsizetype position) const;
    qsizetype paragraphEnd(qsizetype position) const;

    /// Calls back for each maximal run of equal character format in [position, position + length).
    void forEachRun(qsizetype position, qsizetype length,
                    const std::function<void(qsizetype start, qsizetype count, FormatId format)>& call) const;

    /// The format that plain text inserted at `position` takes: that of the character before, or at a paragraph's start
    /// that of the character at `position`.
    CharFormat insertionFormat(qsizetype position) const;
    /// The range {position, length} that a change of this range really takes: clamped, halves of CR LF made whole.
    std::pair<qsizetype, qsizetype> changeRange(qsizetype position, qsizetype length) const;

    // ---- writing
    /// Empties the text and forgets formats and objects: earlier ids are void (0 is always the default format).
    void clear();
    FormatId intern(const CharFormat& format);
    FormatId intern(const ParaFormat& format);
    int addObject(RichObject object);

    /// Appends with formats already interned; the way of readers. `text` must hold line ends as CR LF. The tail takes
    /// the same formats, until setTail().
    void append(QStringView text, FormatId character, FormatId paragraph);
    /// Format of the last paragraph while it is empty (also the only one of an empty text). Without effect while it is
    /// not: then these are the formats of the last position.
    void setTail(FormatId character, FormatId paragraph);
    FormatId tailCharacter() const;
    FormatId tailParagraph() const;

    /// Replaces a range by plain text, which takes the format of the first replaced character; with nothing replaced,
    /// that of the character before, or at a paragraph's start that of the character at `position`. A lone CR, a lone
    /// LF and CR LF each become one CR LF. The range is removed first; a line end in the new text then splits a
    /// paragraph in two of its format. Returns the number of positions that the new text takes; they begin at
    /// changeRange(position, length).first.
    qsizetype replace(qsizetype position, qsizetype length, QStringView text);
    /// Replaces a range by rich text (formats and objects come along). The paragraph of `position` is split or joined
    /// as a paste does: paragraphs that end inside `other` bring their format; what follows the insertion keeps its
    /// own. Returns the same as above.
    qsizetype replace(qsizetype position, qsizetype length, const RichText& other);
    void remove(qsizetype position, qsizetype length);

    /// Changes properties of a range; paragraph changes reach every paragraph that the range touches, an empty range
    /// its one paragraph. Tab stops are put in order, doubles and what is not positive left out, 32 kept.
    void changeCharacters(qsizetype position, qsizetype length, const CharChange& change);
    void changeParagraphs(qsizetype position, qsizetype length, const ParaChange& change);

    /// A part as a text of its own (halves of CR LF made whole), with the formats and objects it needs. Its last
    /// paragraph has the format that it has here; if the part ends in a line end before the text does, the tail carries
    /// on with the formats of that line end.
    RichText copy(qsizetype position, qsizetype length) const;

    /// Grows with every change; two equal values mean an unchanged text.
    quint64 revision() const;

private:
    std::unique_ptr<RichTextData> d_;
};

/// Equal text, formats and objects, whatever the ids; the formats of an empty last paragraph count too.
bool sameContent(const RichText& a, const RichText& b);

} // namespace velm
