#include "document/ui/gestestextes.h"

#include "document/navigation.h"
#include "platform/widgets/text/richtextbox.h"

#include <QKeyEvent>

namespace velm {

GestesTextes::GestesTextes(Navigation& navigation, RichTextBox& vue, const QList<QWidget*>& surfaces, QWidget* fenetre)
    : QObject(fenetre), navigation_(navigation), vue_(vue) {
    fenetre->installEventFilter(this);
    for (QWidget* surface : surfaces)
        surface->installEventFilter(this);
}

bool GestesTextes::eventFilter(QObject* objet, QEvent* evenement) {
    const bool fenetre = objet == parent();
    switch (evenement->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return souris(static_cast<QMouseEvent*>(evenement)->button());
    case QEvent::KeyPress:
        return fenetre && touche(*static_cast<QKeyEvent*>(evenement));
    case QEvent::FocusIn:
        // Not by a focus proxy, which would send the Tab key back to the text before it has walked all controls.
        if (fenetre)
            vue_.setFocus(static_cast<QFocusEvent*>(evenement)->reason());
        return fenetre;
    default:
        return false;
    }
}

bool GestesTextes::souris(Qt::MouseButton bouton) {
    if (bouton != Qt::BackButton && bouton != Qt::ForwardButton)
        return false;
    navigation_.pas(bouton == Qt::BackButton ? Sens::Arriere : Sens::Avant);
    return true;
}

bool GestesTextes::touche(const QKeyEvent& evenement) {
    if (vue_.hasFocus())
        return false;
    switch (evenement.key()) {
    case Qt::Key_Escape:
        vue_.setFocus();
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End: {
        QKeyEvent suite(evenement.type(), evenement.key(), evenement.modifiers(), evenement.text());
        static_cast<QObject&>(vue_).event(&suite);
        return true;
    }
    default:
        return false;
    }
}

} // namespace velm
