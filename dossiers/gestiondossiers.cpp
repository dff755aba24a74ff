#include "dossiers/gestiondossiers.h"

#include "dossiers/libellecompte.h"

#include <algorithm>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

GestionDossiers::GestionDossiers(const Donnees& donnees)
    : donnees_(donnees), arbre_(donnees.magasin, donnees.noeuds, donnees.sablier, donnees.texte(Texte::MesDossiers)),
      contenu_(donnees.magasin, donnees.elements, donnees.texte(Texte::MotExtrait)),
      avis_(donnees.dialogues, donnees.texte) {}

bool GestionDossiers::charge(bool developpe) {
    const Obstacle etat = donnees_.magasin.etat();
    if (etat != Obstacle::None && etat != Obstacle::Damaged)
        return reussi({etat, {}}, Texte::DossiersPasLus);
    if (etat == Obstacle::Damaged)
        avis_.endommage(donnees_.magasin.derniercopie());
    if (!litarbre())
        return false;
    donnees_.elements.clear();
    commandes_ = {};
    montrecommandes();
    if (developpe)
        toutdevelopper();
    return true;
}

/// The next number goes on from where this window stands.
void GestionDossiers::recharge(bool developpe) {
    lit([this] { arbre_.chargearbre(); });
    if (developpe)
        toutdevelopper();
    donnees_.noeuds.select(donnees_.noeuds.childAt(0, 0));
    noeudclique(choisi());
}

void GestionDossiers::permet() {
    permetselonfreres();
    permetcontenu();
}

bool GestionDossiers::enregistre() {
    return !arbre_.modifie() || reussi(arbre_.Sauvearbre(), Texte::DossiersPasEnregistres);
}

/// What can be had of a damaged one is shown.
bool GestionDossiers::litarbre() {
    const bool sain = donnees_.magasin.sain();
    if (!lit([this] { arbre_.litprochainnumero(); }) && sain)
        return false;
    return lit([this] { arbre_.chargearbre(); }) || !sain;
}

void GestionDossiers::active(const ElementEnAttente& attente) {
    attente_ = attente;
    if (!attend())
        return;
    toutdevelopper();
    sourcedeliste_ = true;
    contenu_.ajouteenattente(attente_);
    donnees_.elements.select(donnees_.elements.count());
    donnees_.vue.montreattente(attente_);
}

void GestionDossiers::renonce() {
    attente_ = {};
    donnees_.vue.montrecible(0);
    donnees_.vue.montreattente(attente_);
}

// ---- selecting

/// A label that is being edited keeps the selection where it is.
bool GestionDossiers::retient() {
    if (editionnoeud_) {
        donnees_.noeuds.select(indexnoeud_);
    } else if (editionliste_) {
        donnees_.elements.select(indexliste_);
        donnees_.vue.focusliste();
    }
    return editionnoeud_ || editionliste_;
}

void GestionDossiers::noeudclique(int noeud) {
    if (retient() || noeud == 0)
        return;
    donnees_.vue.montrecible(0);
    permetselonfreres();
    lit([&] { contenu_.liste(arbre_.numero(noeud)); });
    permetcontenu();
}

void GestionDossiers::permetselonfreres() {
    commandes_.selonnoeud(arbre_, donnees_.noeuds);
    montrecommandes();
}

void GestionDossiers::permetcontenu() {
    commandes_.contenu = donnees_.elements.count() != 0;
    montrecommandes();
}

void GestionDossiers::permetselonliste() {
    commandes_.selonliste(donnees_.elements);
    montrecommandes();
}

void GestionDossiers::arbrefocus() {
    sourcedeliste_ = false;
    permetselonfreres();
}

void GestionDossiers::listefocus() {
    sourcedeliste_ = true;
    permetselonliste();
}

void GestionDossiers::elementclique(int index) {
    if (retient())
        return;
    sourcedeliste_ = true;
    donnees_.elements.noteSelected(index);
    if (donnees_.elements.count() == 0)
        commandes_.sanselement();
    permetselonliste();
}

// ---- commands

void GestionDossiers::ajouter() {
    const int parent = choisi();
    if (parent == 0 || !commandes_.ajouter)
        return;
    int noeud = 0;
    if (!lit([&] { noeud = arbre_.ajoute(parent, QString()); }))
        return;
    noeudclique(noeud);
    donnees_.vue.editenoeud(noeud);
}

void GestionDossiers::renommer() {
    const int index = donnees_.elements.selected();
    if (sourcedeliste_ && index != 0) {
        donnees_.vue.focusliste();
        editionliste_ = true;
        indexliste_ = index;
        donnees_.elements.setText(index, contenu_.titrenu(index));
        donnees_.vue.editeelement(index);
        return;
    }
    const int noeud = choisi();
    if (noeud == 0 || arbre_.estracine(noeud))
        return;
    arbre_.commencerenommage(noeud);
    editionnoeud_ = true;
    indexnoeud_ = noeud;
    donnees_.vue.editenoeud(noeud);
    // The label that is edited is bare. What is confirmed replaces all of the text, and the count is lost by it.
    arbre_.remetcompteur(noeud);
}

bool GestionDossiers::avanteditionnoeud(int noeud) {
    if (!arbre_.estracine(noeud))
        return true;
    editionnoeud_ = false;
    return false;
}

void GestionDossiers::apreseditionnoeud() {
    arbre_.notemodifie();
    if (std::exchange(editionnoeud_, false))
        donnees_.noeuds.select(indexnoeud_);
}

void GestionDossiers::apreseditionliste(QString texte) {
    if (!std::exchange(editionliste_, false))
        return;
    donnees_.elements.select(indexliste_);
    const QString avant = donnees_.elements.text(indexliste_);
    QString montre = texte;
    if (!reussi(contenu_.renomme(indexliste_, montre).echec, Texte::DossiersPasModifies))
        montre = avant + contenu_.suffixe(extraitdelacle(donnees_.elements.key(indexliste_)));
    donnees_.elements.setText(indexliste_, montre);
}

void GestionDossiers::supprimer() {
    if (sourcedeliste_ && donnees_.elements.selected() != 0)
        supprimerelement();
    else if (const int noeud = choisi(); noeud != 0 && !arbre_.estracine(noeud))
        supprimernoeud();
}

void GestionDossiers::supprimerelement() {
    const int index = donnees_.elements.selected();
    const ContenuDossier::Fait fait = contenu_.supprime(index, arbre_.numero(choisi()));
    if (!reussi(fait.echec, Texte::DossiersPasModifies) || !fait.trouve)
        return;
    arbre_.modifierelements(choisi(), -1);
    // The next one can be deleted by the same key.
    donnees_.elements.select(std::min(index, donnees_.elements.count()));
    commandes_.sanselement();
    permetselonliste();
    permetcontenu();
}

void GestionDossiers::supprimernoeud() {
    const int noeud = choisi();
    const bool marque = arbre_.porte(noeud, u'S');
    if (!marque && donnees_.noeuds.children(noeud) != 0 && !arbre_.testearticle(noeud) &&
        !avis_.veutsupprimer(sanscompteur(donnees_.noeuds.text(noeud))))
        return;
    arbre_.marquersuppression(noeud, !marque);
    noeudclique(noeud);
}

void GestionDossiers::toutdevelopper() {
    const Attente attente(donnees_.sablier);
    lit([this] { arbre_.toutdevelopper(); });
}

void GestionDossiers::developpe(int noeud) {
    lit([&] { arbre_.developpe(noeud); });
}

void GestionDossiers::toutreduire() {
    arbre_.toutreduire();
}

void GestionDossiers::change(int pas) {
    if (sourcedeliste_)
        changeelement(pas);
    else
        changenoeud(pas);
}

void GestionDossiers::changeelement(int pas) {
    const ListItems& elements = donnees_.elements;
    const int index = elements.selected();
    if (index != 0 && elements.contains(index + pas))
        reussi(contenu_.echange(index, index + pas).echec, Texte::DossiersPasModifies);
    permetselonliste();
}

void GestionDossiers::changenoeud(int pas) {
    if (choisi() == 0)
        return;
    const int nouveau = pas < 0 ? arbre_.monte(choisi()) : arbre_.descend(choisi());
    if (nouveau != 0)
        noeudclique(nouveau);
}

// ---- dragging

bool GestionDossiers::peuttirernoeud() const {
    return choisi() != 0 && !arbre_.estracine(choisi());
}

bool GestionDossiers::peutdeposer(int cible) const {
    return donnees_.noeuds.contains(cible) && !arbre_.porte(cible, u'S');
}

void GestionDossiers::depose(int cible) {
    if (std::exchange(editionnoeud_, false) || std::exchange(editionliste_, false))
        return;
    donnees_.vue.montrecible(0);
    if (!peutdeposer(cible))
        return;
    if (attend())
        rangeattente(cible);
    else if (sourcedeliste_)
        deplaceelement(cible);
    else
        deplacenoeud(cible);
}

void GestionDossiers::deplacenoeud(int cible) {
    if (noeuddeplace_ == 0 || cible == noeuddeplace_)
        return;
    if (arbre_.deplace(noeuddeplace_, cible))
        permetselonfreres();
    else
        avis_.deplacementrefuse();
}

void GestionDossiers::rangeattente(int cible) {
    if (!reussi(contenu_.range(attente_, arbre_.numero(cible)), Texte::DossiersPasModifies))
        return;
    arbre_.modifierelements(cible, 1);
    donnees_.elements.remove(donnees_.elements.selected());
    arbre_.notemodifie();
    renonce();
    // The dossier whose items are shown shows the new one, too.
    if (cible == choisi())
        noeudclique(cible);
}

void GestionDossiers::deplaceelement(int cible) {
    const int index = donnees_.elements.selected();
    if (index == 0)
        return;
    if (!reussi(contenu_.deplace(index, arbre_.numero(cible), arbre_.numero(choisi())).echec,
                Texte::DossiersPasModifies))
        return;
    arbre_.modifierelements(choisi(), -1);
    arbre_.modifierelements(cible, 1);
    arbre_.notemodifie();
    permetselonliste();
    permetcontenu();
}

// ---- the end

bool GestionDossiers::ferme(bool sansquestion) {
    if (std::exchange(editionnoeud_, false))
        arbre_.notemodifie();
    // A title that is being edited when the window closes is emptied.
    if (editionliste_)
        apreseditionliste(QString());
    if (!arbre_.modifie())
        return true;
    const EchecEcriture echec = arbre_.Sauvearbre();
    if (echec.ok() || sansquestion)
        return true;
    return avis_.veutfermer(echec);
}

/// Reads of the store; where that fails, it is told. Of one that is damaged it was told at the beginning.
bool GestionDossiers::lit(const std::function<void()>& travail) {
    const EchecEcriture echec = donnees_.magasin.lit(travail);
    return echec.ok() || !donnees_.magasin.sain() ? echec.ok() : reussi(echec, Texte::DossiersPasLus);
}

/// Tells why a change was not made, and, once, that today's copy was not.
bool GestionDossiers::reussi(const EchecEcriture& echec, Texte message) {
    if (!echec.ok())
        avis_.manque(message, echec);
    else if (donnees_.magasin.copiemanquee() && !std::exchange(copiedite_, true))
        donnees_.vue.ditcopiemanquee();
    return echec.ok();
}

} // namespace velm
