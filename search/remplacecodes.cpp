#include "search/remplacecodes.h"

namespace velm {

QString remplacecodes(QString texte) {
    texte.replace(QStringLiteral("^p"), QStringLiteral("\r\n"));
    texte.replace(QStringLiteral("^t"), QStringLiteral("\t"));
    return texte;
}

} // namespace velm
