#include "platform/system/process.h"

#include <QProcess>

namespace velm {

bool SystemProcessus::runDetached(const QString& program, const QStringList& arguments, const QString& folder) {
    return !program.isEmpty() && QProcess::startDetached(program, arguments, folder);
}

} // namespace velm
