#include "shell/recherches.h"

#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/selection.h"
#include "shell/volet.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

Recherches::Recherches(Ecrangeneral& ecran, Bureau& bureau, Selection& selection, const Services& services)
    : ecran_(ecran), bureau_(bureau), selection_(selection), services_(services),
      fichiers_(services.dialogues, services.sablier, services.courrier, services.texte) {
    Toolbar& barre = ecran_.picturesselection().recherchetoolbar();
    for (const QString& cle : {u"affichercritères"_s, u"ouvrircritères"_s})
        barre.setButtonEnabled(cle, true);
    connect(&barre, &Toolbar::buttonClicked, this, &Recherches::clicbarre);
    connect(&selection_, &Selection::criteresvoulus, this, &Recherches::montre);
}

FrmVelmorSelect& Recherches::leformulaire() {
    if (!formulaire_) {
        formulaire_ = new FrmVelmorSelect({selection_.controle(), services_.reglages, services_.texte});
        formulaire_->setWindowIcon(icon(u"Rechercher"_s));
        bureau_.ajoute(*formulaire_, *formulaire_);
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

} // namespace velm
