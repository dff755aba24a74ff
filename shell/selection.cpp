#include "shell/selection.h"

#include "core/cle.h"
#include "document/ui/grilledocuments.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/volet.h"

#include <QMenu>

namespace velm {

using namespace Qt::Literals::StringLiterals;

Selection::Selection(Ecrangeneral& ecran, Bureau& bureau, const ControleListe::Monde& monde)
    : ecran_(ecran), bureau_(bureau), grille_(ecran), controle_(monde, grille_, *this) {
    grille_.construit(liste());
    relieflex();
    construitmenu(monde.texte);
    connect(&barre(), &Toolbar::buttonClicked, this, &Selection::clicbarre);
    controle_.charge();
}

Selection::~Selection() {
    grille_.relache();
}

Toolbar& Selection::barre() const {
    return ecran_.picturesselection().recherchetoolbar();
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

void Selection::construitmenu(const std::function<QString(int)>& texte) {
    menu_ = new QMenu(&ecran_.picturesselection());
    menu_->setObjectName(u"ContextMenu"_s);
    const auto entree = [&](const QString& nom, int numero, void (ControleListe::*fait)()) {
        QAction* action = menu_->addAction(texte(numero));
        action->setObjectName(nom);
        connect(action, &QAction::triggered, this, [this, fait] { (controle_.*fait)(); });
    };
    entree(u"ContextMenuOuvrir"_s, 9018, &ControleListe::ouvre);
    entree(u"ContextMenuSuppress"_s, 9019, &ControleListe::supprime);
    entree(u"ContextMenuPrint"_s, 9020, &ControleListe::imprime);
}

void Selection::clicbarre(const QString& cle) {
    if (cle == u"regrouper")
        controle_.regroupe(barre().value(cle));
    else if (cle == u"imprimercritères")
        controle_.imprime();
    else if (cle == u"suivantrecherche")
        controle_.suivantrecherche();
    else if (cle == u"précédentrecherche")
        controle_.precedentrecherche();
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
    ecran_.barreetat().setPanelText(u"wait"_s, texte);
}

void Selection::montrepanneau(bool visible) {
    ecran_.montreselection(visible);
}

void Selection::elargitpanneau() {
    VoletSelection& volet = ecran_.picturesselection();
    volet.changelargeurliste(std::max(volet.largeurliste(), LargeurVolet::minimumoutil));
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
