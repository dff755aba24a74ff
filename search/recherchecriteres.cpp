#include "search/recherchecriteres.h"

#include "platform/base/failure.h"
#include "search/testeurdelots.h"
#include "search/typescherches.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Columns of the walk.
enum Colonne { Rangee, Numart, Titre, Motcle1, Motcle2, Motcle3, Source, Type, Date };

/// What both ways of searching share. It holds what was asked, as another search may be asked for while it lets events
/// through.
class VisiteParCriteres {
public:
    VisiteParCriteres(Corpus& corpus, Marche& marche, Resultat& resultat, Criteres& criteres,
                      const TypesDocument& types, bool sanstable)
        : corpus_(corpus), marche_(marche), resultat_(resultat) {
        avancetexte(criteres);
        criteres_ = litcriteres(criteres, types);
        criteres_.sanstable = sanstable;
    }

protected:
    void commence(qint64 total) {
        resultat_.mot1 = criteres_.textes[0];
        resultat_.mot2 = criteres_.textes[1];
        marche_.commence(total);
        // A table that the base lacks is found missing here, as everywhere.
        corpus_.donnees().setIndex(u"primarykey"_s);
        testeur_.emplace(corpus_.base(), criteres_);
    }

    bool teste(const FicheCriteres& fiche) const { return testefiche(criteres_, fiche); }

    /// Tests the texts of the documents of a lot that have passed everything else.
    void testelot(std::vector<FicheTestee>& lot) {
        const auto debut = std::chrono::steady_clock::now();
        testeur_->teste(lot);
        taille_.apres(std::chrono::steady_clock::now() - debut);
        for (FicheTestee& testee : lot) {
            if (!testee.passe)
                testee.passe = illisible(testee.fiche);
        }
    }

    Corpus& corpus_;
    Marche& marche_;
    Resultat& resultat_;
    CriteresLus criteres_;
    TailleDeLot taille_;

private:
    /// The table says what is wrong with a body that cannot be read, in a run-time error.
    bool illisible(const FicheCriteres& fiche) {
        Recordset& donnees = corpus_.donnees();
        donnees.setBookmark({fiche.rangee});
        static_cast<void>(donnees.bytes(u"contenu"_s));
        LecteurDeCorps lecteur(corpus_.base(), criteres_);
        const std::optional<bool> passe = testetextes(criteres_, fiche, lecteur);
        if (!passe)
            runtimeError(u"données_contenu"_s);
        return *passe;
    }

    std::optional<TesteurDeLots> testeur_;
};

class VisiteDeLaBase : public VisiteParCriteres {
public:
    using VisiteParCriteres::VisiteParCriteres;

    void cherche(const QByteArray& lettres) {
        qint64 total = 0;
        for (const char lettre : lettres)
            total += corpus_.compterarticles(codedelalettre(lettre));
        if (total == 0)
            return;
        commence(total);
        for (const char lettre : lettres) {
            if (!parcourt(codedelalettre(lettre)))
                break;
        }
    }

private:
    /// False when the search ends with this collection. The walk has a place of its own in the table: what goes on
    /// meanwhile cannot move it.
    bool parcourt(const QString& code) {
        code_ = code;
        QString erreur;
        const auto lignes = corpus_.base().openQuery(
            u"SELECT rowid, numart, titre, motclé1, motclé2, motclé3, Source, typededocument, Date FROM données "
            "WHERE référence=?1 ORDER BY référence, numart"_s,
            {code}, &erreur);
        if (!lignes)
            runtimeError(erreur);
        while (!lignes->eof()) {
            prend(*lignes);
            testelot(lot_);
            if (!rend())
                return false;
        }
        return true;
    }

    /// Reads the next documents. Those that fail the cheap tests leave only their count.
    void prend(Snapshot& lignes) {
        lot_.clear();
        avant_.clear();
        suite_ = 0;
        for (std::size_t lues = 0; lues < plusdelues && lot_.size() < taille_.taille() && !lignes.eof(); ++lues) {
            if (!lit(lignes)) {
                ++suite_;
            } else {
                avant_.push_back(suite_);
                suite_ = 0;
            }
            lignes.moveNext();
        }
    }

    bool lit(const Snapshot& ligne) {
        FicheCriteres fiche;
        if (!criteres_.motcle.isEmpty())
            litmotscles(fiche, ligne);
        if (criteres_.numerotype)
            fiche.type = ligne.text(Type);
        if (criteres_.datedemandee())
            fiche.date = ligne.text(Date);
        if (!teste(fiche))
            return false;
        if (criteres_.motcle.isEmpty())
            litmotscles(fiche, ligne);
        fiche.rangee = ligne.number(Rangee);
        fiche.numart = ligne.text(Numart);
        fiche.titre = ligne.text(Titre);
        if (criteres_.emplacement[Criteres::Source])
            fiche.source = ligne.text(Source);
        lot_.push_back({std::move(fiche), false});
        return true;
    }

    static void litmotscles(FicheCriteres& fiche, const Snapshot& ligne) {
        for (std::size_t i = 0; i < fiche.motcle.size(); ++i)
            fiche.motcle[i] = ligne.text(Motcle1 + static_cast<int>(i));
    }

    /// Takes the documents of the lot over one by one, as if each were tested only now.
    bool rend() {
        for (std::size_t i = 0; i < lot_.size(); ++i) {
            if (!passe(avant_[i]) || !marche_.continuer(resultat_))
                return false;
            if (*lot_[i].passe && !ajoute(lot_[i].fiche))
                return false;
            ++resultat_.vus;
        }
        return passe(suite_);
    }

    /// Counts documents that have failed.
    bool passe(qint64 nombre) {
        for (; nombre > 0; --nombre) {
            if (!marche_.continuer(resultat_))
                return false;
            ++resultat_.vus;
        }
        return true;
    }

    bool ajoute(const FicheCriteres& f) {
        const QString cle = code_ + f.numart;
        if (!resultat_.lignes.ajoute({code_, f.numart, f.titre, f.motcle[0], f.motcle[1], f.motcle[2], cle}))
            return false;
        resultat_.compte = ++resultat_.hits;
        return true;
    }

    /// How many documents are read at once where few of them pass the cheap tests.
    static constexpr std::size_t plusdelues = 4096;
    QString code_;
    std::vector<FicheTestee> lot_;
    std::vector<qint64> avant_; ///< documents that failed before each one of the lot
    qint64 suite_ = 0;          ///< documents that failed behind the last one of the lot
};

class VisiteDesLignes : public VisiteParCriteres {
public:
    using VisiteParCriteres::VisiteParCriteres;

    void affine() {
        total_ = resultat_.lignes.nombre();
        commence(total_);
        while (ilyenaencore()) {
            prend();
            testelot(lot_);
            if (!rend())
                break;
        }
        enleve();
    }

private:
    /// The rows to be removed still stand there, between those kept and those to come.
    int prochaine() const { return static_cast<int>(resultat_.hits + static_cast<qint64>(aenlever_.size())) + 1; }
    bool ilyenaencore() const { return resultat_.vus < total_ && prochaine() <= resultat_.lignes.nombre(); }

    void prend() {
        lot_.clear();
        places_.clear();
        const int premiere = prochaine();
        const auto reste = std::min(static_cast<std::size_t>(total_ - resultat_.vus),
                                    static_cast<std::size_t>(resultat_.lignes.nombre() - premiere + 1));
        while (places_.size() < reste && lot_.size() < taille_.taille()) {
            FicheCriteres fiche = lit(resultat_.lignes.cle(premiere + static_cast<int>(places_.size())));
            const bool passe = teste(fiche);
            places_.push_back(passe ? lot_.size() : tombee);
            if (passe)
                lot_.push_back({std::move(fiche), false});
        }
    }

    FicheCriteres lit(const QString& texte) const {
        Recordset& donnees = corpus_.donnees();
        const Bookmark avant = donnees.bookmark();
        if (!corpus_.rangee(decoupecle(texte)) && avant.valid())
            donnees.setBookmark(avant);
        FicheCriteres fiche;
        fiche.rangee = donnees.bookmark().row;
        fiche.titre = donnees.text(u"titre"_s);
        fiche.motcle = {donnees.text(u"motclé1"_s), donnees.text(u"motclé2"_s), donnees.text(u"motclé3"_s)};
        fiche.source = donnees.text(u"Source"_s);
        fiche.type = donnees.text(u"typededocument"_s);
        fiche.date = donnees.text(u"Date"_s);
        return fiche;
    }

    bool rend() {
        for (const std::size_t place : places_) {
            if (!continuer())
                return false;
            if (place != tombee && *lot_[place].passe)
                ++resultat_.hits;
            else
                aenlever_.push_back(prochaine());
            ++resultat_.vus;
        }
        return true;
    }

    bool continuer() {
        if (marche_.due())
            enleve();
        return marche_.continuer(resultat_, corpus_.donnees());
    }

    /// Many rows at once: one by one each would move all that follow it.
    void enleve() {
        if (aenlever_.empty())
            return;
        resultat_.lignes.supprime(aenlever_);
        aenlever_.clear();
        resultat_.compte = resultat_.lignes.nombre();
    }

    static constexpr std::size_t tombee = ~std::size_t(0);
    std::vector<FicheTestee> lot_;
    std::vector<std::size_t> places_; ///< of the rows looked at, in the lot
    std::vector<int> aenlever_;
    qint64 total_ = 0;
};

} // namespace

void TailleDeLot::apres(std::chrono::steady_clock::duration duree) {
    using std::chrono::milliseconds;
    if (duree > milliseconds(6))
        taille_ = std::max<std::size_t>(taille_ / 2, 1);
    else if (duree < milliseconds(3))
        taille_ = std::min(taille_ * 2, plusgrande);
}

void RechercheCriteres::cherche(Criteres& criteres, const TypesDocument& types, const QByteArray& lettres,
                                Resultat& resultat) {
    resultat.commence();
    VisiteDeLaBase(corpus_, marche_, resultat, criteres, types, sanstable_).cherche(lettres);
}

void RechercheCriteres::affine(Criteres& criteres, const TypesDocument& types, Resultat& resultat) {
    resultat.commence();
    VisiteDesLignes(corpus_, marche_, resultat, criteres, types, sanstable_).affine();
}

} // namespace velm
