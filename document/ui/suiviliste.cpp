#include "document/ui/suiviliste.h"

#include "document/ui/grilledocuments.h"
#include "platform/base/memory.h"
#include "platform/widgets/grid/flexgrid.h"

#include <QTableView>

namespace velm {

SuiviListe::SuiviListe(GrilleDocuments& liste, QObject* parent)
    : SuiviDocument(*liste.flex().view(), parent), liste_(liste) {}

bool SuiviListe::remplie() const {
    return liste_.source() != nullptr;
}

void SuiviListe::montre() {
    marque();
    liste_.flex().bringIntoSight(liste_.flex().marked());
}

void SuiviListe::marque() {
    int ligne = 0;
    withinMemory([&] { ligne = liste_.ligne(cle()); });
    liste_.flex().setMarked(ligne);
}

} // namespace velm
