#include "shell/commandes.h"

#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/menus.h"
#include "shell/volet.h"

#include <QAction>
#include <QApplication>

namespace velm {

namespace {

/// The grid that a widget lies in, itself included; null for none.
FlexGrid* grilleautour(QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        if (auto* grille = qobject_cast<FlexGrid*>(widget))
            return grille;
    }
    return nullptr;
}

} // namespace

Commandes::Commandes(Ecrangeneral& ecran, Bureau& bureau, EtatBarres& barres, Reglages& reglages, Programme programme)
    : ecran_(ecran), bureau_(bureau), barres_(barres), reglages_(reglages), programme_(std::move(programme)) {
    apprendcommandes();
    apprendentrees();
    connect(&ecran_, &Ecrangeneral::commande, this, &Commandes::commande);
    connect(&ecran_, &Ecrangeneral::commandemenu, this, &Commandes::commandemenu);
    connect(&ecran_, &Ecrangeneral::slotpresse, this, [this](int indice) { bureau_.basculeslot(indice); });
    connect(&ecran_, &Ecrangeneral::historiquevoulu, this, [this](bool precedent) {
        const QString cle = precedent ? QStringLiteral("Précédent") : QStringLiteral("Suivant");
        if (ecran_.barrecommande().isButtonEnabled(cle))
            commande(cle);
    });
    connect(&ecran_.menus(), &MenusEcran::choisie, this, &Commandes::entree);
}

void Commandes::apprendcommandes() {
    const auto pas = [this](Sens sens) { return [this, sens](int) { bureau_.navigation().pas(sens); }; };
    const auto arrange = [this](ChildArea::Arrangement disposition) {
        return [this, disposition](int) { bureau_.arrange(disposition); };
    };
    commandes_ = {
        {QStringLiteral("Précédent"), pas(Sens::Arriere)},
        {QStringLiteral("Suivant"), pas(Sens::Avant)},
        {QStringLiteral("Copier"), [this](int) { copier(); }},
        {QStringLiteral("Rechercher"),
         [this](int) { montreselection(ecran_.barrecommande().value(QStringLiteral("Rechercher"))); }},
        {QStringLiteral("Barrefenêtre"), [this](int) { basculebarre(Barre::Ecran); }},
        {QStringLiteral("Barreoutils"), [this](int) { basculebarre(Barre::Outils); }},
        {QStringLiteral("Cascade"), arrange(ChildArea::Arrangement::Cascade)},
        {QStringLiteral("Horizontalement"), arrange(ChildArea::Arrangement::TileHorizontal)},
        {QStringLiteral("Verticalement"), arrange(ChildArea::Arrangement::TileVertical)},
    };
}

void Commandes::apprendentrees() {
    const auto place = [this](Barre barre) { return [this, barre](int position) { placebarre(barre, position); }; };
    entrees_ = {
        {QStringLiteral("medition0"),
         [this](int indice) {
             if (indice == 0)
                 copier();
             else if (indice == 1)
                 toutselectionner();
             else if (indice == 2)
                 programme_.cherche();
         }},
        {QStringLiteral("mselection"), [this](int) { montreselection(true); }},
        {QStringLiteral("mnuLastFile"),
         [this](int indice) {
             const QString cle = bureau_.navigation().derniersdocuments().at(static_cast<std::size_t>(indice));
             bureau_.navigation().ouvre(decoupecle(cle), {.replier = true});
         }},
        {QStringLiteral("mfichier3"), [this](int) { programme_.quitte(); }},
        {QStringLiteral("mbarre1"), place(Barre::Commande)},
        {QStringLiteral("mbarre2"), place(Barre::Ecran)},
        {QStringLiteral("mbarre3"), place(Barre::Outils)},
        {QStringLiteral("mbarre4"), place(Barre::Outils)},
        {QStringLiteral("mbarre5"), place(Barre::Commande)},
        {QStringLiteral("mbarre6"), place(Barre::Ecran)},
        {QStringLiteral("maffichage0"), [this](int) { commutebarreetat(); }},
        {QStringLiteral("maffichagef"), [this](int indice) { bureau_.basculeslot(indice); }},
        {QStringLiteral("maffichagetfu"), [this](int) { changeunefenetre(!bureau_.navigation().unefenetre()); }},
        {QStringLiteral("mdisposition"),
         [this](int sorte) { bureau_.arrange(static_cast<ChildArea::Arrangement>(sorte)); }},
        {QStringLiteral("mlistefenetre"), [this](int rang) { bureau_.amene(rang - 1); }},
        {QStringLiteral("maide0"),
         [this](int indice) {
             if (indice == 0)
                 programme_.astuce();
             else if (indice == 2)
                 programme_.aide();
         }},
        {QStringLiteral("maide1"),
         [this](int indice) { indice == 0 ? programme_.apropos() : programme_.partenaires(); }},
    };
}

void Commandes::commande(const QString& cle) {
    if (const auto deed = commandes_.constFind(cle); deed != commandes_.cend())
        (*deed)(0);
}

void Commandes::commandemenu(const QString& cle, int rang) {
    if (cle == QStringLiteral("Précédent"))
        bureau_.navigation().pas(Sens::Arriere, rang);
    else if (cle == QStringLiteral("Suivant"))
        bureau_.navigation().pas(Sens::Avant, rang);
}

void Commandes::entree(const QString& nom, int indice) {
    if (const auto deed = entrees_.constFind(nom); deed != entrees_.cend())
        (*deed)(indice);
}

void Commandes::copier() {
    if (FenetreFille* active = bureau_.devant(); active && active->peut(Ordre::Copier))
        active->fait(Ordre::Copier);
}

void Commandes::toutselectionner() {
    if (FlexGrid* grille = grilleautour(QApplication::focusWidget()))
        grille->selectAll();
    else if (FenetreFille* active = bureau_.devant())
        active->fait(Ordre::ToutSelectionner);
}

void Commandes::placebarre(Barre barre, int position) {
    barres_.place(barre, position);
    ecran_.placebarre(barre, barres_.position(barre));
}

void Commandes::basculebarre(Barre barre) {
    placebarre(barre, barres_.visible(barre) ? 0 : barres_.dernierposition(barre));
}

void Commandes::commutebarreetat() {
    barres_.commuteetat();
    ecran_.montrebarreetat(barres_.etat());
}

void Commandes::changeunefenetre(bool une) {
    reglages_.savesetting(QStringLiteral("GENERALITES"), QStringLiteral("MULTIFENETRE"),
                          une ? QStringLiteral("1") : QStringLiteral("0"));
    bureau_.navigation().changeunefenetre(une);
    ecran_.menus().entree(QStringLiteral("maffichagetfu"))->setChecked(une);
}

void Commandes::montreselection(bool montree) {
    programme_.montreselection(montree);
}

} // namespace velm
