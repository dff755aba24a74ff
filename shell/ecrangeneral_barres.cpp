// What stands on the frame's bars.
#include "core/cle.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "shell/ecrangeneral.h"
#include "shell/volet.h"

#include <QAction>

namespace velm {

namespace {

using Kind = Toolbar::Kind;

struct Bouton {
    const char* cle;
    Kind sorte;
    int texte; ///< of its tool tip; 0 for a separator
    bool inactif = false;
};

void garnit(Toolbar& barre, std::initializer_list<Bouton> boutons, const std::function<QString(int)>& texte) {
    for (const Bouton& bouton : boutons) {
        const QString cle = QString::fromUtf8(bouton.cle);
        barre.addButton(cle, bouton.sorte, cle);
        if (bouton.sorte == Kind::Separator)
            continue;
        barre.setToolTip(cle, texte(bouton.texte));
        barre.setButtonEnabled(cle, !bouton.inactif);
    }
}

} // namespace

void Ecrangeneral::garnitcommande(const std::function<QString(int)>& texte) {
    garnit(*barrecommande_,
           {{"Précédent", Kind::DropDown, 170, true},
            {"Suivant", Kind::DropDown, 171, true},
            {"barrehistorique", Kind::Separator, 0},
            {"Copier", Kind::Plain, 120},
            {"Imprimer", Kind::Plain, 113, true},
            {"imprimereject", Kind::DropDown, 1203, true},
            {"barreimpression", Kind::Separator, 0},
            {"Rechercher", Kind::Check, 2120},
            {"chrono", Kind::Plain, 8000, true},
            {"numéro", Kind::Plain, 8050, true},
            {"motclé", Kind::Plain, 8300, true},
            {"barrelistes", Kind::Separator, 0},
            {"Dossiers", Kind::Plain, 4201, true},
            {"barrebarres", Kind::Separator, 0},
            {"Barrefenêtre", Kind::Check, 132},
            {"Barreoutils", Kind::Check, 143},
            {"Cascade", Kind::Plain, 140},
            {"Horizontalement", Kind::Plain, 142},
            {"Verticalement", Kind::Plain, 141}},
           texte);
    ejections_.add(1, QStringLiteral("imprimereject1"), texte(1203));
    ejections_.add(2, QStringLiteral("imprimereject2"), texte(4405));
    ejections_.add(3, QStringLiteral("imprimereject3"), texte(4406));
    barrecommande_->setMenus(QStringLiteral("imprimereject"), &ejections_);
    barrecommande_->setShortcut(QStringLiteral("Précédent"), QKeySequence(Qt::ALT | Qt::Key_Left));
    barrecommande_->setShortcut(QStringLiteral("Suivant"), QKeySequence(Qt::ALT | Qt::Key_Right));
    barrecommande_->setShortcut(QStringLiteral("Rechercher"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    // Shortcuts work with the bar hidden too.
    addActions(barrecommande_->actions());
    montredispositions(false);
    connect(barrecommande_, &Toolbar::buttonClicked, this, &Ecrangeneral::commande);
    connect(barrecommande_, &Toolbar::menuClicked, this,
            [this](const QString& cle, int rang) { emit commandemenu(cle, rang); });
}

QString Ecrangeneral::clebouton(int indice) {
    return indice < nombredecollections ? typedindice(indice) : QStringLiteral("Index");
}

void Ecrangeneral::garnitecran(const std::function<QString(int)>& texte) {
    for (int indice = 0; indice < nombredefenetres; ++indice) {
        const QString cle = clebouton(indice);
        barreecran_->addButton(cle, Kind::Check, QStringLiteral("collection%1").arg(indice));
        barreecran_->setToolTip(cle, texte(indice + 10));
        barreecran_->setButtonEnabled(cle, indice < nombredecollections);
    }
    connect(barreecran_, &Toolbar::buttonClicked, this, [this](const QString& cle) {
        emit slotpresse(cle == QStringLiteral("Index") ? nombredecollections : indicedetype(cle));
    });
}

void Ecrangeneral::garnitselection(const std::function<QString(int)>& texte) {
    Toolbar& barre = volet_->recherchetoolbar();
    garnit(barre,
           {{"affichercritères", Kind::Check, 2430, true},
            {"regrouper", Kind::Check, 2605, true},
            {"barreregrouper", Kind::Separator, 0},
            {"précédentrecherche", Kind::Plain, 9030, true},
            {"suivantrecherche", Kind::Plain, 9031, true},
            {"barrecritères", Kind::Separator, 0},
            {"ouvrircritères", Kind::Plain, 9032, true},
            {"sauvercritères", Kind::Plain, 9033, true},
            {"imprimercritères", Kind::Plain, 9034, true},
            {"envoyercritères", Kind::Plain, 9035, true}},
           texte);
    volet_->nomme(texte(9028), texte(9029));
}

} // namespace velm
