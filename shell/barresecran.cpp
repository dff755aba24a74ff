#include "shell/barresecran.h"

#include "core/langue.h"
#include "core/texte.h"
#include "document/ui/teintes.h"
#include "platform/widgets/frame/toolbar.h"
#include "shell/actions.h"
#include "shell/logique/commandes.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QToolButton>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

Toolbar::Kind genre(Forme forme) {
    switch (forme) {
    case Forme::Bascule:
    case Forme::Choix:
        return Toolbar::Kind::Check;
    case Forme::Deroulante:
        return Toolbar::Kind::DropDown;
    case Forme::Simple:
        break;
    }
    return Toolbar::Kind::Plain;
}

/// The tool tip of a button. Those of a step say that it goes through the documents of all windows, as each window has
/// buttons of the same names for a history of its own.
QString etendue(Ordre ordre, const QString& bulle, const Libelles& texte) {
    const bool pas = ordre == Ordre::Precedent || ordre == Ordre::Suivant;
    return pas ? remplace(texte(Texte::BulleToutesLesFenetres), {bulle}) : bulle;
}

} // namespace

void garnit(Toolbar& barre, std::span<const PlaceDeBarre> places, Actions& actions, const Libelles& texte) {
    for (const PlaceDeBarre& place : places) {
        if (!place.ordre) {
            barre.addButton(place.separateur.toString(), Toolbar::Kind::Separator);
            continue;
        }
        const LigneCommande& ligne = lignede(*place.ordre);
        for (int rang = 0; rang < ligne.nombre; ++rang) {
            const QString cle = boutonde(ligne.ordre, rang);
            QAction& action = actions.de(ligne.ordre, rang);
            if (!action.isVisible() || barre.hasButton(cle))
                continue;
            barre.addCommand(cle, genre(ligne.forme), action);
            if (const auto bulle = bullede(ligne.ordre, rang))
                barre.setToolTip(cle, etendue(ligne.ordre, texte(*bulle), texte));
        }
    }
}

BarresEcran::BarresEcran(QMainWindow& cadre, Actions& actions, const Libelles& texte)
    : QObject(&cadre), cadre_(cadre), actions_(actions), texte_(texte) {
    construit(Barre::Commande, u"barrecommande"_s, Texte::MenuBarreDeCommandes);
    construit(Barre::Ecran, u"barreécran"_s, Texte::BarreDesFenetres);
    construit(Barre::Outils, u"barreoutils"_s, Texte::MenuBarreDOutils);
    construitejections();
    connect(&de(Barre::Commande), &Toolbar::menuClicked, this, &BarresEcran::choisitacote);
    connect(&actions_, &Actions::outilschanges, this, &BarresEcran::montreoutils);
}

void BarresEcran::construit(Barre barre, const QString& nom, Texte titre) {
    auto* nouvelle = new Toolbar(&cadre_);
    nouvelle->setObjectName(nom);
    nouvelle->setWindowTitle(texte_(titre).remove(u'&'));
    nouvelle->setMenuImages(imagedhistorique);
    nouvelle->setMenuSubjects(documentdhistorique);
    barres_.at(static_cast<std::size_t>(barre)) = nouvelle;
    garnit(*nouvelle, placesde(barre), actions_, texte_);
    constexpr std::array<QStringView, 3> noms{u"ContextMenuBarreCommandes", u"ContextMenuBarreTable",
                                              u"ContextMenuBarreoutils"};
    QMenu* menu = deplacements(barre, noms.at(static_cast<std::size_t>(barre)).toString());
    connect(nouvelle, &Toolbar::rightClicked, menu, [menu](const QPoint& ici) { menu->popup(ici); });
}

QMenu* BarresEcran::deplacements(Barre barre, const QString& nom) const {
    auto* menu = new QMenu(&cadre_);
    menu->setObjectName(nom);
    menu->addActions(actions_.serie(ordredeplace(barre)));
    return menu;
}

void BarresEcran::construitejections() {
    for (const Ordre ordre : entreesdubouton(Ordre::Ejections))
        ejections_.add(ejections_.count() + 1, boutonde(ordre, 0), texte_(libellede(ordre, 0).value()));
    offre(Ordre::Ejections, ejections_);
}

void BarresEcran::offre(Ordre ordre, const ButtonMenus& entrees) {
    de(Barre::Commande).setMenus(boutonde(ordre, 0), &entrees);
}

/// An entry is a command of its own, or a rank of that of its button.
void BarresEcran::choisitacote(const QString& bouton, int rang) {
    const Ordre celui = ordredubouton(bouton).value().ordre;
    if (const auto entrees = entreesdubouton(celui); !entrees.empty())
        actions_.de(entrees[static_cast<std::size_t>(rang - 1)]).trigger();
    else
        actions_.donne(celui, rang);
}

void BarresEcran::montrebouton(Ordre ordre, bool visible) {
    de(Barre::Commande).setButtonVisible(boutonde(ordre, 0), visible);
}

void BarresEcran::marquevide(int rang, bool vide) {
    const QString nom = texte_(libelledefenetre(rang));
    const QString cle = boutonde(Ordre::Collection, rang);
    de(Barre::Ecran).setButtonFaint(cle, vide);
    de(Barre::Ecran).setToolTip(cle, vide ? remplace(texte_(Texte::BulleAucunDocument), {nom}) : nom);
}

void BarresEcran::posepointeur(const QCursor& pointeur) {
    for (const Toolbar* barre : barres_) {
        for (QToolButton* bouton : barre->findChildren<QToolButton*>())
            bouton->setCursor(pointeur);
    }
}

void BarresEcran::montreoutils() {
    Toolbar& barre = de(Barre::Outils);
    garnit(barre, placesde(Barre::Outils), actions_, texte_);
    for (int indice = 1; indice <= barre.buttonCount(); ++indice) {
        const QString cle = barre.keyAt(indice);
        const QAction& outil = actions_.de(Ordre::Outil, indice - 1);
        barre.setToolTip(cle, outil.iconText());
        barre.setButtonVisible(cle, outil.isVisible());
    }
    ancre(Barre::Outils);
}

void BarresEcran::place(Barre barre, int position) {
    positions_.at(static_cast<std::size_t>(barre)) = position;
    ancre(barre);
}

void BarresEcran::ancre(Barre barre) {
    Toolbar& celle = de(barre);
    bool garnie = false;
    for (int indice = 1; indice <= celle.buttonCount(); ++indice)
        garnie = garnie || celle.isButtonVisible(celle.keyAt(indice));
    // A bar without buttons would be nothing but a strip of empty ground.
    celle.dock(cadre_, garnie ? positions_.at(static_cast<std::size_t>(barre)) : 0);
}

} // namespace velm
