#pragma once
// What the base knows of a document, and where it hangs in the contents tree: a page of names and texts that can be
// selected and copied. Nothing can be changed here, and what is empty is left out.
#include "core/texte.h"
#include "document/arborescence.h"
#include "document/proprietes.h"

#include <QDialog>

#include <array>
#include <functional>

class QComboBox;
class QGridLayout;
class QLabel;
class QListWidget;
class QPushButton;
class QScrollArea;

namespace velm {

class Lecture;
class TexteLu;
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
    void construitarbre();
    QWidget* construitpage();
    TexteLu* champ(const QString& nom);
    QComboBox* choix(const QString& nom);
    void rangee(Texte intitule, QWidget* valeur);
    void met(TexteLu* champ, const QString& valeur);
    void montrerangee(QWidget* valeur, bool montree);
    void montrearbre(bool montre);
    int hauteurdelapage() const;
    void restauretaille();

    ContexteProprietes contexte_;
    Arborescence arborescence_;
    TypesDocument types_;
    Proprietes proprietes_;
    int hauteurproposee_ = 0; ///< as high as the page needs to be; 0 before it is shown

    QScrollArea* zone_ = nullptr;
    QGridLayout* grille_ = nullptr;
    TexteLu* reference_ = nullptr;
    TexteLu* numart_ = nullptr;
    TexteLu* titre_ = nullptr;
    std::array<TexteLu*, 3> motcle_{};
    TexteLu* source_ = nullptr;
    TexteLu* datetext_ = nullptr;
    TexteLu* datecreation_ = nullptr;
    TexteLu* datemodif_ = nullptr;
    QComboBox* choixtype_ = nullptr;
    QComboBox* combotype_ = nullptr;
    QListWidget* numerotype_ = nullptr;
    TexteLu* numeroarborescence_ = nullptr;
    TexteLu* chemin_ = nullptr;
    TreeView* arbre_ = nullptr;
    QPushButton* voir_ = nullptr;
    QPushButton* fermer_ = nullptr;
};

} // namespace velm
