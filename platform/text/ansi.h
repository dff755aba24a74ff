#pragma once
// The Windows-1252 code page. The five undefined positions (81 8D 8F 90 9D) map to the characters of the same value, so
// that every byte string survives the way there and back.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>

namespace velm::ansi {

/// Every byte gives exactly one UTF-16 unit.
QString decode(QByteArrayView bytes);

/// What the code page cannot hold becomes `substitute` (one per code point).
QByteArray encode(QStringView text, char substitute = '?');

/// What the code page cannot hold is written by the nearest that it can: a letter without its accent, a sign by signs
/// that look like it; '?' for what has no such thing.
QByteArray encodeReadable(QStringView text);

/// A file's text: UTF-8 when it begins with the UTF-8 mark (which is dropped; invalid sequences become U+FFFD),
/// otherwise Windows-1252.
QString decodeFile(QByteArrayView bytes);

/// The byte of one character if the code page has it.
std::optional<unsigned char> fromUnicode(char16_t unit);

} // namespace velm::ansi
