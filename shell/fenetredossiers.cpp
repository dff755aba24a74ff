#include "shell/fenetredossiers.h"

#include "document/ui/textes.h"
#include "dossiers/ui/frmdossiers.h"
#include "platform/widgets/text/richtextbox.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/impressions.h"
#include "shell/logique/seance.h"

namespace velm {

FenetreDossiers::FenetreDossiers(const Donnees& donnees)
    : donnees_(donnees), fichiers_(donnees.monde.dialogues, donnees.monde.sablier, donnees.monde.courrier,
                                   [&langue = donnees.langue](Texte numero) { return langue.lireressource(numero); }) {}

FenetreDossiers::~FenetreDossiers() = default;

frmdossiers* FenetreDossiers::fenetre() const {
    return fenetre_;
}

void FenetreDossiers::attache(Ecrangeneral& ecran, Bureau& bureau, std::function<bool()> ontrouve) {
    ontrouve_ = std::move(ontrouve);
    ecran_ = &ecran;
    bureau_ = &bureau;
    bureau.changedossiersouverts(!magasin_.dossiersindisponibles());
}

void FenetreDossiers::decharge() {
    // However the run ends, what was made is saved.
    if (fenetre_)
        fenetre_->fermesansquestion();
    ecran_ = nullptr;
    bureau_ = nullptr;
}

void FenetreDossiers::suit(Textes& fenetre) {
    connect(&fenetre, &Textes::ranger, this,
            [this](const QString& cle, const QString& titre, qsizetype debut, qsizetype longueur) {
                montre({cle, titre, debut, longueur});
            });
}

void FenetreDossiers::montre(const ElementEnAttente& attente) {
    if (fenetre_ || ecran_ == nullptr)
        return;
    fenetre_ = new frmdossiers(
        {magasin_, donnees_.corpus, donnees_.reglages, donnees_.monde.sablier, donnees_.monde.dialogues, fichiers_,
         [&langue = donnees_.langue](Texte numero) { return langue.lireressource(numero); }, ontrouve_,
         [&impressions = donnees_.impressions](const QString& libelle, const QStringList& cles) {
             impressions.imprimerdossier(libelle, cles);
         },
         [&impressions = donnees_.impressions](const QString& libelle, const QStringList& cles) {
             impressions.exporterdossier(libelle, cles);
         }},
        ecran_);
    fenetre_->setAttribute(Qt::WA_DeleteOnClose);
    connect(fenetre_, &QDialog::finished, this, &FenetreDossiers::fermee);
    fenetre_->montre(attente);
}

/// The document is opened once the window has gone from the screen: it takes the focus.
void FenetreDossiers::fermee() {
    const QString cle = fenetre_ ? fenetre_->nodocument() : QString();
    fenetre_.clear();
    if (!cle.isEmpty())
        QMetaObject::invokeMethod(
            this, [this, cle] { ouvre(cle); }, Qt::QueuedConnection);
}

void FenetreDossiers::ouvre(const QString& cle) {
    if (bureau_ == nullptr)
        return;
    bureau_->navigation().ouvre(documentdelacle(cle));
    const Textes* lue = bureau_->active();
    if (lue == nullptr || !estextrait(cle))
        return;
    // As they stand: whatever text they select now.
    const Extrait extrait = extraitdelacle(cle);
    lue->vue().setSelStart(extrait.debut);
    lue->vue().setSelLength(extrait.longueur);
}

void FenetreDossiers::ouvredossiers() {
    magasin_.ouvredossiers(donnees_.seance.preferences().repertoiredossiers);
}

void FenetreDossiers::fermedossiers() {
    if (fenetre_)
        fenetre_->fermesansquestion();
    magasin_.fermedossiers();
}

/// The window comes, takes the file in, saves, and goes; one that is open already stays.
void FenetreDossiers::ouvrefichierdossier(const QString& chemin) {
    const bool ouverte = fenetre_;
    if (!ouverte)
        montre();
    if (!fenetre_)
        return;
    fenetre_->chargefichier(chemin);
    if (!ouverte && fenetre_)
        fenetre_->accept();
}

} // namespace velm
