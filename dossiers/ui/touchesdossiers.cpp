#include "dossiers/ui/touchesdossiers.h"

#include "dossiers/gestiondossiers.h"
#include "dossiers/ui/retourdossiers.h"

#include <QKeyEvent>
#include <QWidget>

namespace velm {

TouchesDossiers::TouchesDossiers(GestionDossiers& gestion, RetourDossiers& retour, QWidget& arbre, QWidget& liste)
    : gestion_(gestion), retour_(retour), arbre_(arbre), liste_(liste) {
    arbre_.installEventFilter(this);
    liste_.installEventFilter(this);
}

bool TouchesDossiers::eventFilter(QObject* observe, QEvent* evenement) {
    if (evenement->type() == QEvent::FocusIn) {
        if (observe == &arbre_)
            gestion_.arbrefocus();
        else
            gestion_.listefocus();
    }
    return evenement->type() == QEvent::KeyPress && touche(static_cast<QKeyEvent&>(*evenement));
}

bool TouchesDossiers::touche(const QKeyEvent& evenement) {
    if (retour_.cle(evenement))
        return true;
    const bool ctrl = evenement.modifiers() == Qt::ControlModifier;
    const auto touche = evenement.key();
    if (evenement.modifiers() != Qt::NoModifier && !ctrl)
        return false;
    if (!ctrl && touche == Qt::Key_Delete)
        gestion_.supprimer();
    else if (!ctrl && touche == Qt::Key_Insert)
        gestion_.ajouter();
    else if (ctrl && touche == Qt::Key_Up)
        gestion_.haut();
    else if (ctrl && touche == Qt::Key_Down)
        gestion_.bas();
    else if (!ctrl && (touche == Qt::Key_Return || touche == Qt::Key_Enter) && gestion_.attend() && arbre_.hasFocus())
        gestion_.depose(gestion_.donnees().noeuds.selected());
    else
        return false;
    return true;
}

} // namespace velm
