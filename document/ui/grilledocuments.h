#pragma once
// A list of documents in a grid: shows the rows of a source under the columns of the list, keeps both in step with what
// the user does to the grid, and tells which documents are wanted. All lists of documents are such grids.
//
// Rows count from 1 and columns from 0 as they stand, as in the grid.
#include "core/colonnes.h"
#include "core/sourcedocuments.h"
#include "platform/paper/papertable.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QPoint;

namespace velm {

class FlexGrid;

class GrilleDocuments final : public QObject {
    Q_OBJECT

public:
    /// What one list does otherwise than the others.
    struct Usage {
        bool unclic = false;      ///< one click opens a row and sorts by a header; else a double click
        bool clicouvre = false;   ///< one click opens a row, and a double click sorts by a header
        bool plage = true;        ///< all selected rows are opened; else the one that was pressed, alone
        bool suitletri = false;   ///< the selected document stays selected where a sort puts it
        bool deplacables = true;  ///< the user drags columns
        bool menuchoisit = false; ///< the right button selects the row under it alone
        int champetire = -1;      ///< its column takes the width that the others leave
        int champimage = -1;      ///< its column shows the pictures of the collections whose codes it holds
        int imagedevant = -1;     ///< these stand before the texts of this one instead
    };

    /// Makes the columns. Grid and columns are not owned and live longer.
    GrilleDocuments(FlexGrid& flex, Colonnes& colonnes, const Usage& usage);

    FlexGrid& flex() const { return flex_; }

    // ---- columns
    /// The grid's stand as those of the list do.
    void montrecolonnes();
    /// The list's stand as those of the grid do, and are as wide. What a column has of the free width is not its own.
    void releve();

    // ---- rows
    /// Another list: its first rows are seen, none is selected, no column bears a mark.
    void charge(std::unique_ptr<SourceDocuments> source);
    /// The same list anew: sorted as it was, with the same document selected, if it is there, and the same rows in
    /// sight.
    void recharge(std::unique_ptr<SourceDocuments> source);
    void vide();
    /// Null for none.
    const SourceDocuments* source() const;
    /// The document of a row; empty for none.
    Cle cle(int ligne) const;
    /// The first row of a document; 0 for none.
    int ligne(const Cle& cle) const;
    /// The documents of the rows from one to another, both counted.
    std::vector<Cle> cles(int premiere, int derniere) const;

    // ---- order
    struct Tri {
        int colonne = -1; ///< none
        bool descendant = false;
    };
    /// The column that bears the mark.
    Tri tri() const;
    /// Which column of the source stands in a place; -1 for none.
    int colonnesource(int colonne) const;
    /// By a column upwards, or downwards where it is sorted upwards; it alone bears a mark then.
    void trie(int colonne);

    // ---- changes in the rows of a source that stays
    /// They are about to change: nothing is seen of them until montre().
    void cache();
    /// They are seen again, or not. The focus comes back if nobody else has taken it.
    void montre(bool visible);

    /// Opens a row, or the selected ones where the list does so, if `veut` allows so many rows.
    void ouvre(int ligne);
    /// Asked before any of them is read.
    void demande(std::function<bool(int lignes)> veut) { veut_ = std::move(veut); }
    /// All rows for the printer; they are selected then.
    PaperTable tableau(const QString& titre);

signals:
    /// These are wanted, in this order; `ancres` says where in each of them.
    void ouvertes(const std::vector<Cle>& cles, const QStringList& ancres);
    void trivoulu(int colonne);       ///< by its header; trie() does it
    void suppressionvoulue();         ///< of the selected rows
    void menuvoulu(const QPoint& ou); ///< on the screen

private:
    void presse(int ligne, int colonne);
    void pressemenu(int ligne, const QPoint& ou);
    void effacemarques();
    void choisit(const Cle& cle, int haut);

    FlexGrid& flex_;
    Colonnes& colonnes_;
    Usage usage_;
    QElapsedTimer depuisouverture_;
    std::function<bool(int lignes)> veut_;
    bool focus_ = false; ///< the grid had it before it was hidden
};

} // namespace velm
