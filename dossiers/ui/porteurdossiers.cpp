#include "dossiers/ui/porteurdossiers.h"

#include "platform/widgets/list/listview.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/tree/treeview.h"

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

} // namespace

PorteurDossiers::PorteurDossiers(GestionDossiers& gestion, TreeView& arbre, ListView& liste, QWidget* fenetre)
    : QObject(fenetre), gestion_(gestion), arbre_(arbre), liste_(liste), fenetre_(fenetre) {
    arbre_.setDragging(true);
    liste_.setDragging(true);
    connect(&arbre_, &TreeView::dragBegins, this, [this](int noeud) {
        gestion_.pressesurarbre();
        if (gestion_.peuttirernoeud())
            tire(arbre_.nodes().image(noeud), arbre_.nodes().text(noeud), Carrier::Mode::UntilRelease);
    });
    connect(&liste_, &ListView::dragBegins, this, [this](int index) {
        if (gestion_.peuttirerelement())
            tire(u"dossierdocument"_s, liste_.items().text(index), Carrier::Mode::UntilRelease);
    });
    connect(&porteur_, &Carrier::over, this, &PorteurDossiers::survole);
    connect(&porteur_, &Carrier::dropped, this, &PorteurDossiers::depose);
    connect(&porteur_, &Carrier::cancelled, this, [this] {
        arbre_.hover(0);
        arbre_.setDropTarget(0);
        if (gestion_.attend())
            gestion_.renonce();
    });
}

void PorteurDossiers::porteattente() {
    const ElementEnAttente& attente = gestion_.attente();
    const bool entier = attente.itemdebut == 0 && attente.itemlongueur == 0;
    tire(entier ? u"dossierdocument"_s : u"dossierextrait"_s, attente.itemtitre, Carrier::Mode::UntilClick);
}

void PorteurDossiers::tire(const QString& image, const QString& etiquette, Carrier::Mode mode) {
    porteur_.carry(fenetre_, icon(image), etiquette, mode);
}

int PorteurDossiers::noeudsous(const QWidget* dessous, const QPoint& global) const {
    const QWidget* vue = arbre_.viewport();
    return dessous == vue ? arbre_.nodeAt(vue->mapFromGlobal(global)) : 0;
}

void PorteurDossiers::survole(const QWidget* dessous, const QPoint& global) {
    const int noeud = noeudsous(dessous, global);
    const bool permis = gestion_.peutdeposer(noeud);
    porteur_.setAllowed(permis);
    arbre_.setDropTarget(permis ? noeud : 0);
    arbre_.hover(noeud);
    if (dessous == arbre_.viewport())
        arbre_.scrollNear(arbre_.viewport()->mapFromGlobal(global));
}

void PorteurDossiers::depose(const QWidget* dessous, const QPoint& global) {
    const int noeud = noeudsous(dessous, global);
    arbre_.hover(0);
    arbre_.setDropTarget(0);
    if (noeud != 0)
        gestion_.depose(noeud);
    // Where it could not be stored it hangs on the pointer still.
    if (gestion_.attend())
        porteattente();
}

} // namespace velm
