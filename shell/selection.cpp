#include "shell/selection.h"

#include "core/cle.h"
#include "document/ui/grilledocuments.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/volet.h"

#include <QMenu>

namespace velm {

using namespace Qt::Literals::StringLiterals;

Selection::Selection(Ecrangeneral& ecran, VoletSelection& volet, const Actions& actions, Bureau& bureau,
                     const ControleListe::Services& services)
    : ecran_(ecran), volet_(volet), bureau_(bureau), grille_(volet), controle_(services, grille_, *this) {
    grille_.construit(liste());
    relieflex();
    construitmenu(actions);
    controle_.charge();
}

Selection::~Selection() {
    grille_.relache();
}

Toolbar& Selection::barre() const {
    return volet_.recherchetoolbar();
}

// ---- what is pressed

void Selection::relieflex() {
    const GrilleDocuments* documents = &grille_.documents();
    connect(documents, &GrilleDocuments::trivoulu, this, [this](int colonne) { controle_.trie(colonne); });
    connect(documents, &GrilleDocuments::ouvertes, this, [this] { controle_.ouvre(); });
    connect(documents, &GrilleDocuments::suppressionvoulue, this, [this] { controle_.supprime(); });
    connect(documents, &GrilleDocuments::menuvoulu, this, [this](const QPoint& ou) {
        if (flex().row() > 0)
            menu_->popup(ou);
    });
}

void Selection::construitmenu(const Actions& actions) {
    menu_ = new QMenu(&volet_);
    menu_->setObjectName(u"ContextMenu"_s);
    for (const Ordre ordre : {Ordre::OuvrirLignes, Ordre::SupprimerLignes, Ordre::ImprimerLignes})
        menu_->addAction(&actions.de(ordre));
}

// ---- what is shown

void Selection::permetbouton(const QString& cle, bool permis) {
    barre().setButtonEnabled(cle, permis);
}

void Selection::enfoncebouton(const QString& cle, bool enfonce) {
    barre().setValue(cle, enfonce);
}

void Selection::infobulle(const QString& cle, const QString& texte) {
    barre().setToolTip(cle, texte);
}

void Selection::ditetat(const QString& texte) {
    ecran_.dit(texte);
}

void Selection::montrepanneau(bool visible) {
    ecran_.montreselection(visible);
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

/// What comes instead of a document that is gone gets no words.
void Selection::ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) {
    const Cle visee = decoupecle(cle);
    bureau_.navigation().ouvre(visee, {.replier = true});
    Textes* fenetre = bureau_.active();
    if (fenetre && fenetre->code() == visee.code)
        fenetre->recoitmots(mot1, mot2);
}

} // namespace velm
