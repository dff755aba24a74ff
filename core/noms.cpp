#include "core/noms.h"

#include "platform/system/files.h"

#include <QStandardPaths>

namespace velm::noms {

QString verrou() {
    return QStringLiteral("velm2000");
}

QString dossierducache() {
    return QStringLiteral("velmorante2000");
}

QString fichierreglages() {
    return joinPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                    u"VELMORANTE2000/VELMORANTE2000.ini");
}

} // namespace velm::noms
