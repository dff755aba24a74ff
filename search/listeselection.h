#pragma once
// The selection list: the one place where all searches put what they find. It holds rows and columns, their order and
// the selected rows, without a window; a grid shows it through source().
//
// As in the grid, row 0 is the header and rows of documents count from 1; rows() counts the header, so that an empty
// list has one row.
#include "core/colonnes.h"
#include "core/sourcedocuments.h"
#include "core/texte.h"
#include "search/resultat.h"

#include <QString>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace velm {

class ListeSelection {
public:
    static constexpr int nombredecolonnes = 7;
    static constexpr int colonnesvisibles = 6;
    /// What a column shows; the hidden one shows the key.
    using Champ = Lignes::Champ;
    using enum Lignes::Champ;
    enum class Marque { Aucune, Ascendante, Descendante };
    static ModeleColonnes modele();

    /// `texte` gives the headers.
    explicit ListeSelection(const Libelles& texte);

    Colonnes& colonnes() { return colonnes_; }
    const Colonnes& colonnes() const { return colonnes_; }
    /// The header of a column as its cell shows it: ">" behind it when sorted ascending, "<" descending.
    QString entetecellule(int colonne) const;

    // ---- rows
    int rows() const { return lignes() + 1; }
    int lignes() const { return resultat_.lignes.nombre(); }
    /// The rows and what goes with them. A search fills them here.
    const Resultat& resultat() const { return resultat_; }
    Resultat& resultat() { return resultat_; }
    /// Empties the list: no row, no selection.
    void vide();
    /// Removes the selected rows. The selection goes to the row that moves up.
    void supprimeselection();
    /// Text of a cell by the column as it stands; row 0 is the header.
    QString texte(int rang, int colonne) const;
    QString champ(int rang, Champ champ) const { return resultat_.lignes.champ(rang, champ); }
    QString cle(int rang) const { return champ(rang, Clef); }

    // ---- order
    Marque marque(int colonne) const;
    /// Only this column bears a mark then. Rows that equal stay in order. The selected row stays selected where it
    /// goes.
    void trie(int colonne, bool descendant);
    /// A new result is in the order in which it was found.
    void effacemarquestri();

    // ---- equal neighbours
    /// They are to be shown as one.
    void regroupe(bool regroupee) { regroupee_ = regroupee; }
    bool regroupee() const { return regroupee_; }
    /// There are such: in the sorted column, else in the first.
    bool repetitions() const;

    // ---- selection
    /// 0 for none. Where rows were taken out under it, the last one.
    int row() const { return std::min(row_, lignes()); }
    int rowsel() const { return std::min(rowsel_, lignes()); }
    void choisit(int row, int rowsel);
    std::pair<int, int> rangschoisis() const; ///< lower first
    /// One row down or up, if there is one; the selection is then that row alone, and it is to be opened.
    bool suivantrecherche();
    bool precedentrecherche();

    /// The rows as they are by then, for a grid. The list must live longer.
    std::unique_ptr<SourceDocuments> source();

private:
    struct Tri {
        int champ;
        bool descendant;
    };
    class Source;

    void range(int champ, bool descendant);

    Colonnes colonnes_;
    std::optional<Tri> tri_; ///< which column bears the mark
    Resultat resultat_;
    int row_ = 0;
    int rowsel_ = 0;
    bool regroupee_ = false;
};

/// Tool tips, by their numbers, of the buttons `regrouper` and `affichercritères`.
Texte infobulleregrouper(bool enfonce);
/// That of a list: where the button would change nothing that is seen it says so. A narrow one has no columns.
Texte infobulleregrouper(const ListeSelection& liste, bool etroite);
Texte infobullecriteres(bool enfonce);

} // namespace velm
