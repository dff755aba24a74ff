#pragma once
// What keys and the buttons at the side of the mouse do in a document window wherever the focus or the pointer is.
#include <QObject>

class QKeyEvent;
class QWidget;

namespace velm {

class Navigation;
class RichTextBox;

/// Escape leads to the text, the keys that scroll it do so where the control with the focus has no use for them, and a
/// window that is given the focus gives it to its text. The side buttons of the mouse walk the frame's history.
class GestesTextes final : public QObject {
public:
    /// In a window, which owns this, with its text and the surfaces on which the mouse is pressed.
    GestesTextes(Navigation& navigation, RichTextBox& vue, const QList<QWidget*>& surfaces, QWidget* fenetre);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    bool souris(Qt::MouseButton bouton);
    bool touche(const QKeyEvent& evenement);

    Navigation& navigation_;
    RichTextBox& vue_;
};

} // namespace velm
