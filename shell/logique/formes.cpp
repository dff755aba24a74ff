#include "shell/logique/formes.h"

#include <algorithm>
#include <array>

namespace velm {

bool estformerecherche(QStringView nom) {
    constexpr std::array<QStringView, 6> noms{u"frmVelmorSelect", u"frmchrono", u"frmrechnum",
                                              u"frmRechDate",     u"frmTaille", u"frmrechmotcle"};
    return std::ranges::find(noms, nom) != noms.end();
}

} // namespace velm
