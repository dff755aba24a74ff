#include "search/recherchemotcle.h"

#include "platform/text/letters.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <compare>
#include <numeric>
#include <vector>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The keyword with each of its letters that have an accent in both cases: the engine knows no case of these. Where
/// there are very many, those that differ in the first of them alone.
QStringList casses(const QString& motcle) {
    constexpr char16_t ascii = 0x80;
    constexpr qsizetype assez = 64;
    QStringList toutes{motcle};
    for (qsizetype i = 0; i < motcle.size() && toutes.size() < assez; ++i) {
        const QString lettre(1, motcle.at(i));
        const QString autre = upperCase(lettre) == lettre ? lowerCase(lettre) : upperCase(lettre);
        if (motcle.at(i).unicode() < ascii || autre == lettre)
            continue;
        const QStringList avant = toutes;
        for (QString une : avant)
            toutes << une.replace(i, 1, autre);
    }
    return toutes;
}

/// The texts of one document, one behind the other in a block that serves for all of them.
class RangeeLue {
public:
    static constexpr int champs = 6;

    void lit(const Snapshot& documents) {
        texte_.resize(0);
        for (int champ = 0; champ < champs; ++champ) {
            if (const auto utf8 = documents.utf8(champ))
                ajoute(*utf8);
            else
                texte_ += documents.text(champ);
            fins_[static_cast<std::size_t>(champ) + 1] = texte_.size();
        }
    }
    QStringView champ(int champ) const {
        const auto debut = fins_[static_cast<std::size_t>(champ)];
        return QStringView(texte_).sliced(debut, fins_[static_cast<std::size_t>(champ) + 1] - debut);
    }
    QStringView premiers(int combien) const {
        return QStringView(texte_).first(fins_[static_cast<std::size_t>(combien)]);
    }

private:
    void ajoute(QByteArrayView utf8) {
        const qsizetype avant = texte_.size();
        texte_.resize(avant + decodeur_.requiredSpace(utf8.size()));
        const QChar* fin = decodeur_.appendToBuffer(texte_.data() + avant, utf8);
        texte_.truncate(fin - texte_.constData());
    }

    QStringDecoder decodeur_{QStringDecoder::Utf8, QStringDecoder::Flag::Stateless};
    QString texte_;
    std::array<qsizetype, champs + 1> fins_{};
};

/// As the engine orders keys.
std::strong_ordering ordre(QStringView un, QStringView autre) {
    const auto lettre = [](QChar signe) {
        const char16_t unite = signe.unicode();
        return unite >= u'A' && unite <= u'Z' ? unite + (u'a' - u'A') : unite + 0;
    };
    return std::lexicographical_compare_three_way(un.begin(), un.end(), autre.begin(), autre.end(),
                                                  [&](QChar a, QChar b) { return lettre(a) <=> lettre(b); });
}

/// The rows of a base that was compiled are in this order as they are found, but for those that bear the word in
/// another place: the engine would carry all their texts through a sort of its own.
void rangeparcles(Lignes& lignes) {
    const auto avant = [&](int un, int autre) {
        const auto champ = [&](Lignes::Champ lequel) {
            return ordre(lignes.vue(un + 1, lequel), lignes.vue(autre + 1, lequel));
        };
        const auto collections = champ(Lignes::Reference);
        return (collections == 0 ? champ(Lignes::Numart) : collections) < 0;
    };
    std::vector<int> places(static_cast<std::size_t>(lignes.nombre()));
    std::iota(places.begin(), places.end(), 0);
    if (std::ranges::is_sorted(places, avant))
        return;
    std::ranges::stable_sort(places, avant);
    lignes.range(places);
}

} // namespace

std::unique_ptr<Snapshot> documentsdumotcle(const Corpus& corpus, const QString& motcle) {
    // A table that the base lacks is found missing here, as everywhere.
    corpus.donnees().setIndex(u"primarykey"_s);
    QStringList conditions;
    for (const QString& champ : {u"motclé1"_s, u"motclé2"_s, u"motclé3"_s})
        conditions << u'(' + champ + u" IN (\""_s + casses(motcle).join(u"\",\""_s) + u"\"))"_s;
    return corpus.base().openQuery(
        u"SELECT référence, numart, titre, motclé1, motclé2, motclé3 FROM données WHERE ("_s +
        conditions.join(u" OR "_s) + u')');
}

void prenddocuments(Snapshot& documents, Resultat& resultat) {
    resultat.commence();
    resultat.mot1.clear();
    resultat.mot2.clear();
    RangeeLue lue;
    for (; !documents.eof(); documents.moveNext()) {
        lue.lit(documents);
        if (!resultat.lignes.ajoute(
                {lue.champ(0), lue.champ(1), lue.champ(2), lue.champ(3), lue.champ(4), lue.champ(5), lue.premiers(2)}))
            break;
        ++resultat.hits;
    }
    resultat.compte = resultat.hits;
    rangeparcles(resultat.lignes);
}

} // namespace velm
