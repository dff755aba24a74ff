#include "document/recherchetexte.h"

namespace velm {

bool FindString(RichTextControl& controle, const QString& texte, qsizetype debut, qsizetype fin, int options) {
    const FindOptions voulues{(options & RechercheTexte::motentier) != 0, (options & RechercheTexte::casse) != 0};
    return controle.find(texte, debut, fin, voulues) >= 0;
}

RechercheTexte::Issue RechercheTexte::suivant(RichTextControl& controle, const QString& texte, int options) {
    constexpr int plusieurs = 2;
    if (FindString(controle, texte, debut_, -1, options)) {
        debut_ = controle.selStart() + 1;
        ++compte_;
        return Issue::Trouve;
    }
    const bool seul = compte_ < plusieurs;
    recommence();
    return seul ? Issue::Absent : Issue::Termine;
}

} // namespace velm
