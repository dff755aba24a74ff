#include "collection/jetons.h"

#include "collection/document.h"

#include <algorithm>

namespace velm {
namespace {

/// "{L=": the third character is never looked at.
constexpr qsizetype avantmontre = 3;

} // namespace

std::vector<Jeton> decoupejetons(QStringView texte) {
    std::vector<Jeton> jetons;
    const auto pousse = [&](Jeton::Genre genre, QStringView partie) {
        if (genre != Jeton::Genre::Texte || !partie.isEmpty())
            jetons.push_back({genre, partie});
    };
    qsizetype debut = 0;
    qsizetype p = texte.indexOf(u'{');
    while (p >= 0) {
        pousse(Jeton::Genre::Texte, texte.sliced(debut, p - debut));
        debut = p;
        const qsizetype fin = texte.indexOf(u'}', p);
        if (fin < 0) {
            pousse(Jeton::Genre::Douteux, texte.sliced(p, std::min(longueurextrait, texte.size() - p)));
            break;
        }
        const QStringView jeton = texte.sliced(p, fin + 1 - p);
        const char16_t genre = jeton[1].unicode();
        if (jeton.startsWith(u"{I=")) {
            pousse(Jeton::Genre::Inclusion, jeton.sliced(avantmontre, jeton.size() - avantmontre - 1));
        } else if (jeton == u"{FF}") {
            pousse(Jeton::Genre::SautDePage, {});
        } else if (genre == u'L' || genre == u'U' || genre == u'E') {
            const qsizetype barre = jeton.indexOf(u'|');
            if (barre < avantmontre) {
                pousse(Jeton::Genre::Douteux, jeton);
            } else {
                pousse(Jeton::Genre::Texte, jeton.sliced(avantmontre, barre - avantmontre));
                if (genre == u'L')
                    pousse(Jeton::Genre::Lien, jeton.sliced(barre + 1, jeton.size() - barre - 2));
            }
        }
        debut = fin + 1;
        p = texte.indexOf(u'{', debut);
    }
    pousse(Jeton::Genre::Texte, texte.sliced(debut));
    return jetons;
}

} // namespace velm
