#include "dossiers/libellecompte.h"

#include "platform/text/number.h"

#include <QtNumeric>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Where the bracket stands that opens a count; -1 without one.
qsizetype crochet(const QString& texte) {
    return texte.endsWith(u']') ? texte.lastIndexOf(u'[') : -1;
}

qint64 compteapres(const QString& texte, qsizetype crochet) {
    return roundHalfEven(val(QStringView(texte).mid(crochet + 1)));
}

} // namespace

QString aveccompteur(const QString& nom, qint64 compte) {
    return compte == 0 ? nom : nom + u" [%1]"_s.arg(compte);
}

QString sanscompteur(const QString& texte) {
    const qsizetype ouvre = crochet(texte);
    return ouvre < 0 ? texte : texte.left(std::max<qsizetype>(ouvre - 1, 0));
}

qint64 compteurarbo(const QString& texte) {
    const qsizetype ouvre = crochet(texte);
    return ouvre < 0 ? 0 : compteapres(texte, ouvre);
}

qint64 comptechange(qint64 compte, qint64 delta) {
    qint64 somme = 0;
    return qAddOverflow(compte, delta, &somme) ? compte : somme;
}

QString compteurchange(const QString& texte, qint64 delta) {
    const qsizetype ouvre = crochet(texte);
    const qint64 compte = comptechange(ouvre < 0 ? 0 : compteapres(texte, ouvre), delta);
    if (ouvre < 0)
        return aveccompteur(texte, compte);
    if (compte == 0)
        return texte.left(std::max<qsizetype>(ouvre - 1, 0));
    return texte.left(ouvre + 1) + QString::number(compte) + u']';
}

} // namespace velm
