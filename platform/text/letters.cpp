#include "platform/text/letters.h"

#include <array>
#include <string_view>

namespace velm {
namespace {

/// Units below this bound are looked up in tables: all of French, Western and Central European letters.
constexpr char16_t tableSize = 0x180;

struct Folding {
    std::u16string_view letters;
    char16_t becomes;
};
/// Exactly these letters lose their accents, and no others.
constexpr std::array<Folding, 7> foldings = {{
    {u"éèêëÉÈÊË", u'E'},
    {u"ãÃàâäÀÂÄ", u'A'},
    {u"îïÎÏ", u'I'},
    {u"ôÔõÕ", u'O'},
    {u"ûùÙÛ", u'U'},
    {u"ñÑ", u'N'},
    {u"çÇ", u'C'},
}};

constexpr std::array<char16_t, 256> foldTable() {
    std::array<char16_t, 256> table{};
    for (unsigned i = 0; i < 256; ++i)
        table[i] = static_cast<char16_t>(i >= u'a' && i <= u'z' ? i - 0x20 : i);
    for (const Folding& folding : foldings) {
        for (const char16_t letter : folding.letters)
            table[letter] = folding.becomes;
    }
    return table;
}
constexpr std::array<char16_t, 256> folded = foldTable();

constexpr char16_t fold(char16_t unit) {
    return unit < folded.size() ? folded[unit] : unit;
}

/// µ and ƒ are the two characters of the code page whose capitals it does not have: they have none here.
char16_t capital(char16_t unit) {
    if (unit == u'µ' || unit == u'ƒ')
        return unit;
    return QChar::toUpper(unit) > 0xFFFF ? unit : static_cast<char16_t>(QChar::toUpper(unit));
}

char16_t small(char16_t unit) {
    return static_cast<char16_t>(QChar::toLower(unit));
}

using Table = std::array<char16_t, tableSize>;
Table tableOf(char16_t (*of)(char16_t)) {
    Table table{};
    for (char16_t i = 0; i < tableSize; ++i)
        table[i] = of(i);
    return table;
}

/// Fetched once for each text, not for each of its units.
const Table& upperTable() {
    static const Table table = tableOf(capital);
    return table;
}

const Table& lowerTable() {
    static const Table table = tableOf(small);
    return table;
}

char16_t upper(const Table& table, char16_t unit) {
    return unit < tableSize ? table[unit] : capital(unit);
}

template <typename Map>
QString mapped(QStringView text, Map map) {
    QString result(text.size(), Qt::Uninitialized);
    QChar* to = result.data();
    for (const QChar c : text)
        *to++ = QChar(map(c.unicode()));
    return result;
}

/// Writes one unit as one to three bytes. Bytes compare as the units do, and no unit's bytes begin another's: so a
/// prefix of a text gives a prefix of its key. Surrogates are written each by itself.
char* appendUnit(char* to, char16_t unit) {
    const unsigned u = unit;
    if (u < 0x80) {
        *to++ = static_cast<char>(u);
    } else if (u < 0x800) {
        *to++ = static_cast<char>(0xC0 | (u >> 6));
        *to++ = static_cast<char>(0x80 | (u & 0x3F));
    } else {
        *to++ = static_cast<char>(0xE0 | (u >> 12));
        *to++ = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        *to++ = static_cast<char>(0x80 | (u & 0x3F));
    }
    return to;
}

constexpr qsizetype bytesPerUnit = 3;

} // namespace

char16_t upperUnit(char16_t unit) {
    return upper(upperTable(), unit);
}

QString upperCase(QStringView text) {
    return mapped(text, [&table = upperTable()](char16_t unit) { return upper(table, unit); });
}

QString lowerCase(QStringView text) {
    return mapped(text,
                  [&table = lowerTable()](char16_t unit) { return unit < tableSize ? table[unit] : small(unit); });
}

QString normalisemot(QStringView word) {
    return mapped(word, fold);
}

QByteArray sortKey(QStringView text) {
    const Table& table = upperTable();
    QByteArray key(bytesPerUnit * 2 * text.size() + 1, Qt::Uninitialized);
    char* const begin = key.data();
    char* to = begin;
    bool accents = false;
    for (const QChar c : text) {
        const char16_t unit = upper(table, c.unicode());
        const char16_t letter = fold(unit);
        accents = accents || letter != unit;
        to = appendUnit(to, letter);
    }
    *to++ = '\0';
    // A text without accents comes first among its equals with or without the second level.
    if (accents) {
        for (const QChar c : text)
            to = appendUnit(to, upper(table, c.unicode()));
    }
    key.truncate(to - begin);
    return key;
}

QByteArray sortKeyPrefix(QStringView prefix) {
    const Table& table = upperTable();
    QByteArray key(bytesPerUnit * prefix.size(), Qt::Uninitialized);
    char* const begin = key.data();
    char* to = begin;
    for (const QChar c : prefix)
        to = appendUnit(to, fold(upper(table, c.unicode())));
    key.truncate(to - begin);
    return key;
}

} // namespace velm
