#include "search/listemotcle.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "platform/base/failure.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype motsretenus = 1024;

} // namespace

ModeleColonnes ListeMotcle::modele() {
    return {.colonnes = {{Motcle, 3000, Texte::ListeDesMotsCles, 1}, {Nombre, 1700, Texte::ColonneNombreDeDocuments}}};
}

ListeMotcle::ListeMotcle(const Corpus& corpus) : corpus_(corpus) {
    // A table that the base lacks is found missing here, as everywhere.
    corpus.motcles().setIndex(u"primarykey"_s);
    lignes_ = demande(false);
    table_ = corpus.base().openTable(u"motclés"_s);
}

/// The ids stand in the index, behind the keys: no row is read.
std::vector<qint64> ListeMotcle::demande(bool descending) const {
    QString erreur;
    std::unique_ptr<Snapshot> lignes;
    // A base that another tool has made may have the keywords without their keys.
    for (const QString& cle : {u"clé_motcle"_s, u"cle_tri(motcle)"_s}) {
        if (!lignes)
            lignes = corpus_.base().openQuery(
                u"SELECT rowid FROM motclés ORDER BY "_s + cle + (descending ? u" DESC"_s : QString()), &erreur);
    }
    if (!lignes)
        runtimeError(erreur);
    std::vector<qint64> ids;
    for (; !lignes->eof(); lignes->moveNext())
        ids.push_back(lignes->number(0));
    return ids;
}

QString ListeMotcle::text(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= nombredechamps)
        return {};
    const qint64 id = lignes_[static_cast<std::size_t>(row)];
    auto retenue = lues_.constFind(id);
    if (retenue == lues_.constEnd()) {
        if (lues_.size() >= motsretenus)
            lues_.clear();
        Paire lue;
        if (table_->usable() && table_->setBookmark({id}))
            lue = {table_->text(u"motcle"_s), table_->text(u"nbarticle"_s)};
        retenue = lues_.insert(id, lue);
    }
    return column == Motcle ? retenue->motcle : retenue->nombre;
}

bool ListeMotcle::sort(int column, bool descending) {
    if (column < 0 || column >= nombredechamps)
        return false;
    if (column == Motcle)
        lignes_ = demande(descending);
    else
        trieparnombre(descending);
    return true;
}

void ListeMotcle::trieparnombre(bool descending) {
    QString erreur;
    const auto lignes = corpus_.base().openQuery(u"SELECT rowid, nbarticle FROM motclés"_s, &erreur);
    if (!lignes)
        runtimeError(erreur);
    QHash<qint64, qint64> nombres;
    nombres.reserve(rowCount());
    for (; !lignes->eof(); lignes->moveNext())
        nombres.insert(lignes->number(0), lignes->number(1));
    std::stable_sort(lignes_.begin(), lignes_.end(), [&](qint64 a, qint64 b) {
        return descending ? nombres.value(b) < nombres.value(a) : nombres.value(a) < nombres.value(b);
    });
}

/// By its id: the rows are many, and are not read for it.
int ListeMotcle::row(const Cle& wanted) const {
    const auto lignes = corpus_.connecte()
                            ? corpus_.base().openQuery(u"SELECT rowid FROM motclés WHERE motcle=?1"_s, {wanted.numero})
                            : nullptr;
    for (; lignes && !lignes->eof(); lignes->moveNext()) {
        const auto la = std::ranges::find(lignes_, lignes->number(0));
        if (la != lignes_.end() && motcle(static_cast<int>(la - lignes_.begin())) == wanted.numero)
            return static_cast<int>(la - lignes_.begin());
    }
    return -1;
}

QString comptemotscles(qint64 nombre, const Libelles& texte) {
    return remplace(texte(nombre > 1 ? Texte::CompteMotsCles : Texte::CompteUnMotCle), {nombreecrit(nombre, texte)});
}

} // namespace velm
