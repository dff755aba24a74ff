#pragma once
// The dialog of a base that does not open: try again, find it, or leave.
#include "core/texte.h"
#include "shell/logique/connexion.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace velm {

/// Accepted with an open base; rejected when the user leaves.
class frmconnexion final : public QDialog {
    Q_OBJECT

public:
    /// `connexion` is not owned and must live longer.
    frmconnexion(const Libelles& texte, Connexion& connexion, QWidget* parent = nullptr);

private:
    QLabel* etiquette(const char* nom);
    QPushButton* bouton(const char* nom, const QString& texte);
    void construit(const Libelles& texte);
    void conclut(bool ouverte);

    Connexion& connexion_;
    QLabel* lieu_;
    QLabel* cause_;
};

} // namespace velm
