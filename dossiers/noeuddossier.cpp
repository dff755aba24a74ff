#include "dossiers/noeuddossier.h"

#include "platform/text/number.h"

#include <limits>

namespace velm::noeuddossier {

using namespace Qt::Literals::StringLiterals;

QString cle(qint64 numero) {
    return u"X "_s + numberText(numero);
}

qint64 numero(const QString& cle) {
    QStringView chiffres = QStringView(cle).mid(2);
    if (chiffres.endsWith(provisoire))
        chiffres.chop(provisoire.size());
    return wholeNumber(chiffres).value_or(0);
}

qint64 numerosuivant(qint64 numero) {
    return numero == std::numeric_limits<qint64>::max() ? 1 : numero + 1;
}

} // namespace velm::noeuddossier
