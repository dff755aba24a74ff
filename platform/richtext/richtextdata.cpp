#include "platform/richtext/richtextdata.h"

#include "platform/richtext/idmap.h"

namespace velm {

qsizetype RichTextData::indexOf(char16_t unit, qsizetype from) const {
    if (from < text.firstSize()) {
        const qsizetype hit = first().indexOf(QChar(unit), from);
        if (hit >= 0)
            return hit;
        from = text.firstSize();
    }
    const qsizetype hit = second().indexOf(QChar(unit), from - text.firstSize());
    return hit < 0 ? -1 : text.firstSize() + hit;
}

qsizetype RichTextData::paragraphEnd(qsizetype position) const {
    if (position >= knownFrom && position < knownEnd)
        return knownEnd;
    const qsizetype lineFeed = indexOf(u'\n', position);
    return lineFeed < 0 ? length() : lineFeed + 1;
}

FormatId RichTextData::paragraphAt(qsizetype position) const {
    return position < length() ? paragraphs[paragraphEnd(position) - 1] : lastParagraph();
}

char16_t* RichTextData::splice(qsizetype position, qsizetype removed, qsizetype added, FormatId character) {
    std::fill_n(characters.replace(position, removed, added), added, character);
    std::fill_n(paragraphs.replace(position, removed, added), added, FormatId{0});
    ++revision;
    return text.replace(position, removed, added);
}

void RichTextData::moveKnown(qsizetype position, qsizetype removed, qsizetype added, qsizetype tailAdded) {
    if (knownEnd <= knownFrom)
        return;
    const bool terminated = text[knownEnd - 1] == u'\n';
    const qsizetype contentEnd = terminated ? knownEnd - 2 : knownEnd;
    const qsizetype end = position + removed;
    if (position >= knownEnd && terminated)
        return;
    if (end > contentEnd && end > knownFrom) {
        knownFrom = knownEnd = 0;
        return;
    }
    knownEnd += added - removed;
    if (position < knownFrom)
        knownFrom = std::max(end, knownFrom) + added - removed;
    else if (tailAdded >= 0)
        knownFrom = position + added - tailAdded;
}

qsizetype RichTextData::learnParagraphEnd(qsizetype position) {
    const qsizetype end = paragraphEnd(position);
    if (position >= knownFrom && position < knownEnd)
        return end;
    waysOutside += end - position;
    if (waysOutside >= knownEnd - knownFrom) {
        knownFrom = position;
        knownEnd = end;
        waysOutside = 0;
    }
    return end;
}

void RichTextData::closeEnd(FormatId character, FormatId paragraph) {
    if (lastIsEmpty()) {
        tailCharacter = character;
        tailParagraph = paragraph;
    } else {
        paragraphs[length() - 1] = paragraph;
    }
}

FormatId RichTextData::newTextFormat(qsizetype position, qsizetype removed) {
    FormatId id = tailCharacter;
    if (removed > 0 || (atParagraphStart(position) && position < length()))
        id = characters[position];
    else if (!atParagraphStart(position))
        id = characters[position - 1];
    if (charFormats[id].object < 0)
        return id;
    CharFormat format = charFormats[id];
    format.object = -1;
    return charFormats.intern(format);
}

void RichTextData::paste(qsizetype position, qsizetype removed, const RichTextData& from, qsizetype start,
                         qsizetype count) {
    QHash<std::int32_t, std::int32_t> objectMap;
    IdMap charMap([&](FormatId id) {
        CharFormat format = from.charFormats[id];
        const auto index = static_cast<std::size_t>(format.object);
        if (format.object >= 0 && index < from.objects.size()) {
            if (!objectMap.contains(format.object)) {
                objectMap.insert(format.object, static_cast<std::int32_t>(objects.size()));
                objects.push_back(from.objects[index]);
            }
            format.object = objectMap.value(format.object);
        }
        return charFormats.intern(format);
    });
    IdMap paraMap([&](FormatId id) { return paraFormats.intern(from.paraFormats[id]); });

    // The last line end tells how far the new text reaches into the paragraph behind it.
    qsizetype tail = -1;
    for (qsizetype i = count - 1; i >= 0 && tail < 0; --i)
        tail = from.text[start + i] == u'\n' ? count - i - 1 : -1;
    moveKnown(position, removed, count, tail);

    char16_t* units = splice(position, removed, count, 0);
    from.text.pieces(start, count,
                     [&units](const char16_t* piece, qsizetype size) { units = std::copy_n(piece, size, units); });
    // What was just put in lies in one piece.
    FormatId* formats = count > 0 ? &characters[position] : nullptr;
    from.characters.pieces(start, count, [&](const FormatId* ids, qsizetype size) {
        formats = std::transform(ids, ids + size, formats, std::ref(charMap));
    });
    for (qsizetype i = indexOf(u'\n', position); i >= 0 && i < position + count; i = indexOf(u'\n', i + 1))
        paragraphs[i] = paraMap(from.paragraphs[start + i - position]);
}

} // namespace velm
