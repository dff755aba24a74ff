#include "shell/recherches.h"

#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/look/icons.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/selection.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

Recherches::Recherches(ChildArea& aire, Actions& actions, Bureau& bureau, Selection& selection,
                       const Services& services)
    : aire_(aire), actions_(actions), bureau_(bureau), selection_(selection), services_(services),
      fichiers_(services.dialogues, services.sablier, services.courrier, services.texte) {
    actions_.permet(Ordre::OuvrirCriteres, true);
    connect(&selection_, &Selection::criteresvoulus, this, &Recherches::montre);
}

FrmVelmorSelect& Recherches::leformulaire() {
    if (!formulaire_) {
        formulaire_ = new FrmVelmorSelect({selection_.controle().remplissage(), services_.reglages, services_.texte});
        formulaire_->setWindowIcon(icon(u"Rechercher"_s));
        bureau_.ajoute(*formulaire_, *formulaire_);
        connect(formulaire_, &FrmVelmorSelect::cachevoulu, this, [this] { montre(false); });
    }
    return *formulaire_;
}

void Recherches::montre(bool montre) {
    if (montre)
        aire_.activate(&leformulaire());
    else if (formulaire_)
        aire_.hideChild(formulaire_);
    selection_.controle().formulairevisible(montre);
}

void Recherches::bascule() {
    // An icon comes back, whatever the mark of its command.
    const bool reduit = formulaire_ && aire_.stateOf(formulaire_) == ChildArea::Minimised;
    montre(reduit || !actions_.estcochee(Ordre::AfficherCriteres));
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
