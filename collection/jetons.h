#pragma once
// The private markup in the plain text of a ready-made rich text body.
#include <QStringView>

#include <vector>

namespace velm {

struct Jeton {
    enum class Genre : quint8 {
        Texte,      ///< shown
        Inclusion,  ///< the key in `texte`
        SautDePage, ///
        Lien,       ///< the key in `texte`; the shown text comes as Texte before it
        Douteux ///< a brace that ends nowhere, or a link without its bar: shown in full or lost; `texte` begins there
    };
    Genre genre;
    QStringView texte;
};

/// Cuts the text of a body into what is shown and what is markup. Style tokens and unknown groups are passed over.
std::vector<Jeton> decoupejetons(QStringView texte);

} // namespace velm
