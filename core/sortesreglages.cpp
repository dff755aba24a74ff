#include "core/sortesreglages.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

QString CleReglage::nom() const {
    QString cle = motif.toString();
    const qsizetype chiffres = cle.count(u'#');
    if (chiffres > 0)
        cle.replace(cle.indexOf(u'#'), chiffres, u"%1"_s.arg(rang, static_cast<int>(chiffres), 10, QChar(u'0')));
    return cle + suffixe.toString();
}

} // namespace velm
