#include "dossiers/cleelement.h"

#include "platform/text/number.h"

namespace velm {
namespace {

constexpr qsizetype longueurdocument = 8;
/// From where the digits of the place stand, behind their sign.
constexpr qsizetype chiffres = longueurdocument + 1;

qint64 nombre(QStringView texte) {
    return roundHalfEven(val(texte));
}

} // namespace

QString cleelement(const QString& reference, qint64 noordre, const Extrait& extrait) {
    return reference + numberText(noordre) + queueelement(extrait);
}

QString queueelement(const Extrait& extrait) {
    return extrait.entier() ? QString() : numberText(extrait.debut) + numberText(extrait.longueur) + u'P';
}

Cle documentdelacle(const QString& cle) {
    return decoupecle(QStringView(cle).left(longueurdocument));
}

qint64 noordredelacle(const QString& cle) {
    const QStringView reste = QStringView(cle).mid(chiffres);
    const qsizetype blanc = reste.indexOf(u' ');
    return nombre(blanc < 0 ? reste : reste.left(blanc));
}

QString avecnoordre(const QString& cle, qint64 noordre) {
    const qsizetype blanc = cle.indexOf(u' ', chiffres);
    return cle.left(longueurdocument) + numberText(noordre) + (blanc < 0 ? QString() : cle.mid(blanc));
}

qint64 nombredelaqueue(const QString& cle) {
    return nombre(QStringView(cle).mid(longueurdocument));
}

bool estextrait(const QString& cle) {
    return cle.endsWith(u'P');
}

Extrait extraitdelacle(const QString& cle) {
    const qsizetype premier = estextrait(cle) ? cle.indexOf(u' ', chiffres) : -1;
    const qsizetype second = premier < 0 ? -1 : cle.indexOf(u' ', premier + 1);
    if (second < 0)
        return {};
    // Each up to the next blank: read on across it, two positions would be one number.
    const QStringView texte(cle);
    return {nombre(texte.mid(premier + 1, second - premier - 1)), nombre(texte.mid(second + 1))};
}

} // namespace velm
