#pragma once
// Tables on tab stops: the rows of a source table laid out as lines whose cells stand under each other.
#include "collection/balisage.h"

namespace velm {

/// A piece of a line: text in one format, of one link or none.
struct Fragment {
    QStringView texte;
    bool gras = false;
    bool italique = false;
    int lien = -1; ///< index of the link in DispositionTableau::liens
};

struct LigneDeTableau {
    std::vector<std::vector<Fragment>> cellules;
    bool derniere = false; ///< the last line of its row
    bool pleine = false;   ///< a row of one cell alone: it takes the whole width
};

struct LienDeTableau {
    Morceau::Genre genre;
    QStringView cible;
};

/// What a table becomes. Texts point into the rows given.
struct DispositionTableau {
    int demipoints = 20;      ///< font size in half points
    std::vector<int> taquets; ///< tab stops in twips; the first cell begins at the margin
    int suspendu = 0;         ///< indent of further lines of a paragraph, in twips
    std::vector<LigneDeTableau> lignes;
    std::vector<LienDeTableau> liens;
};

/// Lays out consecutive table rows (cells parted by TAB, breaks in a cell by LF). In this order:
///  - all cells on one line when every row fits the width of a page;
///  - only the last column is long: it wraps by itself under its own stop;
///  - columns of a fitting width, each cell wrapped by us, in the largest size at which the longest words fit;
///  - too many columns for any size: the cells of a row one after the other, parted by dashes.
/// A row whose first cell alone holds something (a heading, a remark) runs over the whole width and does not count for
/// the columns.
DispositionTableau disposetableau(const std::vector<QStringView>& rangees, const SignaleBalisage& signale);

} // namespace velm
