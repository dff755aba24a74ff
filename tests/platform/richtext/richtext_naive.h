#pragma once
// The rich text written down without thought of speed: the oracle of the random tests.
#include "platform/richtext/richtext.h"

#include <vector>

namespace velm::test {

class NaiveText {
public:
    struct Position {
        char16_t unit = 0;
        CharFormat character;
        RichObject object; ///< what character.object stands for
        ParaFormat paragraph;
    };
    std::vector<Position> positions;
    CharFormat tailCharacter; ///< of an empty last paragraph
    ParaFormat tailParagraph;

    QString text() const;
    qsizetype size() const { return static_cast<qsizetype>(positions.size()); }
    bool lastIsEmpty() const { return positions.empty() || positions.back().unit == u'\n'; }
    std::pair<qsizetype, qsizetype> changeRange(qsizetype position, qsizetype length) const;
    ParaFormat paragraphAt(qsizetype position) const;

    void append(const QString& text, const CharFormat& character, const ParaFormat& paragraph);
    void setTail(const CharFormat& character, const ParaFormat& paragraph);
    qsizetype replace(qsizetype position, qsizetype length, const QString& text);
    qsizetype replace(qsizetype position, qsizetype length, const NaiveText& other);
    void changeCharacters(qsizetype position, qsizetype length, const CharChange& change);
    void changeParagraphs(qsizetype position, qsizetype length, const ParaChange& change);
    NaiveText copy(qsizetype position, qsizetype length) const;

private:
    CharFormat newFormat(qsizetype position, qsizetype removed) const;
    void splice(qsizetype position, qsizetype removed, const std::vector<Position>& added, const CharFormat& character);
    /// Gives every position of a paragraph the format of its last one.
    void spread();
};

/// Nothing when both hold the same, else the first difference in words.
QString difference(const RichText& text, const NaiveText& naive);

} // namespace velm::test
