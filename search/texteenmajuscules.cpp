#include "search/texteenmajuscules.h"

#include "platform/text/letters.h"

#include <array>

namespace velm {

namespace {

constexpr unsigned finascii = 0x80;
constexpr unsigned findeuxoctets = 0x800;

using TableDeLettres = std::array<char16_t, findeuxoctets>;

const TableDeLettres& capitales() {
    static const TableDeLettres table = [] {
        TableDeLettres faite{};
        for (char16_t unite = 0; unite < findeuxoctets; ++unite)
            faite[unite] = upperUnit(unite);
        return faite;
    }();
    return table;
}

bool suite(unsigned octet) {
    return (octet & 0xC0U) == 0x80U;
}

} // namespace

TexteEnMajuscules::TexteEnMajuscules(QStringView texte) : texte_(upperCase(texte)) {}

/// Reads what is up to three bytes long and sound; anything else is left to the ordinary way.
bool TexteEnMajuscules::majuscules(QByteArrayView utf8) {
    const TableDeLettres& table = capitales();
    const auto taille = static_cast<std::size_t>(utf8.size());
    if (tampon_.size() < taille)
        tampon_.resize(taille);
    const auto* lu = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* const fin = lu + taille;
    char16_t* ecrit = tampon_.data();
    while (lu != fin) {
        const unsigned premier = *lu;
        if (premier < finascii) {
            *ecrit++ = table[premier];
            ++lu;
        } else if (premier >= 0xC2 && premier < 0xE0 && fin - lu > 1 && suite(lu[1])) {
            *ecrit++ = table[(premier & 0x1FU) << 6 | (lu[1] & 0x3FU)];
            lu += 2;
        } else if (premier >= 0xE0 && premier < 0xF0 && fin - lu > 2 && suite(lu[1]) && suite(lu[2])) {
            const unsigned unite = (premier & 0x0FU) << 12 | (lu[1] & 0x3FU) << 6 | (lu[2] & 0x3FU);
            if (unite < findeuxoctets || (unite >= 0xD800 && unite < 0xE000))
                return false;
            *ecrit++ = upperUnit(static_cast<char16_t>(unite));
            lu += 3;
        } else {
            return false;
        }
    }
    tampon_.resize(static_cast<std::size_t>(ecrit - tampon_.data()));
    return true;
}

bool TexteEnMajuscules::estdans(QByteArrayView utf8) {
    if (texte_.isEmpty())
        return true;
    if (utf8.size() < texte_.size())
        return false;
    if (!majuscules(utf8))
        return estdans(QStringView(QString::fromUtf8(utf8)));
    return QStringView(tampon_).contains(texte_);
}

bool TexteEnMajuscules::estdans(QStringView texte) const {
    return upperCase(texte).contains(texte_);
}

} // namespace velm
