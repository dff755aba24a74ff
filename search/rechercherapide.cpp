#include "search/rechercherapide.h"

#include "core/listes.h"
#include "platform/base/failure.h"
#include "search/remplacecodes.h"
#include "search/texteenmajuscules.h"
#include "search/typescherches.h"

#include <QHash>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

/// Columns of the walk.
enum Colonne { Reference, Numart, Titre, Motcle1, Motcle2, Motcle3, Noeud };

/// One search. It holds all that it works on, as another one may begin while it lets events through.
class Parcoursrapide {
public:
    Parcoursrapide(const Atelier& atelier, const std::function<void(qint64, qint64)>& progres,
                   const DemandeRapide& demande, const std::stop_token& arret, ResultatRapide& resultat)
        : atelier_(atelier), progres_(progres), demande_(demande), arret_(arret), resultat_(resultat) {}

    void cherche() {
        for (const char lettre : demande_.lettres)
            total_ += atelier_.corpus.compterarticles(codedelalettre(lettre));
        if (total_ == 0)
            return;
        const QString texte = remplacecodes(demande_.texte);
        atelier_.liste.mot1 = texte;
        atelier_.liste.mot2 = QString();
        cherche_ = TexteEnMajuscules(texte);
        progres_(0, total_);
        // Tables that the base lacks are found missing here, as everywhere.
        atelier_.corpus.donnees().setIndex(u"primarykey"_s);
        atelier_.corpus.arborescences().setIndex(u"primarykey"_s);
        for (const char lettre : demande_.lettres) {
            if (!parcourt(codedelalettre(lettre)))
                break;
        }
        if (resultat_.hits > 0)
            ditcompte();
    }

private:
    /// False when the search ends with this collection.
    bool parcourt(const QString& code) {
        QString erreur;
        const auto lignes = atelier_.corpus.base().openQuery(
            u"SELECT référence, numart, titre, motclé1, motclé2, motclé3, numeroarborescence FROM données "
            "WHERE référence=?1 ORDER BY référence, numart"_s,
            {code}, &erreur);
        if (!lignes)
            runtimeError(erreur);
        for (; !lignes->eof(); lignes->moveNext()) {
            if (!continuer()) {
                resultat_.arretee = true;
                return false;
            }
            if (!regarde(*lignes))
                return false;
            ++resultat_.vus;
        }
        return true;
    }

    /// The walk has a place of its own in the table: what goes on meanwhile cannot move it.
    bool continuer() {
        if (!atelier_.cession.due())
            return !arret_.stop_requested();
        progres_(std::min(resultat_.vus, total_), total_);
        if (resultat_.hits > 0)
            ditcompte();
        return atelier_.cession.cede(arret_);
    }

    /// False when the list is full, in whatever way.
    bool regarde(const Snapshot& ligne) {
        if (!estdans(ligne))
            return true;
        const QString reference = ligne.text(Reference);
        const QString numart = ligne.text(Numart);
        const QString cle = reference + numart;
        if (atelier_.liste.ajouteauflex({reference, numart, ligne.text(Titre), ligne.text(Motcle1), ligne.text(Motcle2),
                                         ligne.text(Motcle3), cle}) != 0)
            return false;
        return ++resultat_.hits != demande_.limite;
    }

    bool estdans(const Snapshot& ligne) {
        for (const int colonne : {Titre, Motcle1, Motcle2, Motcle3}) {
            const auto utf8 = ligne.utf8(colonne);
            if (utf8 ? cherche_.estdans(*utf8) : cherche_.estdans(QStringView(ligne.text(colonne))))
                return true;
        }
        const qint64 noeud = ligne.number(Noeud);
        return noeud != 0 && estdansnoeud(noeud);
    }

    /// Many documents hang on one node: it is read once.
    bool estdansnoeud(qint64 noeud) {
        const auto connu = noeuds_.constFind(noeud);
        if (connu != noeuds_.constEnd())
            return *connu;
        Recordset& arbre = atelier_.corpus.arborescences();
        arbre.setIndex(u"primarykey"_s);
        arbre.seek(Seek::Equal, noeud);
        const bool la = !arbre.noMatch() && cherche_.estdans(QStringView(arbre.text(u"typededonnées"_s)));
        noeuds_.insert(noeud, la);
        return la;
    }

    void ditcompte() const { atelier_.curseurattente(textecompte(resultat_.hits, atelier_.texte)); }

    const Atelier& atelier_;
    const std::function<void(qint64, qint64)>& progres_;
    const DemandeRapide demande_;
    const std::stop_token arret_;
    ResultatRapide& resultat_;
    TexteEnMajuscules cherche_{QStringView()};
    QHash<qint64, bool> noeuds_;
    qint64 total_ = 0;
};

} // namespace

RechercheRapide::RechercheRapide(Atelier atelier, std::function<void(qint64, qint64)> progres)
    : atelier_(std::move(atelier)), progres_(std::move(progres)) {
    if (!progres_)
        progres_ = [](qint64, qint64) {};
}

ResultatRapide RechercheRapide::cherche(const DemandeRapide& demande, const std::stop_token& arret) {
    ResultatRapide resultat;
    atelier_.cession.commence();
    commenceliste(atelier_);
    Parcoursrapide(atelier_, progres_, demande, arret, resultat).cherche();
    resultat.fin = finitliste(atelier_);
    return resultat;
}

} // namespace velm
