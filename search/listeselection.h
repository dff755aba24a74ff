#pragma once
// The selection list: the one place where all searches put what they find. It holds rows and columns, their order and
// the selected rows, without a window; a grid shows it through source().
//
// As in the grid, row 0 is the header and rows of documents count from 1; rows() counts the header, so that an empty
// list has one row. Columns count from 0 as they stand: one that is moved takes its meaning with it.
#include "platform/controls/gridsource.h"
#include "search/resultat.h"

#include <QString>
#include <QStringView>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace velm {

class ListeSelection {
public:
    static constexpr int colonnes = 7;
    static constexpr int colonnesvisibles = 6;
    static constexpr int colonnecle = 6;
    /// What a column shows (ColData); the hidden one shows the key.
    using Champ = Lignes::Champ;
    using enum Lignes::Champ;
    enum class Marque { Aucune, Ascendante, Descendante };
    static constexpr QStringView masquelargeurs = u"003000002000002000002000000500001000";
    static constexpr QStringView masqueordre = u"012354";

    /// `texte` gives the headers.
    explicit ListeSelection(const std::function<QString(int)>& texte);

    // ---- columns
    int coldata(int colonne) const;
    int largeur(int colonne) const; ///< twips; 0 for the key
    void changelargeur(int colonne, int twips);
    QString entete(int colonne) const; ///< empty for the code of the collection
    /// The header as its cell shows it: ">" behind it when sorted ascending, "<" descending.
    QString entetecellule(int colonne) const;
    /// Puts a column at another place (the key stays where it is).
    void deplacecolonne(int colonne, int place);
    /// Order and widths of the six columns as they stand, in the form of the masks.
    QString ordre() const;
    QString largeurs() const;
    /// Takes an order and widths that were stored so. An order that does not name each of the six once, and a width
    /// that is no number or none that can be seen, changes nothing.
    void prendcolonnes(QStringView ordre, QStringView largeurs);

    // ---- rows
    int rows() const { return lignes() + 1; }
    int lignes() const { return resultat_.lignes.nombre(); }
    /// The rows and what goes with them. A search fills them here; who has changed them selects anew.
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

    // ---- selection
    int row() const { return row_; } ///< 0 for none
    int rowsel() const { return rowsel_; }
    void choisit(int row, int rowsel);
    std::pair<int, int> rangschoisis() const; ///< lower first
    /// One row down or up, if there is one; the selection is then that row alone, and it is to be opened.
    bool suivantrecherche();
    bool precedentrecherche();

    /// The rows for a grid whose columns are those of the masks, wherever the user has moved them. The list must live
    /// longer. To be set anew when rows have come or gone.
    std::unique_ptr<GridSource> source();

private:
    struct Colonne {
        int champ = Titre;
        int largeur = 0;
        QString entete;
        Marque marque = Marque::Aucune;
    };
    class Source;

    bool colonnela(int colonne) const { return colonne >= 0 && colonne < colonnes; }
    const Colonne& colonne(int place) const { return colonnes_[static_cast<std::size_t>(place)]; }
    void range(int champ, bool descendant);

    std::array<Colonne, colonnes> colonnes_;
    Resultat resultat_;
    int row_ = 0;
    int rowsel_ = 0;
};

/// The count as the status panel shows it: the number with its leading blank and the word, in the singular up to 1.
QString textecompte(qint64 nombre, const std::function<QString(int)>& texte);

/// Tool tips, by their numbers, of the buttons `regrouper` and `affichercritères`.
int infobulleregrouper(bool enfonce);
int infobullecriteres(bool enfonce);

} // namespace velm
