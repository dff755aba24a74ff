#include "search/recherche.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

qint64 limitedindex(int listindex) {
    constexpr qint64 premiere = 50;
    constexpr qint64 seconde = 100;
    return listindex == 0 ? premiere : listindex == 1 ? seconde : sanslimite;
}

bool ajoutedocument(Lignes& lignes, const Recordset& donnees) {
    const QString reference = donnees.text(u"référence"_s);
    const QString numart = donnees.text(u"numart"_s);
    const QString titre = donnees.text(u"titre"_s);
    const QString motcle1 = donnees.text(u"motclé1"_s);
    const QString motcle2 = donnees.text(u"motclé2"_s);
    const QString motcle3 = donnees.text(u"motclé3"_s);
    const QString cle = reference + numart;
    return lignes.ajoute({reference, numart, titre, motcle1, motcle2, motcle3, cle});
}

} // namespace velm
