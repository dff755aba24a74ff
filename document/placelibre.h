#pragma once
// Where a dialog over a text lies so that what was found can be seen.
#include <QRect>

#include <vector>

namespace velm {

/// All on the screen, in the same pixels.
struct Surface {
    QRect ecran;               ///< which it does not leave
    QRect vue;                 ///< what shows of the text
    QRect courante;            ///< the hit that is shown; null for none
    std::vector<QRect> autres; ///< the others in sight
};

/// The corner where a dialog that lies at `ici` goes. It stays where it covers nothing; else it takes the corner of the
/// text, or the place beside the hit, where it covers the least of them; for other hits than the one shown it moves
/// only where it covers none.
QPoint placelibre(const QRect& ici, const Surface& surface);

/// Where it lies at first: in the upper right corner of the text.
QPoint premiereplace(const QSize& taille, const Surface& surface);

} // namespace velm
