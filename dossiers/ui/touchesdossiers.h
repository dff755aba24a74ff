#pragma once
// The keys that mean the same in the tree and in the list of the dossiers, and which of the two was used last.
#include <QObject>

class QKeyEvent;
class QWidget;

namespace velm {

class GestionDossiers;
class RetourDossiers;

class TouchesDossiers final : public QObject {
    Q_OBJECT

public:
    /// None is owned; the views are watched as long as this lives.
    TouchesDossiers(GestionDossiers& gestion, RetourDossiers& retour, QWidget& arbre, QWidget& liste);

protected:
    bool eventFilter(QObject* observe, QEvent* evenement) override;

private:
    bool touche(const QKeyEvent& evenement);

    GestionDossiers& gestion_;
    RetourDossiers& retour_;
    QWidget& arbre_;
    QWidget& liste_;
};

} // namespace velm
