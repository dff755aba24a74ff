#include "collection/json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace velm {
namespace {

/// Deeper values than this are no source of ours; the bound keeps passe() from running out of stack.
constexpr int profondeurpermise = 64;
constexpr qsizetype longueurcitee = 24;

/// Bytes that stand for themselves inside a string.
constexpr std::array<bool, 256> ordinaire = [] {
    std::array<bool, 256> table{};
    for (std::size_t c = 0x20; c < 0x80; ++c)
        table[c] = c != '"' && c != '\\';
    return table;
}();

bool chiffre(char c) {
    return c >= '0' && c <= '9';
}

bool suitutf8(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

unsigned bits(char c) {
    return static_cast<unsigned char>(c) & 0x3FU;
}

void ajoute(QChar*& vers, unsigned code) {
    if (code < 0x10000) {
        *vers++ = QChar(static_cast<char16_t>(code == 0 ? ' ' : code));
    } else {
        *vers++ = QChar(QChar::highSurrogate(code));
        *vers++ = QChar(QChar::lowSurrogate(code));
    }
}

} // namespace

LecteurJson::LecteurJson(QByteArrayView ligne) : debut_(ligne.data()), p_(ligne.data()), fin_(ligne.end()) {}

bool LecteurJson::faute(Erreur erreur) {
    if (juste())
        erreur_ = erreur;
    return false;
}

void LecteurJson::blancs() {
    while (p_ != fin_ && (*p_ == ' ' || *p_ == '\t' || *p_ == '\n' || *p_ == '\r'))
        ++p_;
}

LecteurJson::Genre LecteurJson::genre() {
    if (!juste())
        return Genre::Inconnu;
    blancs();
    if (p_ == fin_)
        return Genre::Fin;
    switch (*p_) {
    case '"':
        return Genre::Texte;
    case '{':
        return Genre::Objet;
    case '[':
        return Genre::Tableau;
    case 'n':
        return Genre::Nul;
    case 't':
    case 'f':
        return Genre::Booleen;
    default:
        return *p_ == '-' || chiffre(*p_) ? Genre::Nombre : Genre::Inconnu;
    }
}

bool LecteurJson::attend(char c) {
    if (!juste())
        return false;
    blancs();
    if (p_ == fin_ || *p_ != c)
        return faute();
    ++p_;
    return true;
}

bool LecteurJson::ouvre(char c) {
    if (!attend(c))
        return false;
    return ++profondeur_ <= profondeurpermise || faute();
}

bool LecteurJson::ferme(char c) {
    blancs();
    if (p_ == fin_ || *p_ != c)
        return false;
    ++p_;
    --profondeur_;
    return true;
}

bool LecteurJson::suite(char fermant) {
    if (!juste())
        return false;
    if (ferme(fermant))
        return false;
    return attend(',');
}

bool LecteurJson::mot(QByteArrayView mot) {
    if (fin_ - p_ < mot.size() || !std::equal(mot.begin(), mot.end(), p_))
        return faute();
    p_ += mot.size();
    return true;
}

bool LecteurJson::nombre() {
    const char* p = p_;
    const auto chiffres = [&] {
        const char* avant = p;
        while (p != fin_ && chiffre(*p))
            ++p;
        return p != avant;
    };
    if (p != fin_ && *p == '-')
        ++p;
    const char* premier = p;
    bool bon = chiffres() && (*premier != '0' || p - premier == 1);
    if (bon && p != fin_ && *p == '.') {
        ++p;
        bon = chiffres();
    }
    if (bon && p != fin_ && (*p == 'e' || *p == 'E')) {
        ++p;
        if (p != fin_ && (*p == '+' || *p == '-'))
            ++p;
        bon = chiffres();
    }
    if (!bon)
        return faute();
    p_ = p;
    return true;
}

bool LecteurJson::entier(qint64& valeur) {
    if (genre() != Genre::Nombre) {
        passe();
        return false;
    }
    const char* avant = p_;
    if (!nombre())
        return false;
    const auto [jusque, code] = std::from_chars(avant, p_, valeur);
    return code == std::errc() && jusque == p_;
}

bool LecteurJson::unite(unsigned& valeur) {
    if (fin_ - p_ < 4)
        return faute();
    const auto [jusque, code] = std::from_chars(p_, p_ + 4, valeur, 16);
    if (code != std::errc() || jusque != p_ + 4)
        return faute();
    p_ += 4;
    return true;
}

/// What stands behind a backslash; p_ is on the character after it.
bool LecteurJson::echappe(QChar*& vers) {
    if (p_ == fin_)
        return faute();
    static constexpr QByteArrayView lettres = "\"\\/bfnrt";
    static constexpr QByteArrayView valeurs = "\"\\/\b\f\n\r\t";
    const char c = *p_++;
    if (c != 'u') {
        const qsizetype i = lettres.indexOf(c);
        if (i < 0) {
            --p_;
            return faute();
        }
        *vers++ = QLatin1Char(valeurs[i]);
        return true;
    }
    unsigned code = 0;
    if (!unite(code))
        return false;
    if (QChar::isLowSurrogate(code))
        return faute();
    if (QChar::isHighSurrogate(code)) {
        unsigned bas = 0;
        if (fin_ - p_ < 6 || p_[0] != '\\' || p_[1] != 'u')
            return faute();
        p_ += 2;
        if (!unite(bas))
            return false;
        if (!QChar::isLowSurrogate(bas))
            return faute();
        code = QChar::surrogateToUcs4(static_cast<char16_t>(code), static_cast<char16_t>(bas));
    }
    ajoute(vers, code);
    return true;
}

/// One character of two to four bytes; overlong forms, surrogates and values beyond Unicode are refused.
bool LecteurJson::multioctet(QChar*& vers) {
    const auto premier = static_cast<unsigned char>(*p_);
    const qsizetype reste = fin_ - p_;
    unsigned code = 0;
    qsizetype longueur = 0;
    if (premier >= 0xC2 && premier <= 0xDF && reste >= 2 && suitutf8(p_[1])) {
        longueur = 2;
        code = (premier & 0x1FU) << 6 | bits(p_[1]);
    } else if ((premier & 0xF0) == 0xE0 && reste >= 3 && suitutf8(p_[1]) && suitutf8(p_[2])) {
        longueur = 3;
        code = (premier & 0x0FU) << 12 | bits(p_[1]) << 6 | bits(p_[2]);
        if (code < 0x800 || QChar::isSurrogate(code))
            return faute(Erreur::Utf8);
    } else if (premier >= 0xF0 && premier <= 0xF4 && reste >= 4 && suitutf8(p_[1]) && suitutf8(p_[2]) &&
               suitutf8(p_[3])) {
        longueur = 4;
        code = (premier & 0x07U) << 18 | bits(p_[1]) << 12 | bits(p_[2]) << 6 | bits(p_[3]);
        if (code < 0x10000 || code > 0x10FFFF)
            return faute(Erreur::Utf8);
    } else {
        return faute(Erreur::Utf8);
    }
    p_ += longueur;
    ajoute(vers, code);
    return true;
}

/// Moves to the first byte that is not plain: a quote, a backslash, a control or a byte above 127.
void LecteurJson::ordinaires() {
    while (p_ != fin_ && ordinaire[static_cast<unsigned char>(*p_)])
        ++p_;
}

/// One escape or one character of several bytes, or an error.
bool LecteurJson::autre(QChar*& vers) {
    const auto c = static_cast<unsigned char>(*p_);
    if (c >= 0x80)
        return multioctet(vers);
    if (c < 0x20)
        return faute();
    ++p_;
    return echappe(vers);
}

QString LecteurJson::texte() {
    if (!attend('"'))
        return {};
    // No character takes fewer bytes than units.
    const char* q = p_;
    while (q != fin_ && *q != '"')
        q += *q == '\\' && q + 1 != fin_ ? 2 : 1;
    QString resultat(q - p_, Qt::Uninitialized);
    QChar* const premier = resultat.data();
    QChar* vers = premier;
    while (juste()) {
        const char* avant = p_;
        ordinaires();
        for (; avant != p_; ++avant)
            *vers++ = QLatin1Char(*avant);
        if (p_ == fin_) {
            faute();
        } else if (*p_ == '"') {
            ++p_;
            break;
        } else {
            autre(vers);
        }
    }
    resultat.truncate(vers - premier);
    return resultat;
}

void LecteurJson::passetexte() {
    if (!attend('"'))
        return;
    std::array<QChar, 2> oublie;
    while (juste()) {
        ordinaires();
        if (p_ == fin_) {
            faute();
        } else if (*p_ == '"') {
            ++p_;
            return;
        } else {
            QChar* vers = oublie.data();
            autre(vers);
        }
    }
}

void LecteurJson::passe() {
    switch (genre()) {
    case Genre::Nul:
        mot("null");
        return;
    case Genre::Booleen:
        mot(*p_ == 't' ? "true" : "false");
        return;
    case Genre::Nombre:
        nombre();
        return;
    case Genre::Texte:
        passetexte();
        return;
    case Genre::Tableau:
        tableau([this] { passe(); });
        return;
    case Genre::Objet:
        objet([this](const QString&) { passe(); });
        return;
    case Genre::Fin:
    case Genre::Inconnu:
        faute();
    }
}

void LecteurJson::fin() {
    if (!juste())
        return;
    blancs();
    if (p_ != fin_)
        faute();
}

QString LecteurJson::extrait() const {
    return QString::fromUtf8(p_, std::min(longueurcitee, qsizetype(fin_ - p_)));
}

} // namespace velm
