#include "document/placedocument.h"

#include "platform/base/failure.h"

#include <QSet>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList cheminde(Recordset& table, qint64 noeud) {
    QStringList chemin;
    QSet<qint64> vus;
    table.setIndex(u"primarykey"_s);
    for (qint64 courant = noeud; courant != 0 && !vus.contains(courant);) {
        vus.insert(courant);
        table.seek(Seek::Equal, courant);
        if (table.noMatch())
            break;
        chemin.prepend(table.text(u"typededonnées"_s).simplified());
        courant = table.number(u"dépendance"_s);
    }
    return chemin;
}

/// Counted on the index of titles: what stands before it, and itself.
qint64 rangde(Database& base, const Cle& cle) {
    const auto avant = base.openQuery(
        u"SELECT COUNT(*) FROM données AS autre, (SELECT clé_titre, numart FROM données WHERE référence=?1 AND "
        u"numart=?2)"
        " AS celui WHERE autre.référence=?1 AND (autre.clé_titre, autre.numart) <= (celui.clé_titre, celui.numart)"_s,
        {cle.code, cle.numero});
    return avant && !avant->eof() ? avant->number(0) : 0;
}

} // namespace

PlaceDocument placedocument(const Corpus& corpus, const Cle& cle) {
    PlaceDocument place;
    // It is told beside the document: where the base is damaged there, nothing is told and nothing ends.
    failureOf([&] {
        const Recordset* rangee = corpus.rangee(cle);
        if (!rangee)
            return;
        place.chemin = cheminde(corpus.arborescences(), rangee->number(u"numeroarborescence"_s));
        place.rang = rangde(corpus.base(), cle);
        place.nombre = corpus.nombrededocuments(cle.code);
    });
    return place;
}

} // namespace velm
