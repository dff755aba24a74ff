#include "richtext_naive.h"

#include <algorithm>

namespace velm::test {
namespace {

std::size_t at(qsizetype position) {
    return static_cast<std::size_t>(position);
}

bool isPair(const std::vector<NaiveText::Position>& positions, qsizetype position) {
    return position > 0 && position < static_cast<qsizetype>(positions.size()) &&
           positions[at(position)].unit == u'\n' && positions[at(position - 1)].unit == u'\r';
}

QString normalised(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    return text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
}

bool sameButForObject(CharFormat a, const CharFormat& b) {
    a.object = b.object;
    return a == b;
}

} // namespace

QString NaiveText::text() const {
    QString result;
    for (const Position& position : positions)
        result += QChar(position.unit);
    return result;
}

std::pair<qsizetype, qsizetype> NaiveText::changeRange(qsizetype position, qsizetype length) const {
    qsizetype start = std::clamp<qsizetype>(position, 0, size());
    const qsizetype count = std::clamp<qsizetype>(length, 0, size() - start);
    qsizetype end = start + count;
    if (isPair(positions, start))
        --start;
    if (count == 0)
        return {start, 0};
    if (isPair(positions, end))
        ++end;
    return {start, end - start};
}

ParaFormat NaiveText::paragraphAt(qsizetype position) const {
    if (position < size())
        return positions[at(position)].paragraph;
    return lastIsEmpty() ? tailParagraph : positions.back().paragraph;
}

CharFormat NaiveText::newFormat(qsizetype position, qsizetype removed) const {
    CharFormat format = tailCharacter;
    const bool starts = position == 0 || positions[at(position - 1)].unit == u'\n';
    const qsizetype source = removed > 0 || starts ? position : position - 1;
    if (source < size())
        format = positions[at(source)].character;
    format.object = -1;
    return format;
}

void NaiveText::spread() {
    for (qsizetype i = size() - 2; i >= 0; --i) {
        Position& here = positions[at(i)];
        const Position& next = positions[at(i + 1)];
        if (here.unit != u'\n' && !(here.paragraph == next.paragraph))
            here.paragraph = next.paragraph;
    }
}

void NaiveText::splice(qsizetype position, qsizetype removed, const std::vector<Position>& added,
                       const CharFormat& character) {
    const bool atEnd = position + removed == size();
    const ParaFormat last = paragraphAt(size());
    positions.erase(positions.begin() + position, positions.begin() + position + removed);
    positions.insert(positions.begin() + position, added.begin(), added.end());
    if (atEnd && lastIsEmpty()) {
        tailCharacter = character;
        tailParagraph = last;
    } else if (atEnd) {
        positions.back().paragraph = last;
    }
    spread();
}

void NaiveText::append(const QString& text, const CharFormat& character, const ParaFormat& paragraph) {
    for (const QChar c : text)
        positions.push_back({c.unicode(), character, {}, paragraph});
    if (!text.isEmpty()) {
        tailCharacter = character;
        tailParagraph = paragraph;
    }
    spread();
}

void NaiveText::setTail(const CharFormat& character, const ParaFormat& paragraph) {
    if (lastIsEmpty()) {
        tailCharacter = character;
        tailParagraph = paragraph;
    }
}

qsizetype NaiveText::replace(qsizetype position, qsizetype length, const QString& text) {
    const auto [start, removed] = changeRange(position, length);
    if (removed == 0 && text.isEmpty())
        return 0;
    const CharFormat character = newFormat(start, removed);
    const ParaFormat paragraph = paragraphAt(start + removed);
    std::vector<Position> added;
    for (const QChar c : normalised(text))
        added.push_back({c.unicode(), character, {}, paragraph});
    splice(start, removed, added, character);
    return static_cast<qsizetype>(added.size());
}

qsizetype NaiveText::replace(qsizetype position, qsizetype length, const NaiveText& other) {
    const auto [start, removed] = changeRange(position, length);
    if (removed == 0 && other.positions.empty())
        return 0;
    const std::vector<Position> added = other.positions;
    splice(start, removed, added, newFormat(start, removed));
    return static_cast<qsizetype>(added.size());
}

void NaiveText::changeCharacters(qsizetype position, qsizetype length, const CharChange& change) {
    const qsizetype start = std::clamp<qsizetype>(position, 0, size());
    const qsizetype end = start + std::clamp<qsizetype>(length, 0, size() - start);
    for (qsizetype i = start; i < end; ++i) {
        CharFormat& format = positions[at(i)].character;
        const CharFormat old = format;
        format = change.values;
        format.object = old.object;
        if (!(change.mask & CharChange::Family))
            format.family = old.family;
        if (!(change.mask & CharChange::Size))
            format.size = old.size;
        if (!(change.mask & CharChange::Bold))
            format.bold = old.bold;
        if (!(change.mask & CharChange::Italic))
            format.italic = old.italic;
        if (!(change.mask & CharChange::Underline))
            format.underline = old.underline;
        if (!(change.mask & CharChange::Strike))
            format.strike = old.strike;
        if (!(change.mask & CharChange::Hidden))
            format.hidden = old.hidden;
        if (!(change.mask & CharChange::Offset))
            format.offset = old.offset;
        if (!(change.mask & CharChange::Colour))
            format.colour = old.colour;
        if (!(change.mask & CharChange::Background))
            format.background = old.background;
    }
}

void NaiveText::changeParagraphs(qsizetype position, qsizetype length, const ParaChange& change) {
    const qsizetype start = std::clamp<qsizetype>(position, 0, size());
    const qsizetype end = start + std::clamp<qsizetype>(length, 0, size() - start);
    const auto apply = [&change](ParaFormat& format) {
        const ParaFormat old = format;
        format = change.values;
        if (!(change.mask & ParaChange::Align))
            format.alignment = old.alignment;
        if (!(change.mask & ParaChange::Start))
            format.startIndent = old.startIndent;
        if (!(change.mask & ParaChange::OffsetLines))
            format.offset = old.offset;
        if (!(change.mask & ParaChange::Right))
            format.rightIndent = old.rightIndent;
        if (!(change.mask & ParaChange::Bullet))
            format.bullet = old.bullet;
        if (!(change.mask & ParaChange::Tabs))
            format.tabs = old.tabs;
        if (!(change.mask & ParaChange::Before))
            format.spaceBefore = old.spaceBefore;
        if (!(change.mask & ParaChange::After))
            format.spaceAfter = old.spaceAfter;
        if (!(change.mask & ParaChange::Spacing)) {
            format.lineSpacing = old.lineSpacing;
            format.lineMultiple = old.lineMultiple;
        }
    };
    // The paragraphs by their bounds [first, behind), the last without a line end, perhaps empty.
    qsizetype first = 0;
    for (qsizetype i = 0; i <= size(); ++i) {
        const bool closes = i == size() || positions[at(i)].unit == u'\n';
        if (!closes)
            continue;
        const qsizetype behind = i == size() ? i : i + 1;
        const bool holdsStart = start >= first && (start < behind || (start == size() && i == size()));
        const bool touched = holdsStart || (first >= start && first < end);
        if (touched && i == size() && lastIsEmpty())
            apply(tailParagraph);
        else if (touched)
            apply(positions[at(behind - 1)].paragraph);
        first = behind;
    }
    spread();
}

NaiveText NaiveText::copy(qsizetype position, qsizetype length) const {
    const auto [start, count] = changeRange(position, length);
    NaiveText result;
    result.positions.assign(positions.begin() + start, positions.begin() + start + count);
    if (count == 0) {
        result.tailCharacter = newFormat(start, 0);
        result.tailParagraph = paragraphAt(start);
    } else if (start + count == size() && lastIsEmpty()) {
        result.tailCharacter = tailCharacter;
        result.tailParagraph = tailParagraph;
    } else {
        result.tailCharacter = positions[at(start + count - 1)].character;
        result.tailCharacter.object = -1;
        result.tailParagraph = positions[at(start + count - 1)].paragraph;
    }
    return result;
}

QString difference(const RichText& text, const NaiveText& naive) {
    if (text.text() != naive.text())
        return QStringLiteral("text: ") + text.text() + QStringLiteral(" / ") + naive.text();
    for (qsizetype i = 0; i < naive.size(); ++i) {
        const NaiveText::Position& expected = naive.positions[at(i)];
        const CharFormat& character = text.charFormatAt(i);
        if (character.object >= 0 && !(text.objects()[at(character.object)] == expected.object))
            return QStringLiteral("object at %1").arg(i);
        if ((character.object >= 0) != (expected.character.object >= 0))
            return QStringLiteral("no object at %1").arg(i);
        if (character.object < 0 ? !(character == expected.character)
                                 : !sameButForObject(character, expected.character))
            return QStringLiteral("character format at %1").arg(i);
        if (!(text.paraFormatAt(i) == expected.paragraph))
            return QStringLiteral("paragraph format at %1").arg(i);
    }
    if (!(text.paraFormatAt(naive.size()) == naive.paragraphAt(naive.size())))
        return QStringLiteral("paragraph format of the end");
    if (naive.lastIsEmpty() && !(text.charFormat(text.tailCharacter()) == naive.tailCharacter))
        return QStringLiteral("character format of the tail");
    return {};
}

} // namespace velm::test
