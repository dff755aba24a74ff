#include "search/recherchemotcle.h"

#include "platform/text/letters.h"

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

} // namespace

std::unique_ptr<Snapshot> documentsdumotcle(const Corpus& corpus, const QString& motcle) {
    // A table that the base lacks is found missing here, as everywhere.
    corpus.donnees().setIndex(u"primarykey"_s);
    QStringList conditions;
    for (const QString& champ : {u"motclé1"_s, u"motclé2"_s, u"motclé3"_s})
        conditions << u'(' + champ + u" IN (\""_s + casses(motcle).join(u"\",\""_s) + u"\"))"_s;
    return corpus.base().openQuery(
        u"SELECT référence, numart, titre, motclé1, motclé2, motclé3 FROM données WHERE ("_s +
        conditions.join(u" OR "_s) + u") ORDER BY référence, numart"_s);
}

void prenddocuments(Snapshot& documents, Resultat& resultat) {
    resultat.commence();
    resultat.mot1.clear();
    resultat.mot2.clear();
    for (; !documents.eof(); documents.moveNext()) {
        const QString reference = documents.text(0);
        const QString numart = documents.text(1);
        if (!resultat.lignes.ajoute({reference, numart, documents.text(2), documents.text(3), documents.text(4),
                                     documents.text(5), reference + numart}))
            break;
        ++resultat.hits;
    }
    resultat.compte = resultat.hits;
}

} // namespace velm
