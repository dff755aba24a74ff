#pragma once
// The find dialog: looks for a text in the active document window, in which every hit shows as long as the dialog does.
// It stays on top of the frame and lets it be used, and goes out of the way of what it finds; it moves with a step and
// never by itself.
#include "core/texte.h"
#include "document/recherchetexte.h"
#include "platform/system/dialogues.h"

#include <QDialog>
#include <QPointer>

#include <functional>

class QCheckBox;
class QLabel;
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
    /// Backwards over the same hits; before the first stands the last.
    void precedent();
    /// Another window may be the active one, or another text in it: finds there what it shows and counts.
    void actualise();

protected:
    void showEvent(QShowEvent* evenement) override;
    void hideEvent(QHideEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construit();
    void dispose(QLabel* etiquette, QPushButton* fermer);
    void relie(QPushButton* fermer);
    /// The window to look in, begun anew where it is another one; null closes the dialog.
    RichTextBox* vuecherchee();
    void suit(RichTextBox* vue);
    void montreetat();
    void quittetrouve();
    int options() const;
    /// Out of the way of the hits.
    void decouvre();

    Libelles texte_;
    Dialogues& dialogues_;
    std::function<Cible()> active_;
    RechercheTexte recherche_;
    QString document_;
    QLineEdit* txtFind_ = nullptr;
    QCheckBox* checkmot_ = nullptr;
    QCheckBox* checkcasse_ = nullptr;
    QPushButton* cmdFindNext_ = nullptr;
    QPushButton* cmdFindPrevious_ = nullptr;
    QPointer<RichTextBox> vue_;          ///< that shows the hits
    std::vector<qsizetype> occurrences_; ///< in it
};

} // namespace velm
