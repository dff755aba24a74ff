#include "collection/mots.h"

#include "platform/text/letters.h"
#include "platform/text/number.h"

#include <algorithm>

namespace velm {
namespace {

constexpr qsizetype longueurmaximaledunmot = 255;
constexpr qsizetype longueurminimale = 2;
constexpr quint32 aucun = ~0U;

constexpr std::array<bool, 256> separateurs = [] {
    std::array<bool, 256> table{};
    for (const char16_t c : std::u16string_view(u"\r\n ,.[]/»«`@&¶§\"\t()'{}:!;?-+=<>_°%|\u00FF\u00A0"))
        table[c] = true;
    return table;
}();

bool chiffre(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// The typographic apostrophe, and the other punctuation that no keyboard of the time had: thin blanks, dashes, quotes.
/// They do not part words; a word that holds one is found whole and by its parts.
bool couture(QChar c) {
    return c.unicode() >= 0x2000 && c.unicode() <= 0x206F;
}

quint32 hache(QStringView texte) {
    quint64 h = 0xcbf29ce484222325U ^ static_cast<quint64>(texte.size());
    for (const QChar c : texte)
        h = (h ^ c.unicode()) * 0x9E3779B97F4A7C15U;
    return static_cast<quint32>(h >> 32);
}

void ajoute(std::vector<quint8>& octets, quint32 valeur) {
    while (valeur >= 0x80) {
        octets.push_back(static_cast<quint8>(valeur | 0x80U));
        valeur >>= 7U;
    }
    octets.push_back(static_cast<quint8>(valeur));
}

/// A word and the documents that hold it, as steps of one to five bytes.
struct Entree {
    QString mot;
    std::vector<quint8> pas;
    quint32 dernier = aucun;
};

template <typename F>
void parcourt(const std::vector<quint8>& pas, F&& document) {
    quint32 courant = aucun;
    quint32 valeur = 0;
    unsigned decalage = 0;
    for (const quint8 octet : pas) {
        valeur |= static_cast<quint32>(octet & 0x7FU) << decalage;
        decalage += 7;
        if (octet & 0x80U)
            continue;
        courant += valeur;
        document(courant);
        valeur = 0;
        decalage = 0;
    }
}

} // namespace

bool estseparateur(char16_t unite) {
    return unite < separateurs.size() ? separateurs[unite] : unite == u'…' || unite == u'“';
}

bool motrefuse(QStringView mot) {
    if (mot.size() < longueurminimale || mot.size() > longueurmaximaledunmot || chiffre(mot.back()))
        return true;
    // Blanks and signs part words, so that only a digit can begin a number here.
    return chiffre(mot.front()) && val(mot) != 0;
}

struct Repertoire::Privee {
    /// A word as it stands in the text, with the entries it counts for.
    struct Forme {
        quint32 hache = 0;
        quint32 place = 0;
        quint32 longueur = 0;
        quint32 premiere = 0;
        quint32 nombre = 0;
    };
    static constexpr quint32 libre = aucun;

    std::vector<Entree> entrees;
    QHash<QString, quint32> numeros;
    std::vector<char16_t> lettres;
    std::vector<Forme> formes;
    std::vector<quint32> entreesdesformes;
    std::vector<quint32> cases = std::vector<quint32>(1U << 14U, libre);

    void entree(QStringView mot, quint32 premiere) {
        if (motrefuse(mot))
            return;
        const QString capitales = upperCase(mot);
        auto numero = numeros.constFind(capitales);
        if (numero == numeros.constEnd()) {
            numero = numeros.insert(capitales, static_cast<quint32>(entrees.size()));
            entrees.push_back({capitales, {}, aucun});
        }
        if (std::find(entreesdesformes.begin() + premiere, entreesdesformes.end(), *numero) == entreesdesformes.end())
            entreesdesformes.push_back(*numero);
    }

    quint32 nouvelle(QStringView texte, quint32 h) {
        Forme forme{h, static_cast<quint32>(lettres.size()), static_cast<quint32>(texte.size()),
                    static_cast<quint32>(entreesdesformes.size()), 0};
        lettres.insert(lettres.end(), texte.utf16(), texte.utf16() + texte.size());
        entree(texte, forme.premiere);
        if (std::any_of(texte.begin(), texte.end(), couture)) {
            qsizetype debut = 0;
            for (qsizetype i = 0; i <= texte.size(); ++i) {
                if (i < texte.size() && !couture(texte[i]))
                    continue;
                entree(texte.sliced(debut, i - debut), forme.premiere);
                debut = i + 1;
            }
        }
        forme.nombre = static_cast<quint32>(entreesdesformes.size()) - forme.premiere;
        formes.push_back(forme);
        return static_cast<quint32>(formes.size() - 1);
    }

    void agrandit() {
        std::vector<quint32> plus(cases.size() * 2, libre);
        for (quint32 f = 0; f < formes.size(); ++f) {
            std::size_t i = formes[f].hache & (plus.size() - 1);
            while (plus[i] != libre)
                i = (i + 1) & (plus.size() - 1);
            plus[i] = f;
        }
        cases = std::move(plus);
    }

    const Forme& forme(QStringView texte) {
        const quint32 h = hache(texte);
        std::size_t i = h & (cases.size() - 1);
        for (; cases[i] != libre; i = (i + 1) & (cases.size() - 1)) {
            const Forme& f = formes[cases[i]];
            if (f.hache == h && f.longueur == texte.size() &&
                std::equal(texte.utf16(), texte.utf16() + texte.size(), lettres.begin() + f.place))
                return f;
        }
        cases[i] = nouvelle(texte, h);
        if (formes.size() * 2 > cases.size())
            agrandit();
        return formes.back();
    }

    void mot(quint32 document, QStringView texte) {
        if (texte.size() < longueurminimale || texte.size() > longueurmaximaledunmot)
            return;
        const Forme& f = forme(texte);
        for (quint32 k = f.premiere; k < f.premiere + f.nombre; ++k) {
            Entree& e = entrees[entreesdesformes[k]];
            if (e.dernier == document)
                continue;
            ajoute(e.pas, document - e.dernier);
            e.dernier = document;
        }
    }
};

Repertoire::Repertoire() : d_(std::make_unique<Privee>()) {}
Repertoire::~Repertoire() = default;

void Repertoire::note(quint32 document, QStringView texte) {
    const char16_t* p = texte.utf16();
    const char16_t* const fin = p + texte.size();
    while (p != fin) {
        while (p != fin && estseparateur(*p))
            ++p;
        const char16_t* const debut = p;
        while (p != fin && !estseparateur(*p))
            ++p;
        d_->mot(document, QStringView(debut, p));
    }
}

struct Dictionnaire::Privee {
    struct Mot {
        QByteArray cle;
        std::vector<const Entree*> entrees;
    };
    std::vector<Mot> mots;
};

Dictionnaire::Dictionnaire(const std::vector<std::unique_ptr<Repertoire>>& repertoires)
    : d_(std::make_unique<Privee>()) {
    QHash<QString, std::size_t> numeros;
    for (const auto& repertoire : repertoires) {
        for (const Entree& entree : repertoire->d().entrees) {
            const auto numero = numeros.constFind(entree.mot);
            if (numero != numeros.constEnd()) {
                d_->mots[*numero].entrees.push_back(&entree);
                continue;
            }
            numeros.insert(entree.mot, d_->mots.size());
            d_->mots.push_back({sortKey(entree.mot), {&entree}});
        }
    }
    std::sort(d_->mots.begin(), d_->mots.end(),
              [](const Privee::Mot& a, const Privee::Mot& b) { return a.cle < b.cle; });
}

Dictionnaire::~Dictionnaire() = default;

qsizetype Dictionnaire::nombre() const {
    return static_cast<qsizetype>(d_->mots.size());
}

QString Dictionnaire::mot(qsizetype i) const {
    return d_->mots[static_cast<std::size_t>(i)].entrees.front()->mot;
}

QByteArray Dictionnaire::liste(qsizetype i, const Provenance& provenance) const {
    std::vector<CleDocument> cles;
    for (const Entree* entree : d_->mots[static_cast<std::size_t>(i)].entrees)
        parcourt(entree->pas, [&](quint32 document) { cles.push_back(provenance.cle(document)); });
    std::sort(cles.begin(), cles.end());
    QByteArray liste(4 * static_cast<qsizetype>(cles.size()), Qt::Uninitialized);
    char* vers = liste.data();
    for (const CleDocument cle : cles) {
        const int numero = numerodelacle(cle);
        *vers++ = static_cast<char>('A' + collectiondelacle(cle));
        *vers++ = static_cast<char>(numero >> 16);
        *vers++ = static_cast<char>(numero >> 8);
        *vers++ = static_cast<char>(numero);
    }
    return liste;
}

} // namespace velm
