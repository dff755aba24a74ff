#pragma once
// The selection list's grid and the panel around it, as the logic sees them.
#include "core/bilan.h"
#include "core/ordre.h"
#include "search/listeselection.h"

#include <utility>

namespace velm {

/// The grid, as the logic sees it. Rows count from 1 and columns from 0, as they stand.
class VueLignes {
public:
    virtual ~VueLignes() = default;

    /// The rows are about to change: nothing of them is shown until montre().
    virtual void cache() = 0;
    /// Paints nothing until relit().
    virtual void fige() = 0;
    /// Takes the rows as they are by now.
    virtual void relit() = 0;
    /// The rows are done; they show, or not. Where none is selected, from the first on.
    virtual void montre(bool visible) = 0;
    virtual void montremarque(int colonne, ListeSelection::Marque marque) = 0;
    /// Sorts through the source of the rows.
    virtual void trie(int colonne, bool descendant) = 0;
    /// Equal neighbours are shown as one cell, or not.
    virtual void regroupe(bool regroupees) = 0;
    /// Where the selection begins and where it ends; 0 for none.
    virtual std::pair<int, int> choix() const = 0;
    virtual void choisit(int row, int rowsel) = 0;
    virtual void choisittout() = 0;
    /// The selected rows: tabs between cells, CR between rows.
    virtual QString copie() const = 0;
    virtual int largeur(int colonne) const = 0; ///< twips
    /// Too narrow for columns: the keywords stand below the titles.
    virtual bool etroite() const { return false; }
};

/// The panel around the grid, as the logic sees it. Its buttons stand for commands.
class VueListe {
public:
    virtual ~VueListe() = default;

    virtual void permet(Ordre ordre, bool permis) = 0;
    virtual void coche(Ordre ordre, bool cochee) = 0;
    virtual void infobulle(Ordre ordre, const QString& texte) = 0;
    /// Into the status panel.
    virtual void ditetat(const QString& texte) = 0;
    /// Over the rows: what they are. Of a search that was cut, all can be asked for there.
    virtual void ditbilan(const BilanRecherche& bilan) = 0;
    virtual void montrepanneau(bool visible) = 0;
    /// Widens the panel to what the rows of a tool need.
    virtual void elargitpanneau() = 0;
    /// The search form is to be shown or hidden.
    virtual void montrecriteres(bool montres) = 0;
    /// Tells the frame that a window has come or gone: its buttons of the arrangements may have to change.
    virtual void majdispositions() = 0;
    /// Opens the document of a key with these words to mark.
    virtual void ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) = 0;
};

} // namespace velm
