#pragma once
// What a RichText holds: its buffers, kept in step with one another, and its formats. Private to this folder.
#include "platform/richtext/format.h"
#include "platform/richtext/formattable.h"
#include "platform/richtext/gapbuffer.h"

#include <QStringView>

#include <algorithm>
#include <utility>
#include <vector>

namespace velm {

/// The buffer of paragraph formats counts only at the last position of each paragraph (its LF, or the last character of
/// a text without a line end); everywhere else its content means nothing. So an edit inside a long paragraph need not
/// touch the rest of it, and a deletion that joins two paragraphs leaves the joined one with the format of the last.
struct RichTextData {
    GapBuffer<char16_t> text;
    GapBuffer<FormatId> characters;
    GapBuffer<FormatId> paragraphs;
    FormatTable<CharFormat> charFormats;
    FormatTable<ParaFormat> paraFormats;
    std::vector<RichObject> objects;
    FormatId tailCharacter = 0; ///< both count only while the last paragraph is empty
    FormatId tailParagraph = 0;
    quint64 revision = 0;

    /// A stretch without a line end before the one that closes it: every position in [knownFrom, knownEnd) belongs to
    /// the paragraph that ends at knownEnd. Only changes set it, so that any number of threads may read one text. It
    /// spares a run of changes in one long paragraph the way to its end each time. Another stretch takes its place once
    /// the ways outside it add up to its length: so changes here and there, and those that cut short paragraphs off the
    /// long one, stay linear too.
    qsizetype knownFrom = 0;
    qsizetype knownEnd = 0;
    qsizetype waysOutside = 0;

    qsizetype length() const { return text.size(); }
    QStringView first() const { return {text.first(), text.firstSize()}; }
    QStringView second() const { return {text.second(), text.secondSize()}; }

    bool lastIsEmpty() const { return length() == 0 || text[length() - 1] == u'\n'; }
    FormatId lastParagraph() const { return lastIsEmpty() ? tailParagraph : paragraphs[length() - 1]; }
    bool atParagraphStart(qsizetype position) const { return position == 0 || text[position - 1] == u'\n'; }
    bool insidePair(qsizetype position) const {
        return position > 0 && position < length() && text[position] == u'\n' && text[position - 1] == u'\r';
    }

    qsizetype indexOf(char16_t unit, qsizetype from) const;
    /// First position behind the paragraph that holds `position` (0 to length).
    qsizetype paragraphEnd(qsizetype position) const;
    FormatId paragraphAt(qsizetype position) const;
    /// paragraphEnd() for changes, which may remember the way.
    qsizetype learnParagraphEnd(qsizetype position);

    /// Puts `added` positions in the place of `removed`: unset text, formats `character` and 0. Returns the text.
    char16_t* splice(qsizetype position, qsizetype removed, qsizetype added, FormatId character);
    /// Keeps the known stretch right over a change; `tailAdded` counts the positions behind the last line end that the
    /// new text holds, -1 if it holds none.
    void moveKnown(qsizetype position, qsizetype removed, qsizetype added, qsizetype tailAdded);
    /// Gives the last paragraph its formats after a change that reached the text's end.
    void closeEnd(FormatId character, FormatId paragraph);

    /// The character format of plain text that replaces a range; never that of an object.
    FormatId newTextFormat(qsizetype position, qsizetype removed);
    /// Puts a part of another text in the place of `removed` positions, with the formats of the characters and of the
    /// paragraphs that end in the part. The caller sees to the last paragraph.
    void paste(qsizetype position, qsizetype removed, const RichTextData& from, qsizetype start, qsizetype count);
};

/// Clamps a position, and then a length, into a text of `total` positions.
inline std::pair<qsizetype, qsizetype> clampedRange(qsizetype position, qsizetype length, qsizetype total) {
    const qsizetype start = std::clamp<qsizetype>(position, 0, total);
    return {start, std::clamp<qsizetype>(length, 0, total - start)};
}

} // namespace velm
