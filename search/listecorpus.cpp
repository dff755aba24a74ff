#include "search/listecorpus.h"

#include "platform/base/failure.h"
#include "platform/text/letters.h"

#include <algorithm>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype rangeesretenues = 256;
constexpr qsizetype rangeeslues = 2048;

std::unique_ptr<Snapshot> exigelignes(const Corpus& corpus, const QString& requete) {
    QString erreur;
    auto lignes = corpus.base().openQuery(requete, &erreur);
    if (!lignes)
        runtimeError(erreur);
    return lignes;
}

} // namespace

// ---- the filling

class ListeCorpus::Remplissage final : public Ouvrage {
public:
    explicit Remplissage(ListeCorpus& liste)
        : liste_(liste), lignes_(exigelignes(liste.corpus_, u"SELECT rowid"_s + liste.source_ + liste.ordre_)) {
        qint64 tous = 0;
        for (int collection = 0; collection < nombredecollections; ++collection)
            tous += liste.corpus_.nombrededocuments(typedindice(collection));
        total_ = std::max<qint64>(tous, 1);
    }

    bool avance() override {
        // With the base goes what there was to find in it.
        if (!lignes_->usable())
            return true;
        prises_.clear();
        lignes_->takeNumbers(prises_, rangeeslues);
        for (const qint64 id : prises_)
            ids_.ajoute(id);
        if (!lignes_->eof())
            return false;
        ids_.serre();
        liste_.prend(std::move(ids_), {});
        return true;
    }
    double part() const override {
        return std::min(1.0, static_cast<double>(ids_.nombre()) / static_cast<double>(total_));
    }

private:
    ListeCorpus& liste_;
    std::unique_ptr<Snapshot> lignes_;
    std::vector<qint64> prises_;
    Identites ids_;
    qint64 total_ = 1;
};

// ---- the list

ListeCorpus::ListeCorpus(Corpus& corpus, std::vector<ColonneCorpus> colonnes, QString source, QString ordre, int rangee)
    : corpus_(corpus), colonnes_(std::move(colonnes)), source_(std::move(source)), ordre_(std::move(ordre)),
      rangee_(rangee), table_(corpus.base().openTable(u"données"_s)) {
    for (const ColonneCorpus& colonne : colonnes_)
        champs_ << colonne.champ;
    champs_ << u"référence"_s << u"numart"_s;
    champs_.removeDuplicates();
}

std::unique_ptr<Ouvrage> ListeCorpus::remplissage() {
    return std::make_unique<Remplissage>(*this);
}

void ListeCorpus::prend(Identites ids, const Rangement& tri) {
    ids_ = std::move(ids);
    tri_ = tri;
    prepare_ = {};
}

// ---- what stands in a row

const QStringList& ListeCorpus::lues(int row) const {
    const qint64 id = ids_[static_cast<std::size_t>(row)];
    const auto retenues = lues_.constFind(id);
    if (retenues != lues_.constEnd())
        return *retenues;
    if (lues_.size() >= rangeesretenues)
        lues_.clear();
    QStringList lues(champs_.size());
    // A window is painted once more when its base is closed, or no longer to be read: that ends nothing.
    const auto echec = failureOf([&] {
        if (!table_->usable() || !table_->setBookmark({id}))
            return;
        for (qsizetype champ = 0; champ < champs_.size(); ++champ)
            lues[champ] = table_->text(champs_.at(champ));
    });
    return *lues_.insert(id, echec ? QStringList(champs_.size()) : lues);
}

QString ListeCorpus::text(int row, int column) const {
    if (row < 0 || row >= rowCount() || !la(column))
        return {};
    const QString lu = champ(row, colonne(column).champ);
    const auto& montre = colonne(column).montre;
    return montre ? montre(lu) : lu;
}

QString ListeCorpus::champ(int row, const QString& champ) const {
    const qsizetype ici = champs_.indexOf(champ);
    return row < 0 || row >= rowCount() || ici < 0 ? QString() : lues(row).at(ici);
}

Cle ListeCorpus::cle(int row) const {
    return {champ(row, u"référence"_s), champ(row, u"numart"_s)};
}

int ListeCorpus::row(const Cle& wanted) const {
    if (!corpus_.connecte())
        return -1;
    const auto ligne = corpus_.base().openQuery(u"SELECT rowid FROM données WHERE référence=?1 AND numart=?2"_s,
                                                {wanted.code, wanted.numero});
    if (!ligne || ligne->eof())
        return -1;
    const qint64 id = ligne->number(0);
    for (std::size_t rang = 0; rang < ids_.nombre(); ++rang) {
        if (ids_[rang] == id)
            return static_cast<int>(rang);
    }
    return -1;
}

// ---- order

DemandeOrdre ListeCorpus::demande(int column, bool descending) {
    return {corpus_, ids_, descending, [this, column, descending](Identites ordre) {
                prepares_ = std::move(ordre);
                prepare_ = {column, descending};
            }};
}

std::unique_ptr<Ouvrage> ListeCorpus::tri(int column, bool descending) {
    if (!la(column) || !corpus_.connecte() || !table_->usable())
        return nullptr;
    if (colonne(column).champ == u"titre") {
        if (auto titres = ordredestitres(demande(column, descending)))
            return titres;
    }
    return ordredestextes(demande(column, descending), colonne(column), source_);
}

bool ListeCorpus::sort(int column, bool descending) {
    const auto pret = [&] {
        return prepare_.colonne == column && prepare_.descendant == descending && prepares_.nombre() == ids_.nombre();
    };
    if (!pret()) {
        if (const auto travail = tri(column, descending))
            acheve(*travail);
    }
    if (!la(column) || !corpus_.connecte() || !table_->usable())
        return false;
    if (!pret()) {
        // Documents of no collection are in no walk through the collections.
        acheve(*ordredestextes(demande(column, descending), colonne(column), source_));
    }
    if (!pret())
        return false;
    prend(std::exchange(prepares_, {}), {column, descending});
    return true;
}

/// The rows from the first to behind the last one whose texts begin so, where they stand in the order of the column.
std::pair<int, int> ListeCorpus::etendue(int column, const QByteArray& debut) const {
    const bool descendant = tri_.colonne >= 0 && tri_.descendant;
    // -1 before those that begin so, 0 for them, 1 behind.
    const auto cote = [&](int row) {
        const QByteArray cle = sortKey(text(row, column));
        const int ordre = cle.startsWith(debut) ? 0 : cle < debut ? -1 : 1;
        return descendant ? -ordre : ordre;
    };
    const auto premiere = [&](int seuil) {
        int bas = 0;
        int haut = rowCount();
        while (bas < haut) {
            const int milieu = bas + (haut - bas) / 2;
            if (cote(milieu) < seuil)
                bas = milieu + 1;
            else
                haut = milieu;
        }
        return bas;
    };
    return {premiere(0), premiere(1)};
}

std::optional<int> ListeCorpus::find(int column, const QString& beginning, int from) const {
    const int rangee = tri_.colonne < 0 ? rangee_ : tri_.colonne;
    if (column != rangee || !la(column) || colonne(column).nombre)
        return std::nullopt;
    const auto [premiere, derriere] = etendue(column, sortKeyPrefix(beginning));
    const int voulue = std::max(premiere, from);
    return voulue < derriere ? voulue : -1;
}

} // namespace velm
