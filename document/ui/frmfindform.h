#pragma once
// The find dialog: looks for a text in the active document window. It stays on top of the frame and lets it be used.
#include "core/texte.h"
#include "document/recherchetexte.h"
#include "platform/system/dialogues.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace velm {

class RichTextBox;

class frmFindForm final : public QDialog {
    Q_OBJECT

public:
    /// What it looks in: a text and what tells its document from others.
    struct Cible {
        RichTextBox* vue = nullptr; ///< null: no document window is active
        QString document;
    };
    /// `texte` gives a text by its number, `active` what is to be looked in.
    frmFindForm(const Libelles& texte, Dialogues& dialogues, std::function<Cible()> active, QWidget* parent = nullptr);

    /// Shows it, or brings it forward, with its text selected. A text that is given is put into it.
    void montre(const QString& propose);
    void suivant();

private:
    void construit();
    /// Out of the way of the hit.
    void decouvre(const RichTextBox& vue);

    Libelles texte_;
    Dialogues& dialogues_;
    std::function<Cible()> active_;
    RechercheTexte recherche_;
    QString document_;
    QLineEdit* txtFind_ = nullptr;
    QCheckBox* checkmot_ = nullptr;
    QCheckBox* checkcasse_ = nullptr;
    QPushButton* cmdFindNext_ = nullptr;
};

} // namespace velm
