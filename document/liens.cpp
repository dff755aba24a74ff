#include "document/liens.h"

#include <QSet>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

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
std::vector<LigneLien> charge(Corpus& corpus, const Cle& cle, const QString& index, const Bout& ici,
                              const Bout& ailleurs) {
    if (cle.vide())
        return {};
    Recordset& liens = corpus.liens();
    liens.setIndex(index);
    liens.seek(Seek::Equal, cle.code, cle.numero);
    if (liens.noMatch())
        return {};
    std::vector<LigneLien> lignes;
    QSet<Cle> vues;
    for (; !liens.eof(); liens.moveNext()) {
        if (!memetexte(liens.text(ici.reference), cle.code) || !memetexte(liens.text(ici.numart), cle.numero))
            break;
        const Cle autre{liens.text(ailleurs.reference), liens.text(ailleurs.numart)};
        if (vues.contains(autre))
            continue;
        vues.insert(autre);
        if (const Recordset* donnees = corpus.rangee(autre))
            lignes.push_back({donnees->text(u"référence"_s), donnees->text(u"titre"_s), autre});
    }
    return lignes;
}

/// The same without reading a title.
std::optional<int> compte(const Corpus& corpus, const Cle& cle, const Bout& ici, const Bout& ailleurs) {
    if (cle.vide() || !corpus.connecte())
        return {};
    const QString question = u"SELECT count(*) FROM (SELECT DISTINCT l.%3, l.%4 FROM liens l JOIN données d"
                             " ON d.référence=l.%3 AND d.numart=l.%4 WHERE l.%1=?1 AND l.%2=?2)"_s.arg(
                                 ici.reference, ici.numart, ailleurs.reference, ailleurs.numart);
    const auto reponse = corpus.base().openQuery(question, {cle.code, cle.numero}, nullptr);
    return reponse && !reponse->eof() ? std::optional(reponse->value(0).toInt()) : std::nullopt;
}

} // namespace

std::vector<LigneLien> chargeliens(Corpus& corpus, const Cle& cle) {
    return charge(corpus, cle, u"liens"_s, depart, arrivee);
}

std::vector<LigneLien> chargecorrelats(Corpus& corpus, const Cle& cle) {
    return charge(corpus, cle, u"correlats"_s, arrivee, depart);
}

std::optional<int> nombredeliens(const Corpus& corpus, const Cle& cle) {
    return compte(corpus, cle, depart, arrivee);
}

std::optional<int> nombredecorrelats(const Corpus& corpus, const Cle& cle) {
    return compte(corpus, cle, arrivee, depart);
}

} // namespace velm
