#include "search/listecorpus.h"

#include "platform/base/failure.h"
#include "platform/text/letters.h"
#include "platform/text/number.h"

#include <algorithm>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype rangeesretenues = 1024;
constexpr qsizetype rangeesparpas = 2048;

std::unique_ptr<Snapshot> exigelignes(const Corpus& corpus, const QString& requete) {
    QString erreur;
    auto lignes = corpus.base().openQuery(requete, &erreur);
    if (!lignes)
        runtimeError(erreur);
    return lignes;
}

/// The collections that the base has documents of, whatever they are, in the order of their codes: each is one look
/// into an index.
QStringList collectionsdelabase(const Corpus& corpus) {
    QStringList codes;
    QVariant depuis = QString();
    while (true) {
        const auto suivante =
            corpus.base().openQuery(u"SELECT MIN(référence) FROM données WHERE référence>?1"_s, {depuis});
        if (!suivante || suivante->eof() || suivante->text(0).isEmpty())
            return codes;
        codes << suivante->text(0);
        depuis = codes.last();
    }
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
        lignes_->takeNumbers(prises_, rangeesparpas);
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

// ---- the sorts

class ListeCorpus::Tri : public Ouvrage {
public:
    Tri(ListeCorpus& liste, const Rangement& tri) : liste_(liste), rangement_(tri), nombres_(liste.ids_) {
        ranges_.reserve(total());
    }

    double part() const override {
        return total() == 0 ? 1 : std::min(1.0, static_cast<double>(vus_) / static_cast<double>(total()));
    }

protected:
    ListeCorpus& liste() const { return liste_; }
    const Rangement& rangement() const { return rangement_; }
    NombresDesIds& nombres() { return nombres_; }
    std::size_t total() const { return liste_.ids_.nombre(); }
    void compte() { ++vus_; }
    void range(qint64 id) { ranges_.ajoute(id); }
    /// An order that has lost rows is none.
    bool conclut() {
        if (ranges_.nombre() == total()) {
            liste_.prepares_ = std::move(ranges_);
            liste_.prepare_ = rangement_;
        }
        return true;
    }

private:
    ListeCorpus& liste_;
    Rangement rangement_;
    NombresDesIds nombres_;
    Identites ranges_;
    std::size_t vus_ = 0;
};

/// Titles have their keys in the base, and an index for each collection: these are walked side by side.
class ListeCorpus::TriDesTitres final : public Tri {
public:
    static std::unique_ptr<TriDesTitres> de(ListeCorpus& liste, const Rangement& tri) {
        auto travail = std::make_unique<TriDesTitres>(liste, tri);
        const QStringList codes = collectionsdelabase(liste.corpus_);
        for (const QString& code : codes) {
            auto lignes = liste.corpus_.base().openQuery(
                u"SELECT rowid, clé_titre FROM données WHERE référence=?1 ORDER BY clé_titre"_s +
                    (tri.descendant ? u" DESC"_s : QString()) + u", numart"_s,
                {code});
            if (!lignes)
                return nullptr;
            if (!lignes->eof())
                travail->tas_.push_back({std::move(lignes), static_cast<int>(travail->tas_.size())});
        }
        std::ranges::make_heap(travail->tas_, Apres{tri.descendant});
        return travail;
    }
    using Tri::Tri;

    bool avance() override {
        const Apres apres{rangement().descendant};
        for (int pas = 0; pas < parpas; ++pas) {
            if (tas_.empty())
                return conclut();
            if (!tas_.front().lignes->usable())
                return true;
            std::ranges::pop_heap(tas_, apres);
            const Snapshot& premiere = *tas_.back().lignes;
            const qint64 id = premiere.number(0);
            if (nombres().a(id)) {
                range(id);
                compte();
            }
            tas_.back().lignes->moveNext();
            if (premiere.eof())
                tas_.pop_back();
            else
                std::ranges::push_heap(tas_, apres);
        }
        return false;
    }

private:
    static constexpr int parpas = 1024;
    struct Courant {
        std::unique_ptr<Snapshot> lignes;
        int rang; ///< of its collection
    };
    /// A heap has its greatest on top: here that which comes first.
    struct Apres {
        bool descendant;
        bool operator()(const Courant& une, const Courant& autre) const {
            const int ordre = une.lignes->raw(1).compare(autre.lignes->raw(1));
            return ordre == 0 ? une.rang > autre.rang : descendant ? ordre < 0 : ordre > 0;
        }
    };

    std::vector<Courant> tas_;
};

/// What repeats in many rows, as keywords and dates do, is kept once while it is put into order.
class ListeCorpus::TriDesTextes final : public Tri {
public:
    TriDesTextes(ListeCorpus& liste, const Rangement& tri)
        : Tri(liste, tri),
          lignes_(exigelignes(liste.corpus_, u"SELECT rowid,"_s + liste.colonne(tri.colonne).champ + liste.source_)) {}

    bool avance() override {
        if (!lignes_->usable())
            return true;
        for (int pas = 0; pas < parpas && !lignes_->eof(); ++pas) {
            const qint64 id = lignes_->number(0);
            if (nombres().a(id)) {
                nombres().pose(id, texte());
                compte();
            }
            lignes_->moveNext();
        }
        return lignes_->eof() && acheve();
    }

private:
    static constexpr int parpas = 1024;
    struct Valeur {
        double nombre = 0;
        QByteArray cle;
        auto operator<=>(const Valeur& autre) const {
            const auto ordre = nombre < autre.nombre   ? std::weak_ordering::less
                               : autre.nombre < nombre ? std::weak_ordering::greater
                                                       : std::weak_ordering::equivalent;
            return ordre == 0 ? cle.compare(autre.cle) <=> 0 : ordre;
        }
    };

    /// The number of the text of this row among those that were seen.
    quint32 texte() {
        const auto utf8 = lignes_->utf8(1);
        const QByteArray propre = utf8 ? QByteArray() : lignes_->text(1).toUtf8();
        const QByteArrayView octets = utf8 ? *utf8 : QByteArrayView(propre);
        const auto su = connus_.constFind(QByteArray::fromRawData(octets.data(), octets.size()));
        if (su != connus_.constEnd())
            return *su;
        const auto nouveau = static_cast<quint32>(connus_.size());
        connus_.insert(octets.toByteArray(), nouveau);
        return nouveau;
    }

    Valeur valeur(const QByteArray& utf8) const {
        const ColonneCorpus& colonne = liste().colonne(rangement().colonne);
        const QString lu = QString::fromUtf8(utf8);
        const QString montre = colonne.montre ? colonne.montre(lu) : lu;
        const auto nombre = colonne.nombre ? wholeNumber(montre) : std::nullopt;
        // What is no number where the others are comes before them, in the order of texts.
        constexpr double avant = -1e300;
        return {nombre           ? static_cast<double>(*nombre)
                : colonne.nombre ? avant
                                 : 0,
                nombre ? QByteArray() : sortKey(montre)};
    }

    /// The place of each text in the order; equal ones have the same.
    std::vector<quint32> rangs(quint32& combien) const {
        std::vector<std::pair<Valeur, quint32>> valeurs;
        valeurs.reserve(static_cast<std::size_t>(connus_.size()));
        for (auto un = connus_.cbegin(); un != connus_.cend(); ++un)
            valeurs.emplace_back(valeur(un.key()), un.value());
        const bool descendant = rangement().descendant;
        std::ranges::sort(valeurs, [descendant](const auto& a, const auto& b) {
            return descendant ? b.first < a.first : a.first < b.first;
        });
        std::vector<quint32> places(valeurs.size());
        for (std::size_t ici = 0; ici < valeurs.size(); ++ici) {
            if (ici > 0 && (valeurs[ici].first <=> valeurs[ici - 1].first) != 0)
                ++combien;
            places[valeurs[ici].second] = combien;
        }
        ++combien;
        return places;
    }

    /// By counting: rows whose texts are equal stay as they stood.
    bool acheve() {
        quint32 combien = 0;
        const std::vector<quint32> places = rangs(combien);
        connus_.clear();
        std::vector<std::size_t> debuts(std::size_t{combien} + 1, 0);
        const Identites& ids = liste().ids_;
        for (std::size_t rang = 0; rang < ids.nombre(); ++rang)
            ++debuts[place(places, ids[rang]) + 1];
        for (std::size_t ici = 1; ici < debuts.size(); ++ici)
            debuts[ici] += debuts[ici - 1];
        std::vector<qint64> rangees(ids.nombre());
        for (std::size_t rang = 0; rang < ids.nombre(); ++rang)
            rangees[debuts[place(places, ids[rang])]++] = ids[rang];
        for (const qint64 id : rangees)
            range(id);
        return conclut();
    }
    std::size_t place(const std::vector<quint32>& places, qint64 id) {
        const quint32 texte = nombres().de(id);
        return texte < places.size() ? places[texte] : 0;
    }

    std::unique_ptr<Snapshot> lignes_;
    QHash<QByteArray, quint32> connus_;
};

// ---- the list

ListeCorpus::ListeCorpus(Corpus& corpus, std::vector<ColonneCorpus> colonnes, QString source, QString ordre, int rangee)
    : corpus_(corpus), colonnes_(std::move(colonnes)), source_(std::move(source)), ordre_(std::move(ordre)),
      rangee_(rangee), table_(corpus.base().openTable(u"données"_s)) {
    for (const ColonneCorpus& colonne : colonnes_)
        champs_ << colonne.champ;
    champs_ << u"référence"_s << u"numart"_s;
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
    const QString& lu = lues(row).at(column);
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

int ListeCorpus::rang(const Cle& voulue) const {
    if (!corpus_.connecte())
        return -1;
    const auto ligne = corpus_.base().openQuery(u"SELECT rowid FROM données WHERE référence=?1 AND numart=?2"_s,
                                                {voulue.code, voulue.numero});
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

std::unique_ptr<Ouvrage> ListeCorpus::tri(int column, bool descending) {
    if (!la(column) || !corpus_.connecte() || !table_->usable())
        return nullptr;
    const Rangement voulu{column, descending};
    if (colonne(column).champ == u"titre") {
        if (auto titres = TriDesTitres::de(*this, voulu))
            return titres;
    }
    return std::make_unique<TriDesTextes>(*this, voulu);
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
        TriDesTextes travail(*this, {column, descending});
        acheve(travail);
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
