#include "core/noms.h"

#include "platform/system/files.h"

#include <QStandardPaths>

namespace velm::noms {

using namespace Qt::Literals::StringLiterals;

QString verrou() {
    return u"velm2000"_s;
}

QString dossierducache() {
    return u"velmorante2000"_s;
}

QString fichierreglages() {
    return joinPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                    u"VELMORANTE2000/VELMORANTE2000.ini");
}

} // namespace velm::noms
