#include "search/motscommencant.h"

#include "platform/text/letters.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

std::optional<MotTape> mottape(QStringView ligne, qsizetype caret, QStringView separateurs) {
    if (caret < 0 || caret > ligne.size() || (caret < ligne.size() && !separateurs.contains(ligne[caret])))
        return std::nullopt;
    qsizetype debut = caret;
    while (debut > 0 && !separateurs.contains(ligne[debut - 1]))
        --debut;
    const QStringView mot = ligne.sliced(debut, caret - debut);
    constexpr qsizetype pluscourt = 2;
    if (mot.size() < pluscourt || mot.back() == u'*' || (mot.back() >= u'0' && mot.back() <= u'9'))
        return std::nullopt;
    return MotTape{debut, mot.toString()};
}

QStringList motscommencant(const Corpus& corpus, const QString& debut, int nombre) {
    if (!corpus.connecte() || debut.isEmpty())
        return {};
    // Only the words: what stands beside them in a row may be long.
    const QByteArray cle = sortKeyPrefix(debut);
    const auto lignes =
        corpus.base().openQuery(u"SELECT mot FROM dico WHERE clé_mot>=?1 AND clé_mot<?2 ORDER BY clé_mot LIMIT ?3"_s,
                                {cle, cle + '\xFF', nombre + 1});
    QStringList mots;
    for (; lignes && !lignes->eof() && mots.size() < nombre; lignes->moveNext()) {
        const QString mot = lowerCase(lignes->text(0));
        if (mot != lowerCase(debut))
            mots << mot;
    }
    return mots;
}

} // namespace velm
