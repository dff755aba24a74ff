#pragma once
// The inline markup of a source text, cut in pieces.
#include <QString>
#include <QStringView>

#include <functional>
#include <vector>

namespace velm {

struct Morceau {
    enum class Genre : quint8 {
        Texte,      ///< literal text in `texte`
        Lien,       ///< a link begins; its key in `texte`, its shown text in the pieces up to FinDeLien
        Web,        ///< the same with an address
        Mail,       ///< the same with a mail address
        FinDeLien,  ///
        Inclusion,  ///< the key in `texte`
        SautDePage, ///
        FinDeLigne  ///< a line feed
    };
    Genre genre = Genre::Texte;
    bool gras = false;
    bool italique = false;
    QStringView texte;
};

/// Reports a piece of text that the markup does not allow. `tolerable`: it was replaced by something that can stand.
using SignaleBalisage = std::function<void(QStringView morceau, bool tolerable)>;

/// Cuts a source text. The pieces point into `texte` (or at constants). A link takes the format of its first character
/// as a whole. Braces in the text become round brackets, and a bar in a shown text a slash, as neither can be displayed
/// there; wrong markup is reported and left out.
void decoupebalisage(QStringView texte, std::vector<Morceau>& morceaux, const SignaleBalisage& signale);

/// Calls back for each inclusion of a source text.
void chercheinclusions(QStringView texte, const std::function<void(QStringView cle)>& trouve);

} // namespace velm
