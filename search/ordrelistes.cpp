#include "search/ordrelistes.h"

#include "platform/base/failure.h"
#include "platform/text/letters.h"
#include "platform/text/number.h"

#include <QHash>

#include <algorithm>
#include <compare>
#include <utility>
#include <vector>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

std::unique_ptr<Snapshot> lignesdordre(const Corpus& corpus, const QString& requete) {
    QString erreur;
    auto lignes = corpus.base().openQuery(requete, &erreur);
    if (!lignes)
        runtimeError(erreur);
    return lignes;
}

class Ordre : public Ouvrage {
public:
    explicit Ordre(const DemandeOrdre& demande) : demande_(demande), nombres_(demande.ids) {
        ranges_.reserve(demande.ids.nombre());
    }

    double part() const override {
        return total() == 0 ? 1 : std::min(1.0, static_cast<double>(vus_) / static_cast<double>(total()));
    }

protected:
    const Identites& ids() const { return demande_.ids; }
    bool descendant() const { return demande_.descendant; }
    NombresDesIds& nombres() { return nombres_; }
    std::size_t total() const { return ids().nombre(); }
    void compte() { ++vus_; }
    void range(qint64 id) { ranges_.ajoute(id); }
    const Identites& ranges() const { return ranges_; }
    void reprend(Identites ordre) { ranges_ = std::move(ordre); }
    /// Gives the order away, if every row has come into it: a base that was closed meanwhile may have lost some.
    bool conclut() {
        if (ranges_.nombre() == total())
            demande_.rend(std::move(ranges_));
        return true;
    }

private:
    DemandeOrdre demande_;
    NombresDesIds nombres_;
    Identites ranges_;
    std::size_t vus_ = 0;
};

/// Titles have their keys in the base, and an index for each collection: these are walked side by side. Always upwards,
/// as the index has the numbers of equal titles in their order then: for the other way what stands equal is turned over
/// as one.
class OrdreDesTitres final : public Ordre {
public:
    static std::unique_ptr<OrdreDesTitres> de(const DemandeOrdre& demande) {
        auto travail = std::make_unique<OrdreDesTitres>(demande);
        const QStringList codes = collectionsdelabase(demande.corpus);
        for (const QString& code : codes) {
            auto lignes = demande.corpus.base().openQuery(
                u"SELECT rowid, clé_titre FROM données WHERE référence=?1 ORDER BY clé_titre, numart"_s, {code});
            if (!lignes)
                return nullptr;
            if (!lignes->eof())
                travail->tas_.push_back({std::move(lignes), static_cast<int>(travail->tas_.size())});
        }
        std::ranges::make_heap(travail->tas_, Apres());
        return travail;
    }
    using Ordre::Ordre;

    bool avance() override {
        for (int pas = 0; pas < parpas; ++pas) {
            if (!courant_.lignes && !suivant())
                return acheve();
            Snapshot& lignes = *courant_.lignes;
            if (!lignes.usable())
                return true;
            prend(lignes);
            lignes.moveNext();
            if (lignes.eof()) {
                courant_.lignes.reset();
            } else if (!tas_.empty() && Apres()(courant_, tas_.front())) {
                // Titles of a collection often begin alike, and so it goes on for a while as a rule.
                tas_.push_back(std::exchange(courant_, {}));
                std::ranges::push_heap(tas_, Apres());
            }
        }
        return false;
    }

private:
    static constexpr int parpas = 1024;
    struct Courant {
        std::unique_ptr<Snapshot> lignes = {};
        int rang = 0; ///< of its collection
    };
    /// The walk whose title comes next; false when all have ended.
    bool suivant() {
        if (tas_.empty())
            return false;
        std::ranges::pop_heap(tas_, Apres());
        courant_ = std::move(tas_.back());
        tas_.pop_back();
        return true;
    }
    void prend(const Snapshot& lignes) {
        const qint64 id = lignes.number(0);
        if (!nombres().a(id))
            return;
        if (descendant())
            note(lignes.raw(1));
        range(id);
        compte();
    }
    void note(QByteArrayView cle) {
        const bool autre = nouvelles_.empty() || cle != QByteArrayView(derniere_.data(), std::ssize(derniere_));
        nouvelles_.push_back(autre);
        if (autre)
            derniere_.assign(cle.begin(), cle.end());
    }
    bool acheve() {
        if (descendant())
            reprend(retourne());
        return conclut();
    }
    Identites retourne() const {
        Identites ordre;
        ordre.reserve(nouvelles_.size());
        std::size_t fin = nouvelles_.size();
        for (std::size_t debut = fin; debut-- > 0;) {
            if (!nouvelles_[debut])
                continue;
            for (std::size_t rang = debut; rang < fin; ++rang)
                ordre.ajoute(ranges()[rang]);
            fin = debut;
        }
        return ordre;
    }
    /// A heap has its greatest on top: here that which comes first.
    struct Apres {
        bool operator()(const Courant& une, const Courant& autre) const {
            const int ordre = une.lignes->raw(1).compare(autre.lignes->raw(1));
            return ordre == 0 ? une.rang > autre.rang : ordre > 0;
        }
    };

    std::vector<Courant> tas_; ///< of the others
    Courant courant_;
    std::vector<bool> nouvelles_; ///< of each row in order: its title is not that of the row before
    std::vector<char> derniere_;  ///< the key of the last row
};

/// What repeats in many rows, as keywords and dates do, is kept once while it is put into order.
class OrdreDesTextes final : public Ordre {
public:
    OrdreDesTextes(const DemandeOrdre& demande, ColonneCorpus colonne, const QString& source)
        : Ordre(demande), colonne_(std::move(colonne)),
          lignes_(lignesdordre(demande.corpus, u"SELECT rowid,"_s + colonne_.champ + source)) {}

    bool avance() override {
        if (!lignes_)
            return pose();
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
        if (lignes_->eof()) {
            lignes_.reset();
            places_ = rangs();
            connus_.clear();
        }
        return false;
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
        const ColonneCorpus& colonne = colonne_;
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
    std::vector<quint32> rangs() {
        std::vector<std::pair<Valeur, quint32>> valeurs;
        valeurs.reserve(static_cast<std::size_t>(connus_.size()));
        for (auto un = connus_.cbegin(); un != connus_.cend(); ++un)
            valeurs.emplace_back(valeur(un.key()), un.value());
        const bool inverse = descendant();
        std::ranges::sort(valeurs, [inverse](const auto& a, const auto& b) {
            return inverse ? b.first < a.first : a.first < b.first;
        });
        std::vector<quint32> places(valeurs.size());
        quint32 combien = 0;
        for (std::size_t ici = 0; ici < valeurs.size(); ++ici) {
            if (ici > 0 && (valeurs[ici].first <=> valeurs[ici - 1].first) != 0)
                ++combien;
            places[valeurs[ici].second] = combien;
        }
        debuts_.assign(std::size_t{combien} + 2, 0);
        return places;
    }

    /// By counting, a stretch of rows at a time: rows whose texts are equal stay as they stood.
    bool pose() {
        const std::size_t fin = std::min(rang_ + rangeesparpas, ids().nombre());
        for (; rang_ < fin; ++rang_) {
            const qint64 id = ids()[rang_];
            if (!comptees_)
                ++debuts_[place(id) + 1];
            else
                rangees_[debuts_[place(id)]++] = id;
        }
        if (rang_ < ids().nombre())
            return false;
        if (comptees_)
            return acheve();
        for (std::size_t ici = 1; ici < debuts_.size(); ++ici)
            debuts_[ici] += debuts_[ici - 1];
        rangees_.resize(ids().nombre());
        comptees_ = true;
        rang_ = 0;
        return ids().nombre() == 0 && acheve();
    }
    bool acheve() {
        for (const qint64 id : rangees_)
            range(id);
        return conclut();
    }
    std::size_t place(qint64 id) {
        const quint32 texte = nombres().de(id);
        return texte < places_.size() ? places_[texte] : 0;
    }

    static constexpr std::size_t rangeesparpas = 8192;
    ColonneCorpus colonne_;
    std::unique_ptr<Snapshot> lignes_;
    QHash<QByteArray, quint32> connus_;
    std::vector<quint32> places_;     ///< of the texts
    std::vector<std::size_t> debuts_; ///< of the rows of each place
    std::vector<qint64> rangees_;
    std::size_t rang_ = 0;
    bool comptees_ = false;
};

} // namespace

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

std::unique_ptr<Ouvrage> ordredestitres(const DemandeOrdre& demande) {
    return OrdreDesTitres::de(demande);
}

std::unique_ptr<Ouvrage> ordredestextes(const DemandeOrdre& demande, const ColonneCorpus& colonne,
                                        const QString& source) {
    return std::make_unique<OrdreDesTextes>(demande, colonne, source);
}

} // namespace velm
