#pragma once
// Letter case and key order.
#include <QByteArray>
#include <QString>
#include <QStringView>

namespace velm {

/// Upper case unit by unit, accents kept; the result has the length of the argument (ß and ŉ stay as they are,
/// and so do µ and ƒ, whose capitals the code page does not have).
QString upperCase(QStringView text);

/// The same of one unit.
char16_t upperUnit(char16_t unit);

/// Lower case unit by unit, accents kept, same length.
QString lowerCase(QStringView text);

/// The word folding of the dictionary: upper case; é è ê ë become E, ã à â ä A, î ï I, ô õ O, û ù U, ñ N, ç C (both
/// cases). Characters up to "z" are upper-cased; any other character that is not in this list stays as it is: ö, ü, ÿ,
/// æ and œ keep their case too. The result has the length of the argument.
QString normalisemot(QStringView word);

/// The stored order of text keys: bytes that compare (memcmp) first by normalisemot(upperCase(text)), then, behind a
/// separator, by the upper-cased text with its accents (left out when it has none: that text comes first anyway). Texts
/// that differ only in case have equal keys, all others different ones. All texts that share a folded prefix stand side
/// by side.
QByteArray sortKey(QStringView text);

/// The part of sortKey() that all texts with this folded prefix begin with.
QByteArray sortKeyPrefix(QStringView prefix);

} // namespace velm
