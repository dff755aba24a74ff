#pragma once
// The panel of a document window: the contents tree, the list of the collection or the word search, of which one is
// shown, and the bar that is dragged to make it larger.
#include "document/arborescence.h"
#include "document/ui/contextetextes.h"

#include <QObject>

class QRect;

namespace velm {

class BlocListe;
class BlocRecherche;
class FlexGrid;
class SplitterBar;
class SuiviSommaire;
class TreeView;

/// Its controls are the window's own: the panel places and fills them, and shows one block.
class PanneauTextes final : public QObject {
    Q_OBJECT

public:
    /// Of the window of a collection. Nothing is shown, and nothing filled.
    PanneauTextes(const QString& code, const ContexteTextes& contexte, QWidget* fenetre);

    TreeView& arbre() const { return *arbre_; }
    FlexGrid& flex() const;
    SplitterBar& separateur() const { return *separateur_; }
    Bloc bloc() const { return bloc_; }
    /// Twips that the search needs above the text; 0 for a block that takes what there is.
    int hauteurvoulue() const;

    /// Takes what was stored for the window: what the list is to look like when it is filled.
    void charge(const ReglagesTextes& reglages);
    /// Puts block and columns where they are stored.
    void retient(ReglagesTextes& reglages);
    /// Makes a block the panel's own. Tree and list are filled at their first time; where the memory does not suffice
    /// that is said, and tried again the next time.
    void choisit(Bloc bloc);
    /// Gives all blocks their place in the window, pixels.
    void place(const QRect& ici);
    /// Shows the panel's block, or none where there is no room to read it.
    void montre(bool lisible);
    /// The window shows a document, which hangs from the branch of a number: tree and list follow.
    void suit(const Cle& cle, qint64 numero);
    /// Puts the focus into the words of the search block; false when they cannot be seen, or the block is off.
    bool prendfocus();
    /// Whether the focus is in the block that is shown.
    bool tientfocus() const;
    /// Puts the focus into the block that is shown, whichever it is, and on a row of it: one sees where the keys go.
    void donnefocus();

signals:
    void grandit(int hauteur);            ///< the search may want another height, twips
    void ouverte(const Cle& cle);         ///< a document of the list is wanted
    void ouvertedelarbre(const Cle& cle); ///< one of the tree

private:
    void construitarbre();
    void construitrecherche();
    void chargearbre();

    QString code_;
    ContexteTextes contexte_;
    Arborescence arborescence_;
    ReglagesTextes reglages_;
    Bloc bloc_ = Bloc::Recherche;
    bool arbrecharge_ = false;
    TreeView* arbre_;
    SuiviSommaire* suivi_;
    BlocListe* liste_;
    BlocRecherche* recherche_;
    SplitterBar* separateur_;
};

} // namespace velm
