#include "search/largeurvolet.h"

#include "platform/text/number.h"

#include <algorithm>
#include <limits>

namespace velm {

namespace {

constexpr qint64 plusgrande = std::numeric_limits<qint16>::max();
constexpr double retraitseparateur = 100;
constexpr double margeflex = 150;
constexpr double hautflex = 480;

} // namespace

LargeurVolet::LargeurVolet(double largeurpane) {
    changelargeurliste(static_cast<int>(std::clamp<qint64>(roundHalfEven(largeurpane) - minimum, minimum, plusgrande)));
}

void LargeurVolet::changelargeurliste(int twips) {
    largeurliste_ = static_cast<int>(std::clamp<qint64>(twips, minimum, plusgrande));
}

void LargeurVolet::aumoins(int twips) {
    changelargeurliste(std::max(largeurliste_, twips));
}

void LargeurVolet::depose(Cible cible, int x) {
    switch (cible) {
    case Cible::Volet:
        return changelargeurliste(x);
    case Cible::Formulaire:
        return changelargeurliste(largeurliste_ + minimum +
                                  std::clamp(x, -static_cast<int>(plusgrande), static_cast<int>(plusgrande)));
    case Cible::Document:
        return changelargeurliste(largeurliste_ +
                                  std::clamp(x, -static_cast<int>(plusgrande), static_cast<int>(plusgrande)));
    }
}

double LargeurVolet::gaucheseparateur() const {
    return largeurpane() - retraitseparateur;
}

double LargeurVolet::largeurflex() const {
    return largeurpane() > margeflex ? largeurpane() - margeflex : 0;
}

double LargeurVolet::hauteurflex(double hauteurvolet) {
    return std::max(hauteurvolet - hautflex, 0.0);
}

} // namespace velm
