#pragma once
// What is carried in the window of the dossiers: a dossier or an item that is dragged, or a document that waits to be
// stored and hangs on the pointer until a dossier is clicked.
#include "dossiers/gestiondossiers.h"
#include "platform/widgets/look/carrier.h"

#include <QObject>

namespace velm {

class ListView;
class TreeView;

class PorteurDossiers final : public QObject {
    Q_OBJECT

public:
    /// None is owned; `fenetre` is the parent.
    PorteurDossiers(GestionDossiers& gestion, TreeView& arbre, ListView& liste, QWidget* fenetre);

    /// What waits begins to hang on the pointer.
    void porteattente();
    bool porte() const { return porteur_.carries(); }
    /// It came to its place by a key, or is given up without a word.
    void finit() { porteur_.finish(); }

private:
    void tire(const QString& image, const QString& etiquette, Carrier::Mode mode);
    int noeudsous(const QWidget* dessous, const QPoint& global) const;
    void survole(const QWidget* dessous, const QPoint& global);
    void depose(const QWidget* dessous, const QPoint& global);

    GestionDossiers& gestion_;
    TreeView& arbre_;
    ListView& liste_;
    QWidget* fenetre_;
    Carrier porteur_;
};

} // namespace velm
