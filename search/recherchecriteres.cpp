#include "search/recherchecriteres.h"

#include "core/listes.h"
#include "platform/base/failure.h"
#include "search/renfort.h"
#include "search/typescherches.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;
using Horloge = std::chrono::steady_clock;

/// Columns of the walk.
enum Colonne { Rangee, Numart, Titre, Motcle1, Motcle2, Motcle3, Source, Type, Date };

/// What both ways of searching share. It holds all that it works on, as another search may begin while it lets events
/// through.
class Parcours {
public:
    Parcours(const Atelier& atelier, const std::function<void(qint64, qint64)>& progres, const std::stop_token& arret,
             ResultatCriteres& resultat, Criteres& criteres, const TypesDocument& types, bool sanstable)
        : atelier_(atelier), progres_(progres), arret_(arret), resultat_(resultat) {
        avancetexte(criteres);
        criteres_ = litcriteres(criteres, types);
        criteres_.sanstable = sanstable;
    }

protected:
    void commence(qint64 total) {
        total_ = total;
        atelier_.liste.mot1 = criteres_.textes[0];
        atelier_.liste.mot2 = criteres_.textes[1];
        progres_(0, total_);
        // A table that the base lacks is found missing here, as everywhere.
        atelier_.corpus.donnees().setIndex(u"primarykey"_s);
        renfort_.emplace(atelier_.corpus.base(), criteres_);
    }

    bool teste(const FicheCriteres& fiche) const { return testefiche(criteres_, fiche); }

    /// Tests the texts of the documents of a lot that have passed everything else.
    void testelot(std::vector<FicheTestee>& lot) {
        const auto debut = Horloge::now();
        renfort_->traite(lot);
        taille_.apres(Horloge::now() - debut);
        for (FicheTestee& testee : lot) {
            if (!testee.passe)
                testee.passe = illisible(testee.fiche);
        }
    }

    bool due() const { return atelier_.cession.due(); }
    void ditprogres() const { progres_(std::min(resultat_.vus, total_), total_); }
    void ditcompte(qint64 nombre) const { atelier_.curseurattente(textecompte(nombre, atelier_.texte)); }

    const Atelier& atelier_;
    const std::function<void(qint64, qint64)>& progres_;
    const std::stop_token arret_;
    ResultatCriteres& resultat_;
    CriteresLus criteres_;
    TailleDeLot taille_;
    qint64 total_ = 0;

private:
    /// The table says what is wrong with a body that cannot be read, in a run-time error.
    bool illisible(const FicheCriteres& fiche) {
        Recordset& donnees = atelier_.corpus.donnees();
        donnees.setBookmark({fiche.rangee});
        static_cast<void>(donnees.bytes(u"contenu"_s));
        LecteurDeCorps lecteur(atelier_.corpus.base(), criteres_);
        const std::optional<bool> passe = testetextes(criteres_, fiche, lecteur);
        if (!passe)
            runtimeError(u"données_contenu"_s);
        return *passe;
    }

    std::optional<Renfort> renfort_;
};

class ParcoursTable : public Parcours {
public:
    using Parcours::Parcours;

    void cherche(const QByteArray& lettres) {
        qint64 total = 0;
        for (const char lettre : lettres)
            total += atelier_.corpus.compterarticles(codedelalettre(lettre));
        if (total == 0)
            return;
        commence(total);
        for (const char lettre : lettres) {
            if (!parcourt(codedelalettre(lettre)))
                break;
        }
        if (resultat_.hits > 0)
            ditcompte(resultat_.hits);
    }

private:
    /// False when the search ends with this collection. The walk has a place of its own in the table: what goes on
    /// meanwhile cannot move it.
    bool parcourt(const QString& code) {
        code_ = code;
        QString erreur;
        const auto lignes = atelier_.corpus.base().openQuery(
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

    /// Document by document, as if each were tested only now.
    bool rend() {
        for (std::size_t i = 0; i < lot_.size(); ++i) {
            if (!passe(avant_[i]))
                return false;
            if (!continuer())
                return false;
            if (*lot_[i].passe && !ajoute(lot_[i].fiche))
                return false;
            ++resultat_.vus;
        }
        return passe(suite_);
    }

    /// Documents that have failed.
    bool passe(qint64 nombre) {
        for (; nombre > 0; --nombre) {
            if (!continuer())
                return false;
            ++resultat_.vus;
        }
        return true;
    }

    bool continuer() {
        if (due()) {
            ditprogres();
            if (resultat_.hits > 0)
                ditcompte(resultat_.hits);
            atelier_.cession.cede(arret_);
        }
        resultat_.arretee = arret_.stop_requested();
        return !resultat_.arretee;
    }

    bool ajoute(const FicheCriteres& f) {
        const QString cle = code_ + f.numart;
        if (atelier_.liste.ajouteauflex({code_, f.numart, f.titre, f.motcle[0], f.motcle[1], f.motcle[2], cle}) != 0)
            return false;
        ++resultat_.hits;
        return true;
    }

    /// How many documents are read at once where few of them pass the cheap tests.
    static constexpr std::size_t plusdelues = 4096;
    QString code_;
    std::vector<FicheTestee> lot_;
    std::vector<qint64> avant_; ///< documents that failed before each one of the lot
    qint64 suite_ = 0;          ///< and behind the last
};

class ParcoursListe : public Parcours {
public:
    using Parcours::Parcours;

    void affine() {
        commence(atelier_.liste.lignes());
        reste_ = atelier_.liste.lignes();
        while (ilyenaencore()) {
            prend();
            testelot(lot_);
            if (!rend())
                break;
        }
        enleve();
    }

private:
    /// The rows to be removed still stand in the list, between those kept and those to come.
    int prochaine() const { return static_cast<int>(resultat_.hits + static_cast<qint64>(aenlever_.size())) + 1; }
    bool ilyenaencore() const { return resultat_.vus < total_ && prochaine() <= atelier_.liste.lignes(); }

    void prend() {
        lot_.clear();
        places_.clear();
        const int premiere = prochaine();
        const auto reste = std::min(static_cast<std::size_t>(total_ - resultat_.vus),
                                    static_cast<std::size_t>(atelier_.liste.lignes() - premiere + 1));
        while (places_.size() < reste && lot_.size() < taille_.taille()) {
            FicheCriteres fiche = lit(atelier_.liste.cle(premiere + static_cast<int>(places_.size())));
            const bool passe = teste(fiche);
            places_.push_back(passe ? lot_.size() : tombee);
            if (passe)
                lot_.push_back({std::move(fiche), false});
        }
    }

    FicheCriteres lit(const QString& texte) const {
        Recordset& donnees = atelier_.corpus.donnees();
        const Bookmark avant = donnees.bookmark();
        if (!atelier_.corpus.rangee(decoupecle(texte)) && avant.valid())
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
        if (due()) {
            enleve();
            ditprogres();
            atelier_.cession.cede(atelier_.corpus.donnees(), arret_);
        }
        resultat_.arretee = arret_.stop_requested();
        return !resultat_.arretee;
    }

    /// Many rows at once: one by one each would move all that follow it.
    void enleve() {
        if (aenlever_.empty())
            return;
        atelier_.liste.supprime(aenlever_);
        reste_ -= static_cast<qint64>(aenlever_.size());
        aenlever_.clear();
        ditcompte(reste_);
    }

    static constexpr std::size_t tombee = ~std::size_t(0);
    std::vector<FicheTestee> lot_;
    std::vector<std::size_t> places_; ///< of the rows looked at, in the lot
    std::vector<int> aenlever_;
    qint64 reste_ = 0;
};

} // namespace

void TailleDeLot::apres(std::chrono::steady_clock::duration duree) {
    using std::chrono::milliseconds;
    if (duree > milliseconds(6))
        taille_ = std::max<std::size_t>(taille_ / 2, 1);
    else if (duree < milliseconds(3))
        taille_ = std::min(taille_ * 2, plusgrande);
}

RechercheCriteres::RechercheCriteres(Atelier atelier, std::function<void(qint64, qint64)> progres)
    : atelier_(std::move(atelier)), progres_(std::move(progres)) {
    if (!progres_)
        progres_ = [](qint64, qint64) {};
}

ResultatCriteres RechercheCriteres::cherche(Criteres& criteres, const TypesDocument& types, const QByteArray& lettres,
                                            const std::stop_token& arret) {
    ResultatCriteres resultat;
    atelier_.cession.commence();
    commenceliste(atelier_);
    ParcoursTable(atelier_, progres_, arret, resultat, criteres, types, sanstable_).cherche(lettres);
    resultat.fin = finitliste(atelier_);
    return resultat;
}

ResultatCriteres RechercheCriteres::affine(Criteres& criteres, const TypesDocument& types,
                                           const std::stop_token& arret) {
    ResultatCriteres resultat;
    atelier_.cession.commence();
    atelier_.liste.visible = false;
    ParcoursListe(atelier_, progres_, arret, resultat, criteres, types, sanstable_).affine();
    resultat.fin = finitliste(atelier_);
    return resultat;
}

} // namespace velm
