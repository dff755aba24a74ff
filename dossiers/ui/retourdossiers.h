#pragma once
// What the window of the dossiers offers to take back: the undo key, and the button that shows what was lost.
#include "dossiers/reprises.h"

#include <QObject>

class QKeyEvent;
class QPushButton;
class QWidget;

namespace velm {

class RetourDossiers final : public QObject {
    Q_OBJECT

public:
    /// None is owned; the journal is that of the store as it is open now. `bouton` is on while something is lost.
    RetourDossiers(GestionDossiers& gestion, QPushButton& bouton, QWidget* fenetre);

    void annule();
    /// The undo key belongs to tree and list.
    bool cle(const QKeyEvent& evenement);

signals:
    /// To be said beside the tree: that the journal cannot be kept, once, or that a change can no longer be undone;
    /// empty when the latter has had its time.
    void dit(const QString& mots);

private:
    void permet();
    void montre();

    GestionDossiers& gestion_;
    JournalDossiers journal_;
    Reprises reprises_;
    QPushButton& bouton_;
    QWidget* fenetre_;
    bool manquedit_ = false;
    bool refuse_ = false;
};

} // namespace velm
