#pragma once
// What was lost of the dossiers in the last thirty days, the newest first, and the button that puts a row back.
#include "core/texte.h"
#include "dossiers/reprises.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

namespace velm {

class DialoguePertes final : public QDialog {
    Q_OBJECT

public:
    /// None is owned; all of it outlives the dialog.
    DialoguePertes(Reprises& reprises, GestionDossiers& gestion, QWidget* parent);

private:
    void construit();
    void remplit(int choisie);
    /// The last one closes the dialog.
    void remet();
    int hauteur() const;
    QString sorte(Perte::Sorte sorte) const;

    Reprises& reprises_;
    GestionDossiers& gestion_;
    Libelles texte_;
    QTreeWidget* liste_;
    QPushButton* remettre_;
};

} // namespace velm
