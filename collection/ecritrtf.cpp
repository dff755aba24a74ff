#include "collection/ecritrtf.h"

#include "platform/text/ansi.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace velm {
namespace {

/// The longest form of one unit: \u-12345?
constexpr qsizetype octetsparunite = 9;
constexpr qsizetype margedunombre = 12;

constexpr char chiffrehexa(unsigned valeur) {
    return "0123456789abcdef"[valeur & 15U];
}

char* octet(char* vers, unsigned char valeur) {
    *vers++ = '\\';
    *vers++ = '\'';
    *vers++ = chiffrehexa(valeur >> 4U);
    *vers++ = chiffrehexa(valeur);
    return vers;
}

char* horsascii(char* vers, char16_t unite) {
    if (const auto valeur = ansi::fromUnicode(unite))
        return octet(vers, *valeur);
    *vers++ = '\\';
    *vers++ = 'u';
    vers = std::to_chars(vers, vers + 6, static_cast<int>(static_cast<qint16>(unite))).ptr;
    *vers++ = '?';
    return vers;
}

char* ascii(char* vers, char16_t unite) {
    if (unite == u'\\' || unite == u'{' || unite == u'}')
        *vers++ = '\\';
    if (unite == u'\t') {
        for (const char c : {'\\', 't', 'a', 'b', ' '})
            *vers++ = c;
        return vers;
    }
    *vers++ = unite < 0x20 ? ' ' : static_cast<char>(unite);
    return vers;
}

} // namespace

char* EcritRtf::place(qsizetype octets) {
    if (tampon_.size() - taille_ < octets)
        tampon_.resize(std::max(2 * tampon_.size(), taille_ + octets));
    return tampon_.data() + taille_;
}

void EcritRtf::commande(QByteArrayView mots) {
    std::copy(mots.begin(), mots.end(), place(mots.size()));
    taille_ += mots.size();
}

void EcritRtf::nombre(QByteArrayView mot, int valeur) {
    commande(mot);
    char* vers = place(margedunombre);
    taille_ += std::to_chars(vers, vers + margedunombre, valeur).ptr - vers;
}

void EcritRtf::texte(QStringView texte) {
    char* const debut = place(octetsparunite * texte.size());
    char* vers = debut;
    for (const QChar c : texte) {
        const char16_t unite = c.unicode();
        vers = unite < 0x80 ? ascii(vers, unite) : horsascii(vers, unite);
    }
    taille_ += vers - debut;
}

QByteArray septbits(const QByteArray& rtf) {
    const auto hors = [](char c) { return static_cast<signed char>(c) < 0 || c == 0; };
    const auto n = std::count_if(rtf.begin(), rtf.end(), hors);
    if (n == 0)
        return rtf;
    if (rtf.contains("\\bin"))
        return {};
    QByteArray resultat(rtf.size() + 3 * n, Qt::Uninitialized);
    char* vers = resultat.data();
    for (const char c : rtf) {
        if (c == 0)
            *vers++ = ' ';
        else if (hors(c))
            vers = octet(vers, static_cast<unsigned char>(c));
        else
            *vers++ = c;
    }
    resultat.truncate(vers - resultat.constData());
    return resultat;
}

} // namespace velm
