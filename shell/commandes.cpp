#include "shell/commandes.h"

#include "core/fenetrefille.h"
#include "core/tablereglages.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/controleliste.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/fenetredossiers.h"
#include "shell/fenetresannexes.h"
#include "shell/fenetreslistes.h"
#include "shell/impressions.h"
#include "shell/logique/commandes.h"
#include "shell/logique/placesdesbarres.h"
#include "shell/recherches.h"
#include "shell/zoomtextes.h"

#include <QApplication>
#include <QMdiSubWindow>

namespace velm {

Commandes::Commandes(const Acteurs& acteurs) : acteurs_(acteurs) {
    apprendfenetres();
    apprendcadre();
    apprendlistes();
    apprenddispositions();
    apprendbarres();
    apprendliste();
    apprendprogramme();
    connect(&acteurs_.actions, &Actions::commande, this, &Commandes::fait);
}

bool Commandes::fait(Ordre ordre, int rang) {
    if (!sait(ordre))
        return false;
    faits_.at(static_cast<std::size_t>(ordre))(rang);
    return true;
}

/// Commands that need a window go to the active one (`fait`), but for those about which the frame knows more.
void Commandes::apprendfenetres() {
    Bureau& bureau = acteurs_.bureau;
    for (const LigneCommande& ligne : commandes()) {
        if (ligne.besoin != Besoin::Fenetre)
            continue;
        sur(ligne.ordre, [&bureau, ordre = ligne.ordre](int) {
            if (FenetreFille* devant = bureau.devant())
                devant->fait(ordre);
        });
    }
    sur(Ordre::ToutSelectionner, [this](int) { toutselectionner(); });
    Impressions& impressions = acteurs_.impressions;
    for (const Ordre ordre : {Ordre::Imprimer, Ordre::ImprimerPage, Ordre::Ejections})
        sur(ordre, [&impressions](int) { impressions.imprimer(); });
    sur(Ordre::EjecterPage, [&impressions](int) { impressions.terminer(); });
    sur(Ordre::AbandonnerTravail, [&impressions](int) { impressions.abandonner(); });
    sur(Ordre::ConfigurerImprimante, [&impressions](int) { impressions.configurer(); });
    sur(Ordre::Apercu, [&impressions](int) { impressions.apercu(); });
    sur(Ordre::Chercher, [this](int) { acteurs_.annexes.montrerecherche(); });
}

void Commandes::apprendcadre() {
    Bureau& bureau = acteurs_.bureau;
    // The button itself has rank 0 and goes one step; the entries at its side count from 1.
    const auto pas = [&bureau](Sens sens) {
        return [&bureau, sens](int rang) { bureau.navigation().pas(sens, rang); };
    };
    sur(Ordre::Precedent, pas(Sens::Arriere));
    sur(Ordre::Suivant, pas(Sens::Avant));
    sur(Ordre::DernierDocument, [&bureau](int rang) {
        const QString cle = bureau.navigation().derniersdocuments().at(static_cast<std::size_t>(rang));
        bureau.navigation().ouvre(decoupecle(cle), {.replier = true});
    });
    sur(Ordre::UneFenetre, [this](int) { changeunefenetre(!acteurs_.bureau.navigation().unefenetre()); });
}

/// The index has a slot behind those of the collections, and is no document window.
void Commandes::apprendlistes() {
    Bureau& bureau = acteurs_.bureau;
    FenetresListes& listes = acteurs_.listes;
    for (const Ordre ordre : {Ordre::Index, Ordre::Chrono, Ordre::Numero, Ordre::MotCle})
        sur(ordre, [&listes, ordre](int) { listes.bascule(ordre); });
    sur(Ordre::Collection, [&bureau, &listes](int rang) {
        if (rang < nombredecollections)
            bureau.basculeslot(rang);
        else
            listes.bascule(Ordre::Index);
    });
    sur(Ordre::Fenetre, [&bureau, &listes](int rang) {
        if (rang < nombredecollections)
            bureau.amene(rang);
        else
            listes.amene(Ordre::Index);
    });
}

void Commandes::apprenddispositions() {
    Bureau& bureau = acteurs_.bureau;
    ZoomTextes& zoom = acteurs_.zoom;
    const auto arrange = [&bureau](ChildArea::Arrangement disposition) {
        return [&bureau, disposition](int) { bureau.arrange(disposition); };
    };
    sur(Ordre::Cascade, arrange(ChildArea::Arrangement::Cascade));
    sur(Ordre::Horizontalement, arrange(ChildArea::Arrangement::TileHorizontal));
    sur(Ordre::Verticalement, arrange(ChildArea::Arrangement::TileVertical));
    sur(Ordre::FenetreSuivante, [this](int) { acteurs_.ecran.pieces().aire.walk(true); });
    sur(Ordre::ToutFermer, [this](int) { toutferme(); });
    sur(Ordre::ZoomAgrandir, [&zoom](int) { zoom.pas(1); });
    sur(Ordre::ZoomReduire, [&zoom](int) { zoom.pas(-1); });
    sur(Ordre::ZoomNormal, [&zoom](int) { zoom.normal(); });
}

void Commandes::apprendbarres() {
    for (const Barre barre : toutesbarres)
        sur(ordredeplace(barre), [this, barre](int position) { placebarre(barre, position); });
    sur(Ordre::BarreEcran, [this](int) { basculebarre(Barre::Ecran); });
    sur(Ordre::BarreOutils, [this](int) { basculebarre(Barre::Outils); });
    sur(Ordre::BarreEtat, [this](int) { commutebarreetat(); });
}

void Commandes::apprendliste() {
    Actions& actions = acteurs_.actions;
    ControleListe& liste = acteurs_.liste;
    Recherches& recherches = acteurs_.recherches;
    sur(Ordre::Rechercher,
        [&actions, &liste](int) { liste.affichemenuselection(!actions.estcochee(Ordre::Rechercher)); });
    sur(Ordre::MontrerSelection, [&liste](int) { liste.affichemenuselection(true); });
    sur(Ordre::AllerChercher, [this](int) { vachercher(); });
    sur(Ordre::AfficherCriteres, [&recherches](int) { recherches.bascule(); });
    sur(Ordre::Regrouper, [this](int) { regroupe(!acteurs_.actions.estcochee(Ordre::Regrouper)); });
    sur(Ordre::PrecedentRecherche, [&liste](int) { liste.precedentrecherche(); });
    sur(Ordre::SuivantRecherche, [&liste](int) { liste.suivantrecherche(); });
    sur(Ordre::OuvrirCriteres, [&recherches](int) { recherches.ouvrircriteres(); });
    sur(Ordre::SauverCriteres, [&recherches](int) { recherches.sauvercriteres(); });
    sur(Ordre::ImprimerCriteres, [&liste](int) { liste.imprime(); });
    sur(Ordre::EnvoyerCriteres, [&recherches](int) { recherches.envoyercriteres(); });
    sur(Ordre::OuvrirLignes, [&liste](int) { liste.ouvre(); });
    sur(Ordre::SupprimerLignes, [&liste](int) { liste.supprime(); });
    sur(Ordre::ImprimerLignes, [&liste](int) { liste.imprime(); });
}

void Commandes::apprendprogramme() {
    FenetresAnnexes& annexes = acteurs_.annexes;
    sur(Ordre::Astuce, [&annexes](int) { annexes.astuce(); });
    sur(Ordre::Dossiers, [this](int) { acteurs_.dossiers.montre(); });
    sur(Ordre::Aide, [this](int) { acteurs_.aide(); });
    sur(Ordre::APropos, [&annexes](int) { annexes.montreapropos(); });
    sur(Ordre::Partenaires, [&annexes](int) { annexes.montrepartenaires(); });
    sur(Ordre::Quitter, [this](int) { acteurs_.quitte(); });
}

void Commandes::toutferme() {
    // A maximised window that closes hands its state on to the next one: what they are is written before any closes.
    for (Textes* ouverte : acteurs_.bureau.fenetres())
        ouverte->decharge();
    const ChildArea& aire = acteurs_.ecran.pieces().aire;
    for (QWidget* fille : aire.children()) {
        if (QMdiSubWindow* autour = aire.around(fille); autour && !autour->isHidden())
            autour->close();
    }
}

void Commandes::vachercher() {
    const QWidget* formulaire = acteurs_.recherches.formulaire();
    const bool deja = formulaire && formulaire->isAncestorOf(QApplication::focusWidget());
    acteurs_.liste.affichemenuselection(!deja);
    if (!deja)
        acteurs_.recherches.montre(true);
}

/// In the list that has the focus, or else in the active window.
void Commandes::toutselectionner() {
    if (FlexGrid* grille = FlexGrid::withFocus())
        grille->selectAll();
    else if (FenetreFille* devant = acteurs_.bureau.devant())
        devant->fait(Ordre::ToutSelectionner);
}

void Commandes::placebarre(Barre barre, int position) {
    acteurs_.barres.place(barre, position);
    acteurs_.ecran.placebarre(barre, acteurs_.barres.position(barre));
}

void Commandes::basculebarre(Barre barre) {
    placebarre(barre, acteurs_.barres.visible(barre) ? 0 : acteurs_.barres.dernierposition(barre));
}

void Commandes::commutebarreetat() {
    acteurs_.barres.commuteetat();
    acteurs_.ecran.montrebarreetat(acteurs_.barres.etat());
}

void Commandes::changeunefenetre(bool une) {
    acteurs_.reglages.ecrit(reglage::multifenetre, une ? 1 : 0);
    acteurs_.bureau.navigation().changeunefenetre(une);
    acteurs_.actions.coche(Ordre::UneFenetre, une);
}

void Commandes::regroupe(bool regroupees) {
    acteurs_.actions.coche(Ordre::Regrouper, regroupees);
    acteurs_.liste.regroupe(regroupees);
}

} // namespace velm
