#pragma once
// What the base knows of a document, and where it hangs in the contents tree. Nothing can be changed here; all texts
// can be selected and copied.
#include "core/texte.h"
#include "document/arborescence.h"
#include "document/proprietes.h"

#include <QDialog>

#include <array>
#include <functional>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace velm {

class Lecture;
class TreeView;

struct ContexteProprietes {
    Corpus& corpus;
    Reglages& reglages;
    const Parametres& parametres;
    Sablier& sablier;
    Libelles texte;
    std::function<QString(int indice)> libelle;
};

class frmproperties final : public QDialog {
    Q_OBJECT

public:
    explicit frmproperties(const ContexteProprietes& contexte, QWidget* parent = nullptr);

    /// A dialog for the document that is read in a window, shown above the whole program; it goes when it is closed.
    static void montre(const ContexteProprietes& contexte, Lecture& lecture, QWidget* parent);

    /// Fills the dialog and shows it above the whole program; returns at once.
    void afficheproprietes(const Cle& cle, const QString& titrecourant, const DocumentAffiche& document);

    TreeView& arbre() const { return *arbre_; }

protected:
    void showEvent(QShowEvent* evenement) override;
    void hideEvent(QHideEvent* evenement) override;

private:
    void construit();
    QLineEdit* champ(const QString& nom, Texte intitule);
    QComboBox* choix(const QString& nom, Texte intitule);
    void restauretaille();

    ContexteProprietes contexte_;
    Arborescence arborescence_;
    TypesDocument types_;
    Proprietes proprietes_;

    QLineEdit* reference_ = nullptr;
    QLineEdit* numart_ = nullptr;
    QLineEdit* titre_ = nullptr;
    std::array<QLineEdit*, 3> motcle_{};
    QLineEdit* source_ = nullptr;
    QLineEdit* datetext_ = nullptr;
    QLineEdit* datecreation_ = nullptr;
    QLineEdit* datemodif_ = nullptr;
    QComboBox* choixtype_ = nullptr;
    QComboBox* combotype_ = nullptr;
    QListWidget* numerotype_ = nullptr;
    QLineEdit* numeroarborescence_ = nullptr;
    TreeView* arbre_ = nullptr;
    QPushButton* fermer_ = nullptr;
};

} // namespace velm
