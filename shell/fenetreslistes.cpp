#include "shell/fenetreslistes.h"

#include "core/tablereglages.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/look/icons.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/fenetrechrono.h"
#include "shell/fenetreindex.h"
#include "shell/fenetremotcle.h"
#include "shell/fenetrenumero.h"
#include "shell/logique/commandes.h"
#include "shell/selection.h"

#include <QMdiSubWindow>

namespace velm {

FenetresListes::FenetresListes(const Donnees& donnees) : donnees_(donnees) {}

/// The place of a list in `fenetres_`, and of its lines among the settings.
int FenetresListes::rang(Ordre ordre) {
    constexpr std::array listes{Ordre::Index, Ordre::Chrono, Ordre::Numero, Ordre::MotCle};
    return static_cast<int>(std::ranges::find(listes, ordre) - listes.begin());
}

QWidget* FenetresListes::fenetre(Ordre ordre) const {
    return fenetres_.at(static_cast<std::size_t>(rang(ordre)));
}

/// A new window; the desk has it, hidden. It tells by ferme() that it closes.
QWidget* FenetresListes::fait(Ordre ordre) {
    const auto liste = [this, ordre](FenetreListe* nouvelle) {
        connect(nouvelle, &FenetreListe::fermee, this, [this, ordre] { ferme(ordre); });
        // Before the desk has it: its frame in the area takes the icon over only then.
        nouvelle->setWindowIcon(icon(imagede(ordre, 0)));
        donnees_.bureau.ajoute(*nouvelle, *nouvelle);
        return nouvelle;
    };
    switch (ordre) {
    case Ordre::Index:
        return liste(new FenetreIndex(contexte(ordre)));
    case Ordre::Chrono:
        return liste(new FenetreChrono(contexte(ordre)));
    case Ordre::Numero:
        return liste(new FenetreNumero(contexte(ordre)));
    case Ordre::MotCle:
        return liste(new FenetreMotcle(contextemotcle(), donnees_.corpus));
    default:
        return nullptr;
    }
}

void FenetresListes::bascule(Ordre ordre) {
    QWidget* la = fenetre(ordre);
    if (!la)
        return ouvre(ordre);
    ChildArea& aire = donnees_.aire;
    const bool reduite = aire.stateOf(la) == ChildArea::Minimised;
    const bool devant = aire.activeChild() == la && !reduite;
    if (ordre == Ordre::Index) {
        const bool montree = reduite || !donnees_.actions.estcochee(ordre);
        if (montree)
            aire.activate(la);
        else
            aire.hideChild(la);
        ditouverte(ordre, montree);
    } else if (devant) {
        aire.around(la)->close();
    } else {
        amene(ordre);
    }
}

void FenetresListes::amene(Ordre ordre) {
    if (QWidget* la = fenetre(ordre)) {
        donnees_.aire.activate(la);
        ditouverte(ordre, true);
    }
}

void FenetresListes::ouvre(Ordre ordre) {
    QWidget* nouvelle = fait(ordre);
    if (!nouvelle)
        return;
    const int liste = rang(ordre);
    fenetres_.at(static_cast<std::size_t>(liste)) = nouvelle;
    donnees_.aire.place(nouvelle, lu(reglage::listeetat[liste]), lu(reglage::listegauche[liste]),
                        lu(reglage::listehaut[liste]), lu(reglage::listelargeur[liste]),
                        lu(reglage::listehauteur[liste]));
    donnees_.aire.showPlaced(nouvelle);
    // One that was left as an icon comes out of it: it was asked for.
    amene(ordre);
}

/// A number of a window's place; one that no screen has counts as none.
int FenetresListes::lu(const ReglageLibre& reglage) const {
    constexpr double plusgrand = 1e6;
    const double valeur = donnees_.reglages.lit(reglage);
    return std::abs(valeur) < plusgrand ? static_cast<int>(valeur) : 0;
}

void FenetresListes::ferme(Ordre ordre) {
    fenetres_.at(static_cast<std::size_t>(rang(ordre))).clear();
    ditouverte(ordre, false);
}

void FenetresListes::ditouverte(Ordre ordre, bool ouverte) {
    donnees_.actions.coche(ordre, ouverte);
    if (ordre == Ordre::Index)
        donnees_.bureau.navigation().indexouvert(ouverte);
    // One that closes still counts.
    donnees_.bureau.majdispositions(ouverte ? 0 : 1);
}

void FenetresListes::noteplace(Ordre ordre, const QWidget& fenetre) {
    const int liste = rang(ordre);
    const ChildArea& aire = donnees_.aire;
    const QRect ici = aire.twipsOf(&fenetre);
    Reglages& reglages = donnees_.reglages;
    reglages.ecrit(reglage::listeetat[liste], aire.stateOf(&fenetre));
    reglages.ecrit(reglage::listegauche[liste], ici.left());
    reglages.ecrit(reglage::listehaut[liste], ici.top());
    reglages.ecrit(reglage::listelargeur[liste], ici.width());
    reglages.ecrit(reglage::listehauteur[liste], ici.height());
}

ContexteListe FenetresListes::contexteliste(Ordre ordre) {
    const MondeExterieur& monde = donnees_.monde;
    return {donnees_.reglages,
            monde.dialogues,
            monde.imprimante,
            monde.pressepapiers,
            monde.sablier,
            donnees_.texte,
            [&bureau = donnees_.bureau](const Cle& cle, const QString& ancre) {
                bureau.navigation().ouvre(cle, {.replier = true, .ancre = ancre});
            },
            [&selection = donnees_.selection](const std::vector<Cle>& cles) {
                QStringList toutes;
                for (const Cle& cle : cles)
                    toutes << cle.texte();
                selection.controle().remplissage().remplitdecles(toutes);
            },
            [this, ordre](const QWidget& fenetre) { noteplace(ordre, fenetre); }};
}

/// What is opened there is a keyword.
ContexteListe FenetresListes::contextemotcle() {
    ContexteListe contexte = contexteliste(Ordre::MotCle);
    contexte.ouvre = [&selection = donnees_.selection](const Cle& cle, const QString&) {
        selection.controle().remplissage().remplitdemotcle(cle.numero);
    };
    contexte.selectionne = {};
    return contexte;
}

ContexteTypes FenetresListes::contexte(Ordre ordre) {
    return {contexteliste(ordre), donnees_.corpus};
}

} // namespace velm
