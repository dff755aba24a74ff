#include "core/nombres.h"

namespace velm {

namespace {

/// What stands between the thousands. Language files hold a no-break space where the eye wants a narrow one, which
/// their code page lacks.
QString separateur(const QString& mille) {
    constexpr QStringView debut = u"1";
    constexpr QStringView fin = u"000";
    if (mille.size() <= debut.size() + fin.size() || !mille.startsWith(debut) || !mille.endsWith(fin))
        return {};
    QString entre = mille.sliced(debut.size(), mille.size() - debut.size() - fin.size());
    return entre.replace(QChar::Nbsp, QChar(0x202F));
}

} // namespace

QString nombreecrit(qint64 nombre, const Libelles& texte) {
    constexpr qsizetype parmille = 3;
    QString ecrit = QString::number(nombre);
    const qsizetype premier = ecrit.startsWith(u'-') ? 1 : 0;
    if (ecrit.size() - premier <= parmille)
        return ecrit;
    const QString entre = separateur(texte(Texte::MilleEcrit));
    for (qsizetype place = ecrit.size() - parmille; place > premier; place -= parmille)
        ecrit.insert(place, entre);
    return ecrit;
}

} // namespace velm
