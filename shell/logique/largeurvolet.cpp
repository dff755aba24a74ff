#include "shell/logique/largeurvolet.h"

#include "platform/text/number.h"

#include <algorithm>
#include <limits>

namespace velm {

namespace {

constexpr qint64 plusgrande = std::numeric_limits<qint16>::max();

} // namespace

LargeurVolet::LargeurVolet(double largeurpane) {
    changelargeurliste(static_cast<int>(std::clamp<qint64>(roundHalfEven(largeurpane) - minimum, minimum, plusgrande)));
}

void LargeurVolet::changelargeurliste(int twips) {
    largeurliste_ = static_cast<int>(std::clamp<qint64>(twips, minimum, plusgrande));
}

} // namespace velm
