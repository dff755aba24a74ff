#pragma once
// What the formats of a range have in common.
#include "platform/richtext/richtext.h"

#include <optional>

namespace velm {

/// What `get` gives for all characters of a range; nothing when they differ, or when there are none.
template <typename T, typename Get>
std::optional<T> commonOfCharacters(const RichText& text, qsizetype position, qsizetype length, Get get) {
    std::optional<T> value;
    bool mixed = false;
    text.forEachRun(position, length, [&](qsizetype, qsizetype, FormatId id) {
        const T here = get(text.charFormat(id));
        mixed = mixed || (value && *value != here);
        value = here;
    });
    return mixed ? std::nullopt : value;
}

/// The same for the paragraphs that a range touches; an empty range touches one.
template <typename T, typename Get>
std::optional<T> commonOfParagraphs(const RichText& text, qsizetype position, qsizetype length, Get get) {
    const T value = get(text.paraFormatAt(position));
    for (qsizetype next = text.paragraphEnd(position); next < position + length; next = text.paragraphEnd(next)) {
        if (get(text.paraFormatAt(next)) != value)
            return std::nullopt;
    }
    return value;
}

} // namespace velm
