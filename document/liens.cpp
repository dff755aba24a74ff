#include "document/liens.h"

#include "core/cle.h"

#include <QSet>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString cleprimaire = u"primarykey"_s;

/// One end of a link in its table.
struct Bout {
    QString reference;
    QString numart;
};
const Bout depart{u"référencedépart"_s, u"numartdépart"_s};
const Bout arrivee{u"référencearrivée"_s, u"numartarrivée"_s};

bool memetexte(const QString& un, const QString& autre) {
    return un.compare(autre, Qt::CaseInsensitive) == 0;
}

/// The rows with `cle` at one end, by an index that begins there.
std::vector<LigneLien> charge(Corpus& corpus, const QString& cle, const QString& index, const Bout& ici,
                              const Bout& ailleurs) {
    if (cle.isEmpty())
        return {};
    const auto [code, numero] = decoupecle(cle);
    Recordset& liens = corpus.liens();
    liens.setIndex(index);
    liens.seek(Seek::Equal, code, numero);
    if (liens.noMatch())
        return {};
    Recordset& donnees = corpus.donnees();
    donnees.setIndex(cleprimaire);
    std::vector<LigneLien> lignes;
    QSet<QString> vues;
    for (; !liens.eof(); liens.moveNext()) {
        if (!memetexte(liens.text(ici.reference), code) || !memetexte(liens.text(ici.numart), numero))
            break;
        const QString reference = liens.text(ailleurs.reference);
        const QString numart = liens.text(ailleurs.numart);
        const QString autre = reference + numart;
        if (vues.contains(autre))
            continue;
        vues.insert(autre);
        donnees.seek(Seek::Equal, reference, numart);
        if (!donnees.noMatch())
            lignes.push_back({donnees.text(u"référence"_s), donnees.text(u"titre"_s), autre});
    }
    return lignes;
}

} // namespace

std::vector<LigneLien> chargeliens(Corpus& corpus, const QString& cle) {
    return charge(corpus, cle, u"liens"_s, depart, arrivee);
}

std::vector<LigneLien> chargecorrelats(Corpus& corpus, const QString& cle) {
    return charge(corpus, cle, u"correlats"_s, arrivee, depart);
}

} // namespace velm
