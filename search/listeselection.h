#pragma once
// The selection list: the one place where all searches put what they find. It holds rows and columns, their order and
// the selected rows, without a window; a grid shows it through source().
//
// As in the grid, row 0 is the header and rows of documents count from 1; rows() counts the header, so that an empty
// list has one row.
#include "core/colonnes.h"
#include "core/sourcedocuments.h"

#include <QString>
#include <QStringView>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velm {

/// The fields of a row. `cle` is the collection's code and the number.
struct FicheDocument {
    QStringView reference, numart, titre, motcle1, motcle2, motcle3, cle;
};

/// What the end of a search makes of the buttons of the list and of the search form.
struct PublicationFin {
    /// précédentrecherche, suivantrecherche, sauvercritères, imprimercritères and envoyercritères take this state.
    bool resultatpresent = false;
    bool ouvrircriteres = true;
    /// Of the search form: Option2 is enabled; where it is not, Option1 is set.
    bool option2 = false;

    friend bool operator==(const PublicationFin&, const PublicationFin&) = default;
};

class ListeSelection {
public:
    static constexpr int nombredecolonnes = 7;
    static constexpr int colonnesvisibles = 6;
    /// What a column shows; the hidden one shows the key.
    enum Champ : int { Titre, Motcle1, Motcle2, Motcle3, Numart, Reference, Clef };
    enum class Marque { Aucune, Ascendante, Descendante };
    static ModeleColonnes modele();

    /// `texte` gives the headers.
    explicit ListeSelection(const std::function<QString(int)>& texte);

    Colonnes& colonnes() { return colonnes_; }
    const Colonnes& colonnes() const { return colonnes_; }
    /// The header of a column as its cell shows it: ">" behind it when sorted ascending, "<" descending.
    QString entetecellule(int colonne) const;

    // ---- rows
    int rows() const { return lignes() + 1; }
    int lignes() const { return static_cast<int>(ordre_.size()); }
    /// Empties the list: no row, no selection.
    void vide();
    /// 0, or -1 when the list takes no more rows: the search then ends with those it has.
    int ajouteauflex(const FicheDocument& fiche);
    /// Removes rows, by their present numbers in ascending order; the rows below move up.
    void supprime(const std::vector<int>& rangs);
    /// Removes the selected rows. The selection goes to the row that moves up.
    void supprimeselection();
    /// Text of a cell by the column as it stands; row 0 is the header.
    QString texte(int rang, int colonne) const;
    QString champ(int rang, Champ champ) const;
    QString cle(int rang) const { return champ(rang, Clef); }
    /// How many rows it takes; for tests of a full list.
    void limitelignes(int nombre) { capacite_ = nombre; }

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

    // ---- state
    /// Words to mark in documents that are opened from the list.
    QString mot1;
    QString mot2;
    /// Hidden while a search fills it, and as long as there was none.
    bool visible = false;
    PublicationFin publie() const;

    /// The rows as they are by then, for a grid. The list must live longer.
    std::unique_ptr<SourceDocuments> source();

private:
    static constexpr std::size_t nombredechamps = 7;
    struct Ligne {
        std::size_t debut = 0;
        std::array<quint32, nombredechamps> fins{};
    };
    struct Tri {
        int champ;
        bool descendant;
    };
    class Source;

    const Ligne& ligne(int rang) const { return lignes_[ordre_[static_cast<std::size_t>(rang) - 1]]; }
    void range(int champ, bool descendant);

    Colonnes colonnes_;
    std::optional<Tri> tri_;       ///< which column bears the mark
    std::vector<char16_t> textes_; ///< of all rows, one behind the other
    std::vector<Ligne> lignes_;
    std::vector<quint32> ordre_; ///< which of them stands where
    int capacite_;
    int row_ = 0;
    int rowsel_ = 0;
};

/// Tool tips, by their numbers, of the buttons `regrouper` and `affichercritères`.
int infobulleregrouper(bool enfonce);
int infobullecriteres(bool enfonce);

} // namespace velm
