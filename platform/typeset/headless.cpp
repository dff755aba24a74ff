#include "platform/typeset/headless.h"

#include <QGuiApplication>

namespace velm {

std::unique_ptr<QCoreApplication> headlessApplication(int& argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace velm
