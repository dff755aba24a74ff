#include "document/listecollection.h"

#include "core/texte.h"
#include "platform/base/failure.h"
#include "platform/text/letters.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype lignesretenues = 1024;

/// The rows of the collection; null where the base lacks what the columns or the end name.
std::unique_ptr<Snapshot> demande(const Corpus& corpus, const QString& colonnes, const QString& code,
                                  const QString& fin, QString* erreur) {
    return corpus.base().openQuery(u"SELECT "_s + colonnes + u" FROM données WHERE référence=?1"_s + fin, {code},
                                   erreur);
}

std::unique_ptr<Snapshot> exige(const Corpus& corpus, const QString& colonnes, const QString& code) {
    QString erreur;
    auto lignes = demande(corpus, colonnes, code, QString(), &erreur);
    if (!lignes)
        runtimeError(erreur);
    return lignes;
}

std::vector<qint64> identites(Snapshot& lignes) {
    std::vector<qint64> ids;
    for (; !lignes.eof(); lignes.moveNext())
        ids.push_back(lignes.value(0).toLongLong());
    return ids;
}

} // namespace

QString ListeCollection::champ(QChar chiffre) {
    switch (chiffre.unicode()) {
    case u'0':
        return u"titre"_s;
    case u'1':
        return u"motclé1"_s;
    case u'2':
        return u"motclé2"_s;
    case u'3':
        return u"motclé3"_s;
    case u'4':
        return u"numart"_s;
    default:
        return {};
    }
}

ModeleColonnes ListeCollection::modele() {
    return {.colonnes = {{0, 2000, Texte::Titre, 5},
                         {1, 2000, Texte::ColonneMotCle1, 1},
                         {2, 2000, Texte::ColonneMotCle2, 1},
                         {3, 2000, Texte::ColonneMotCle3, 1},
                         {4, 0, Texte::ColonneReference}},
            .pluspetite = 1,
            .plusgrande = 30'000,
            .plafonne = true,
            .plusgrandeecrite = 999'999,
            .suite = u"4"_s};
}

ListeCollection::ListeCollection(Corpus& corpus, const QString& code, const QString& ordre)
    : corpus_(corpus), code_(code), lignes_(identites(*exige(corpus, u"rowid"_s, code))),
      table_(corpus.base().openTable(u"données"_s)) {
    Colonnes colonnes(modele());
    colonnes.prend(ordre, {});
    for (const QChar chiffre : colonnes.ordre())
        champs_ << champ(chiffre);
}

const QStringList& ListeCollection::cellules(int row) const {
    const qint64 id = lignes_[static_cast<std::size_t>(row)];
    const auto retenues = lues_.constFind(id);
    if (retenues != lues_.constEnd())
        return *retenues;
    if (lues_.size() >= lignesretenues)
        lues_.clear();
    QStringList lues;
    // At the exit the base is closed before its windows: what of them is still painted is no failure.
    const bool la = table_->usable() && table_->setBookmark({id});
    for (const QString& champ : champs_)
        lues << (la ? table_->text(champ) : QString());
    return *lues_.insert(id, lues);
}

QString ListeCollection::text(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= champs_.size())
        return {};
    return cellules(row).at(column);
}

Cle ListeCollection::cle(int row) const {
    const QString numero = text(row, static_cast<int>(champs_.size()) - 1);
    return numero.isEmpty() ? Cle() : Cle{code_, numero};
}

/// Without reading the rows before it.
int ListeCollection::row(const Cle& wanted) const {
    if (!table_->usable())
        return -1;
    const auto celle = corpus_.base().openQuery(u"SELECT rowid FROM données WHERE référence=?1 AND numart=?2"_s,
                                                {wanted.code, wanted.numero}, nullptr);
    if (!celle || celle->eof())
        return -1;
    const auto ici = std::ranges::find(lignes_, celle->value(0).toLongLong());
    return ici == lignes_.end() ? -1 : static_cast<int>(ici - lignes_.begin());
}

bool ListeCollection::sort(int column, bool descending) {
    if (column < 0 || column >= champs_.size())
        return false;
    const QString& champ = champs_.at(column);
    if (champ != u"titre" || !trieparcle(descending))
        triepartexte(champ, descending);
    return true;
}

bool ListeCollection::trieparcle(bool descending) {
    // The folded key stands in the base and in an index: no text is read.
    const auto lignes =
        demande(corpus_, u"rowid"_s, code_,
                u" ORDER BY clé_titre"_s + (descending ? u" DESC"_s : QString()) + u", numart"_s, nullptr);
    if (!lignes)
        return false;
    lignes_ = identites(*lignes);
    return true;
}

void ListeCollection::triepartexte(const QString& champ, bool descending) {
    struct Ligne {
        QByteArray cle;
        qint64 id;
    };
    QHash<qint64, QByteArray> cles;
    cles.reserve(rowCount());
    const auto lignes = exige(corpus_, u"rowid,"_s + champ, code_);
    for (; !lignes->eof(); lignes->moveNext())
        cles.insert(lignes->value(0).toLongLong(), sortKey(lignes->value(1).toString()));
    std::vector<Ligne> aranger;
    aranger.reserve(lignes_.size());
    for (const qint64 id : lignes_)
        aranger.push_back({cles.value(id), id});
    std::stable_sort(aranger.begin(), aranger.end(), [descending](const Ligne& a, const Ligne& b) {
        return descending ? b.cle < a.cle : a.cle < b.cle;
    });
    std::transform(aranger.begin(), aranger.end(), lignes_.begin(), [](const Ligne& ligne) { return ligne.id; });
}

} // namespace velm
