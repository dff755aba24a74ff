#pragma once
// How the compiler writes paragraphs that no style table has touched.
#include "collection/balisage.h"
#include "collection/document.h"

#include <QByteArrayView>

namespace velm {

/// Ink, accent (links and article numbers), slate (subtitles, quotations), grey (notes).
inline constexpr QByteArrayView entete = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1036\\uc1"
                                         "{\\fonttbl{\\f0\\froman\\fcharset0 Liberation Serif;}"
                                         "{\\f1\\fswiss\\fcharset0 Liberation Sans;}}"
                                         "{\\colortbl;\\red30\\green39\\blue50;\\red31\\green78\\blue121;"
                                         "\\red58\\green70\\blue84;\\red85\\green96\\blue110;}\n";
inline constexpr QByteArrayView couleurdelien = "\\cf2 ";

struct Aspect {
    QByteArrayView paragraphe;
    QByteArrayView police;  ///< font and colour
    QByteArrayView couleur; ///< the colour again, to return from a link
    int demipoints;
    bool gras;
    bool italique;
};

/// The look that a paragraph style has without any style table. Sizes, colours and indents are those of the styles of
/// the same names in the publisher's defaults, so that nothing jumps when a section's style is applied.
const Aspect& aspect(StyleSource style);

/// What begins the target of a link of this kind.
QByteArrayView lettredelien(Morceau::Genre genre);

} // namespace velm
