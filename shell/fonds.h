#pragma once
// The pictures behind the windows of the frame: fine line drawings of our own, drawn for the size and the density of
// the screen they are shown on.
#include "platform/widgets/look/look.h"

#include <QColor>
#include <QPixmap>
#include <QSize>

namespace velm {

inline constexpr int nombredefonds = 5;

/// The colour under picture 0 to 4; invalid for other numbers.
QColor couleurdefond(int numero);

/// Picture 0 to 4, in a light theme on a thin veil, to be laid in the middle over its colour (in a dark theme over a
/// darkened one). It may be larger than the frame: the drawing goes out from its middle. The size counts pixels of the
/// layout; null for other numbers and for empty sizes.
QPixmap imagedefond(int numero, const QSize& taille, qreal densite, look::Theme theme);

} // namespace velm
