#include "shell/selection.h"

#include "core/cle.h"
#include "document/ui/grilledocuments.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/noteline.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/logique/commandes.h"
#include "shell/volet.h"

#include <QMenu>

namespace velm {

using namespace Qt::Literals::StringLiterals;

Selection::Selection(Ecrangeneral& ecran, VoletSelection& volet, Actions& actions, Bureau& bureau,
                     const ControleListe::Services& services)
    : ecran_(ecran), volet_(volet), actions_(actions), bureau_(bureau), grille_(volet),
      controle_(services, grille_, *this), toutafficher_(services.recherche.texte(Texte::BilanToutAfficher)),
      aucundocument_(services.recherche.texte(Texte::AucunDocumentTrouve)) {
    grille_.construit(liste());
    ditvide();
    connect(&volet_.note(), &NoteLine::linkClicked, this, [this] { controle_.remplissage().toutafficher(); });
    relieflex();
    construitmenu();
    controle_.charge();
}

Selection::~Selection() {
    grille_.relache();
}

// ---- what is pressed

void Selection::relieflex() {
    const GrilleDocuments* documents = &grille_.documents();
    connect(documents, &GrilleDocuments::trivoulu, this, [this](int colonne) { controle_.trie(colonne); });
    connect(documents, &GrilleDocuments::ouvertes, this, [this] { controle_.ouvre(); });
    connect(documents, &GrilleDocuments::suppressionvoulue, this, [this] { controle_.supprime(); });
    const auto ditregroupement = [this] { controle_.remplissage().ditregroupement(); };
    connect(&flex(), &FlexGrid::columnMoved, this, ditregroupement);
    connect(&flex(), &FlexGrid::narrowChanged, this, ditregroupement);
    connect(documents, &GrilleDocuments::menuvoulu, this, [this](const QPoint& ou) {
        if (flex().row() > 0)
            menu_->popup(ou);
    });
}

void Selection::construitmenu() {
    menu_ = new QMenu(&volet_);
    menu_->setObjectName(u"ContextMenu"_s);
    for (const Ordre ordre : {Ordre::OuvrirLignes, Ordre::SupprimerLignes, Ordre::ImprimerLignes})
        menu_->addAction(&actions_.de(ordre));
}

// ---- what is shown

void Selection::permet(Ordre ordre, bool permis) {
    actions_.permet(ordre, permis);
    emit changee();
}

void Selection::coche(Ordre ordre, bool cochee) {
    actions_.coche(ordre, cochee);
    if (ordre != Ordre::AfficherCriteres)
        return;
    formulaire_ = cochee;
    ditvide();
}

void Selection::infobulle(Ordre ordre, const QString& texte) {
    volet_.recherchetoolbar().setToolTip(boutonde(ordre, 0), texte);
}

void Selection::ditetat(const QString& texte) {
    ecran_.dit(texte);
}

void Selection::ditbilan(const BilanRecherche& bilan) {
    rien_ = bilan.rien ? bilan.phrase : QString();
    volet_.dit(bilan.rien ? QString() : bilan.phrase, bilan.coupe ? toutafficher_ : QString());
    ditvide();
}

/// What was not found is said once: by the form as long as that is seen. In a low one it may lie below the fold, and so
/// the list says at least quietly that it is empty.
void Selection::ditvide() {
    flex().setEmptyText(rien_.isEmpty() || formulaire_ ? aucundocument_ : rien_);
}

void Selection::montrepanneau(bool visible) {
    ecran_.montreselection(visible);
    emit changee();
}

void Selection::elargitpanneau() {
    volet_.changelargeurliste(std::max(volet_.largeurliste(), LargeurVolet::minimumoutil));
}

void Selection::montrecriteres(bool montres) {
    emit criteresvoulus(montres);
}

void Selection::majdispositions() {
    bureau_.majdispositions();
}

/// The words to mark go to the window of the document's collection. Where none could open, another one may be in front:
/// it gets none.
void Selection::ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) {
    const Cle visee = decoupecle(cle);
    bureau_.navigation().ouvre(visee, {.replier = true});
    Textes* fenetre = bureau_.active();
    if (fenetre && typedindice(fenetre->indice()) == visee.code)
        fenetre->recoitmots(mot1, mot2);
}

} // namespace velm
