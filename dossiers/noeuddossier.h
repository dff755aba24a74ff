#pragma once
// A node of the tree of dossiers: its key, and the letters of its tag.
#include "platform/controls/treenodes.h"

#include <vector>

namespace velm::noeuddossier {

// The letters of a tag have no order but for the first of these, which stands in front.
inline constexpr QChar charge = u'+'; ///< the children are loaded
inline constexpr QChar sansrangee = u'A';
inline constexpr QChar deplacee = u'D';
inline constexpr QChar renommee = u'R';
inline constexpr QChar supprimee = u'S';

inline constexpr QStringView provisoire = u"$"; ///< behind the keys of what is being built anew

QString cle(qint64 numero);
/// The number in a key; 0 for what is none.
qint64 numero(const QString& cle);
/// A store may hold any numbers: behind the greatest one come the first ones again.
qint64 numerosuivant(qint64 numero);

/// Calls `fait` for a node and all below it, each before what is below it; from the first child to the last.
template <typename Fait>
void parcourt(const TreeNodes& noeuds, int noeud, Fait fait) {
    std::vector<int> reste{noeud};
    while (!reste.empty()) {
        const int prochain = reste.back();
        reste.pop_back();
        fait(prochain);
        for (int place = noeuds.children(prochain) - 1; place >= 0; --place)
            reste.push_back(noeuds.childAt(prochain, place));
    }
}

} // namespace velm::noeuddossier
