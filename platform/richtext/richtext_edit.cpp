#include "platform/richtext/formatchange.h"
#include "platform/richtext/richtextdata.h"

#include <optional>

namespace velm {
namespace {

struct LineEnds {
    bool clean = true;     ///< all are CR LF; if not, the other member means nothing
    qsizetype behind = -1; ///< units behind the last one; -1: there is none
};

LineEnds lineEnds(QStringView text) {
    LineEnds result;
    for (qsizetype i = 0; (i = text.indexOf(u'\n', i)) >= 0; ++i) {
        result.clean = result.clean && i > 0 && text[i - 1] == u'\r';
        result.behind = text.size() - i - 1;
    }
    for (qsizetype i = 0; result.clean && (i = text.indexOf(u'\r', i)) >= 0; ++i)
        result.clean = i + 1 < text.size() && text[i + 1] == u'\n';
    return result;
}

QString withCleanLineEnds(QStringView text) {
    QString result;
    result.reserve(text.size() + text.size() / 8 + 2);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit != u'\r' && unit != u'\n') {
            result.append(unit);
            continue;
        }
        result.append(u"\r\n");
        if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
    }
    return result;
}

/// Remembers what a function gave for each id, the last one at hand.
template <typename Make>
class IdMap {
public:
    explicit IdMap(Make make) : make_(std::move(make)) {}
    FormatId operator()(FormatId id) {
        if (!last_ || last_->first != id) {
            auto found = ids_.constFind(id);
            if (found == ids_.constEnd())
                found = ids_.insert(id, make_(id));
            last_ = {id, *found};
        }
        return last_->second;
    }

private:
    Make make_;
    QHash<FormatId, FormatId> ids_;
    std::optional<std::pair<FormatId, FormatId>> last_;
};

} // namespace

// ---- the data

char16_t* RichText::Private::splice(qsizetype position, qsizetype removed, qsizetype added, FormatId character) {
    std::fill_n(characters.replace(position, removed, added), added, character);
    std::fill_n(paragraphs.replace(position, removed, added), added, FormatId{0});
    ++revision;
    return text.replace(position, removed, added);
}

void RichText::Private::moveKnown(qsizetype position, qsizetype removed, qsizetype added, qsizetype tailAdded) {
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

qsizetype RichText::Private::learnParagraphEnd(qsizetype position) {
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

void RichText::Private::closeEnd(FormatId character, FormatId paragraph) {
    if (lastIsEmpty()) {
        tailCharacter = character;
        tailParagraph = paragraph;
    } else {
        paragraphs[length() - 1] = paragraph;
    }
}

FormatId RichText::Private::newTextFormat(qsizetype position, qsizetype removed) {
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

void RichText::Private::paste(qsizetype position, qsizetype removed, const Private& from, qsizetype start,
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

// ---- writing

void RichText::clear() {
    const quint64 revision = d_->revision + 1;
    *d_ = Private();
    d_->revision = revision;
}

FormatId RichText::intern(const CharFormat& format) {
    return d_->charFormats.intern(format);
}

FormatId RichText::intern(const ParaFormat& format) {
    return d_->paraFormats.intern(format);
}

int RichText::addObject(RichObject object) {
    d_->objects.push_back(std::move(object));
    return static_cast<int>(d_->objects.size() - 1);
}

void RichText::append(QStringView text, FormatId character, FormatId paragraph) {
    if (text.isEmpty())
        return;
    const LineEnds ends = lineEnds(text);
    if (!ends.clean || d_->text.owns(text.utf16())) {
        const QString clean = withCleanLineEnds(text);
        append(clean, character, paragraph);
        return;
    }
    const qsizetype position = length();
    d_->moveKnown(position, 0, text.size(), ends.behind);
    std::copy_n(text.utf16(), text.size(), d_->splice(position, 0, text.size(), character));
    if (ends.behind >= 0)
        d_->paragraphs.pieces(position, text.size(),
                              [paragraph](FormatId* ids, qsizetype size) { std::fill_n(ids, size, paragraph); });
    d_->closeEnd(character, paragraph);
}

void RichText::setTail(FormatId character, FormatId paragraph) {
    if (!d_->lastIsEmpty())
        return;
    d_->tailCharacter = character;
    d_->tailParagraph = paragraph;
    ++d_->revision;
}

qsizetype RichText::replace(qsizetype position, qsizetype length, QStringView text) {
    const auto [start, removed] = changeRange(position, length);
    if (removed == 0 && text.isEmpty())
        return 0;
    const LineEnds ends = lineEnds(text);
    if (!ends.clean || d_->text.owns(text.utf16())) {
        const QString clean = withCleanLineEnds(text);
        return replace(position, length, clean);
    }
    const bool atEnd = start + removed == d_->length();
    const bool split = ends.behind >= 0;
    const FormatId character = d_->newTextFormat(start, removed);
    FormatId paragraph = 0;
    if (atEnd)
        paragraph = d_->lastParagraph();
    else if (split)
        paragraph = d_->paragraphs[d_->learnParagraphEnd(start + removed) - 1];
    d_->moveKnown(start, removed, text.size(), ends.behind);
    std::copy_n(text.utf16(), text.size(), d_->splice(start, removed, text.size(), character));
    if (split)
        d_->paragraphs.pieces(start, text.size(),
                              [paragraph](FormatId* ids, qsizetype size) { std::fill_n(ids, size, paragraph); });
    if (atEnd)
        d_->closeEnd(character, paragraph);
    return text.size();
}

qsizetype RichText::replace(qsizetype position, qsizetype length, const RichText& other) {
    if (&other == this)
        return replace(position, length, copy(0, this->length()));
    const auto [start, removed] = changeRange(position, length);
    const qsizetype added = other.length();
    if (removed == 0 && added == 0)
        return 0;
    const bool atEnd = start + removed == d_->length();
    const FormatId character = d_->newTextFormat(start, removed);
    const FormatId paragraph = atEnd ? d_->lastParagraph() : FormatId{0};
    d_->paste(start, removed, *other.d_, 0, added);
    if (atEnd)
        d_->closeEnd(character, paragraph);
    return added;
}

void RichText::remove(qsizetype position, qsizetype length) {
    replace(position, length, QStringView());
}

RichText RichText::copy(qsizetype position, qsizetype length) const {
    const auto [start, count] = changeRange(position, length);
    RichText result;
    Private& to = *result.d_;
    to.paste(0, 0, *d_, start, count);
    const qsizetype end = start + count;
    const bool whole = end == d_->length();
    // What closes the part: its last position, or where nothing is taken, what would be inserted there.
    const FormatId paragraph = whole || count == 0 ? d_->paragraphAt(end) : d_->paragraphAt(end - 1);
    CharFormat character = count == 0 ? insertionFormat(start) : charFormatAt(whole ? end : end - 1);
    character.object = -1;
    to.closeEnd(to.charFormats.intern(character), to.paraFormats.intern(d_->paraFormats[paragraph]));
    return result;
}

void RichText::changeCharacters(qsizetype position, qsizetype length, const CharChange& change) {
    const auto [start, count] = clampedRange(position, length, d_->length());
    if (count == 0 || change.mask == 0)
        return;
    IdMap changed([this, &change](FormatId id) {
        CharFormat format = d_->charFormats[id];
        apply(change, format);
        return d_->charFormats.intern(format);
    });
    d_->characters.pieces(start, count, [&changed](FormatId* ids, qsizetype size) {
        for (qsizetype i = 0; i < size; ++i)
            ids[i] = changed(ids[i]);
    });
    ++d_->revision;
}

void RichText::changeParagraphs(qsizetype position, qsizetype length, const ParaChange& change) {
    if (change.mask == 0)
        return;
    const auto [start, count] = clampedRange(position, length, d_->length());
    ParaChange ordered = change;
    ordered.values.tabs = orderedTabs(std::move(ordered.values.tabs));
    IdMap changed([this, &ordered](FormatId id) {
        ParaFormat format = d_->paraFormats[id];
        apply(ordered, format);
        return d_->paraFormats.intern(format);
    });
    qsizetype from = start;
    do {
        const qsizetype end = d_->learnParagraphEnd(from);
        if (end > from) {
            d_->paragraphs[end - 1] = changed(d_->paragraphs[end - 1]);
        } else {
            d_->closeEnd(d_->tailCharacter, changed(d_->lastParagraph()));
        }
        from = end;
    } while (from < start + count);
    ++d_->revision;
}

} // namespace velm
