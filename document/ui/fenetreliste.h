#pragma once
// A window that is a list of documents: a bar, the grid, and a line that says how many there are. What makes one list
// another is its description and the source that fills it; what its bar has of its own is added to barre().
#include "core/colonnes.h"
#include "core/fenetrefille.h"
#include "core/reglages.h"
#include "core/texte.h"
#include "document/ui/grilledocuments.h"
#include "platform/system/dialogues.h"
#include "platform/system/imprimante.h"
#include "platform/system/outside.h"
#include "platform/system/sablier.h"

#include <QWidget>

#include <functional>
#include <memory>

class QMenu;
class QVBoxLayout;

namespace velm {

class StatusBar;
class Toolbar;

/// What the windows of lists need of their surroundings; all of it outlives them.
struct ContexteListe {
    Reglages& reglages;
    Dialogues& dialogues;
    Imprimante& imprimante;
    PressePapiers& pressepapiers;
    Sablier& sablier;
    Libelles texte; ///< of the language file
    /// Opens a document, with the caret at `ancre`.
    std::function<void(const Cle& cle, const QString& ancre)> ouvre;
    /// Makes documents the selection list; without it the menu does not offer that.
    std::function<void(const std::vector<Cle>& cles)> selectionne = {};
    /// Keeps the place of a window; may be empty.
    std::function<void(const QWidget& fenetre)> noteplace = {};
};

/// What tells one list from another.
struct DescriptionListe {
    QString nom;   ///< objectName of the window
    QString titre; ///< its caption
    ModeleColonnes colonnes;
    ClesColonnes cles; ///< where the columns are kept from one run to the next
    GrilleDocuments::Usage usage = {.suitletri = true};
    bool regroupee = false;                ///< equal neighbours are shown as one at first
    bool copiable = true;                  ///< the frame's command of copying takes all rows
    int indice = -1;                       ///< the window's slot; none
    Texte ouvrir = Texte::OuvrirDeLaListe; ///< the menu's entry for what Enter does
    /// Puts what the bar has of its own before the button that merges; may be empty.
    std::function<void(Toolbar& barre)> garnit = {};
};

class FenetreListe : public QWidget, public FenetreFille {
    Q_OBJECT

public:
    FenetreListe(const DescriptionListe& description, const ContexteListe& contexte, QWidget* parent = nullptr);

    Toolbar& barre() const { return *barre_; }
    FlexGrid& flex() const { return *flex_; }
    StatusBar& etat() const { return *etat_; }

    /// Shows the documents that `source` gives; it is called under the wait cursor. The next time the list stays sorted
    /// as it is, and what is selected and in sight stays so. Null for a list of nothing: the grid hides. Where the
    /// memory does not suffice for the source this is said, and the list stays as it was.
    void remplit(const std::function<std::unique_ptr<SourceDocuments>()>& source);
    /// Fills the list anew from the base, where there is a way to.
    virtual void actualise() {}

    /// Opens the selected documents one after the other; more than fifty after a question.
    void ouvre();
    /// All rows on the clipboard: tabs between cells, CR between rows. They are selected then.
    virtual void copie();
    /// The selected rows on the clipboard as a table, in text and HTML, as the copy key does.
    virtual void copielignes();
    /// The documents of the selected rows become the selection list.
    virtual void selectionne();
    /// Prints all rows, after a question; a list that is too long for paper is not printed, which is said.
    void imprime();

    // ---- what the frame knows of it. It copies, selects and prints all its rows.
    Nature nature() const override { return Nature::Liste; }
    int indice() const override { return description_.indice; }
    bool peut(Ordre ordre) const override;
    void fait(Ordre ordre) override;
    void ecritreglages() override;
    void decharge() override;

signals:
    void fermee(); ///< the settings are written, once

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void focusInEvent(QFocusEvent* evenement) override;

    // ---- for the lists that have more
    const ContexteListe& contexte() const { return contexte_; }
    GrilleDocuments& documents() { return documents_; }
    const GrilleDocuments& documents() const { return documents_; }
    /// Sorts by a column, as its header asks.
    virtual void trie(int place);
    /// Puts a control between the bar and the rows.
    void insere(QWidget* dessus);
    /// The rows are there, or gone: the line and the frame follow.
    void ditlignes();
    /// What the line says of rows that are there.
    virtual QString compte() const;
    /// Says something else in the place of the count, until the next ditlignes().
    void ditetat(const QString& texte);
    /// Under the wait cursor, unless the window answers between pieces of the work. False where the memory does not
    /// suffice, which is said.
    bool travaille(const std::function<void()>& travail, bool attente = true,
                   Texte sansmemoire = Texte::ListeIncomplete);

private:
    void construitbarre();
    void construitmenu();
    void montremenu(const QPoint& ou);
    void connecte();
    void regroupe(bool enfonce);
    void ouvretous(const std::vector<Cle>& cles, const QStringList& ancres);
    void ditcompte();

    ContexteListe contexte_;
    DescriptionListe description_;
    Colonnes colonnes_;
    Toolbar* barre_;
    FlexGrid* flex_;
    StatusBar* etat_;
    QMenu* menu_;
    QVBoxLayout* disposition_;
    GrilleDocuments documents_;
    bool decharge_ = false;
};

} // namespace velm
