#pragma once
// How sharp a picture is drawn.
#include <QImage>

namespace velm::vues {

/// The share of a picture's inked pixels that are half-tones: 0 where each stroke covers whole pixels; an empty picture
/// has none. A pixel within a fifth of full ink, or of none, is no half-tone: strokes are not whole pixels wide.
double halfTones(const QImage& picture);

} // namespace velm::vues
