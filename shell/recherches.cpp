#include "shell/recherches.h"

#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "shell/ecrangeneral.h"
#include "shell/selection.h"
#include "shell/volet.h"

#include <QMdiSubWindow>

namespace velm {

using namespace Qt::Literals::StringLiterals;

Recherches::Recherches(Ecrangeneral& ecran, Selection& selection, const Monde& monde)
    : ecran_(ecran), selection_(selection), monde_(monde),
      fichiers_(monde.dialogues, monde.sablier, monde.courrier, monde.texte) {
    Toolbar& barre = ecran_.picturesselection().recherchetoolbar();
    for (const QString& cle : {u"affichercritères"_s, u"ouvrircritères"_s})
        barre.setButtonEnabled(cle, true);
    connect(&barre, &Toolbar::buttonClicked, this, &Recherches::clicbarre);
    connect(&selection_, &Selection::criteresvoulus, this, &Recherches::montre);
    connect(&ecran_.aire(), &ChildArea::childActivated, this, [this](const QWidget* active) {
        if (formulaire_ && active == formulaire_)
            formulaire_->activation();
    });
}

FrmVelmorSelect& Recherches::leformulaire() {
    if (!formulaire_) {
        formulaire_ = new FrmVelmorSelect({selection_.controle().remplissage(), monde_.reglages, monde_.texte});
        ecran_.aire().add(formulaire_)->setWindowIcon(icon(u"Rechercher"_s));
        connect(formulaire_, &FrmVelmorSelect::cachevoulu, this, [this] { montre(false); });
    }
    return *formulaire_;
}

void Recherches::montre(bool montre) {
    if (montre)
        ecran_.aire().activate(&leformulaire());
    else if (formulaire_)
        ecran_.aire().hideChild(formulaire_);
    selection_.controle().formulairevisible(montre);
}

void Recherches::basculeformulaire() {
    // An icon comes back, whatever the button makes of its press.
    const bool reduit = formulaire_ && ecran_.aire().stateOf(formulaire_) == ChildArea::Minimised;
    montre(reduit || ecran_.picturesselection().recherchetoolbar().value(u"affichercritères"_s));
}

void Recherches::clicbarre(const QString& cle) {
    if (cle == u"affichercritères")
        basculeformulaire();
    else if (cle == u"ouvrircritères")
        ouvrircriteres();
    else if (cle == u"sauvercritères")
        sauvercriteres();
    else if (cle == u"envoyercritères")
        envoyercriteres();
}

void Recherches::ouvrircriteres(const QString& nom) {
    const std::optional<FichierCriteres> fichier = fichiers_.ouvrircriteres(nom);
    if (!fichier)
        return;
    montre(true);
    leformulaire().formulaire().prendfichier(*fichier);
}

void Recherches::sauvercriteres() {
    fichiers_.sauvercriteres(leformulaire().formulaire().fichier());
}

void Recherches::envoyercriteres() {
    fichiers_.envoyercriteres(leformulaire().formulaire().fichier());
}

void Recherches::note() {
    if (formulaire_)
        formulaire_->formulaire().decharge();
}

void Recherches::ferme() {
    if (formulaire_)
        formulaire_->formulaire().ferme();
    note();
}

} // namespace velm
