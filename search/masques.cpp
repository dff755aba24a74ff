#include "search/masques.h"

#include "platform/text/number.h"

#include <algorithm>

namespace velm {

namespace {

constexpr int chiffresparlargeur = 6;
constexpr double plusgrande = 999'999;
constexpr int titreducaractere = 252; ///< plus the character's code: 300 for "0"

} // namespace

int largeurdumasque(QStringView largeurs, int colonne) {
    const qsizetype debut = qsizetype{chiffresparlargeur} * colonne;
    if (debut < 0 || debut >= largeurs.size())
        return 0;
    // Six characters may also say 1e9999.
    return static_cast<int>(std::clamp(val(largeurs.mid(debut, chiffresparlargeur)), 0.0, plusgrande));
}

int champdumasque(QStringView ordre, int colonne) {
    if (colonne < 0 || colonne >= ordre.size() || ordre[colonne] < u'0' || ordre[colonne] > u'9')
        return -1;
    return ordre[colonne].unicode() - u'0';
}

int titreduchamp(QChar chiffre) {
    return titreducaractere + chiffre.unicode();
}

} // namespace velm
