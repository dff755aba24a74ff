#include "collection/largeur.h"

#include <QString>

#include <array>

namespace velm {
namespace {

constexpr int largeurordinaire = 556;
constexpr int largeurinconnue = 700;
constexpr int premiervisible = 0x20;

/// Blank to tilde.
constexpr std::array<short, 95> largeursdelascii = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};

int largeurdunite(QChar c) {
    const char16_t unite = c.unicode();
    if (unite >= premiervisible && unite < premiervisible + largeursdelascii.size())
        return largeursdelascii[static_cast<std::size_t>(unite - premiervisible)];
    if (unite < 0x180) {
        // Accented letters are as wide as their bare ones.
        const QString lettres = c.decomposition();
        if (!lettres.isEmpty() && lettres.front().unicode() < premiervisible + largeursdelascii.size() &&
            lettres.front() >= QChar(premiervisible))
            return largeursdelascii[static_cast<std::size_t>(lettres.front().unicode() - premiervisible)];
        return c.isUpper() ? 1000 : largeurordinaire;
    }
    return unite == u'’' || unite == u'‘' ? 222 : unite == u'…' || unite == u'—' ? 1000 : largeurinconnue;
}

} // namespace

int largeurdetexte(QStringView texte, bool gras) {
    int largeur = 0;
    for (const QChar c : texte)
        largeur += largeurdunite(c);
    // The bold letters are about a fifteenth wider.
    return gras ? largeur + largeur / 15 : largeur;
}

} // namespace velm
