#include "shell/application.h"

#include <cstdlib>
#include <new>

namespace velm {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

Application::~Application() = default;

bool Application::notify(QObject* objet, QEvent* evenement) {
    try {
        return QApplication::notify(objet, evenement);
    } catch (const std::bad_alloc&) {
        ditsansmemoire();
        return false;
    }
}

/// The event may have been a painting, which must not see another window come up.
void Application::ditsansmemoire() {
    if (!sansmemoire || sansmemoireadire_)
        return;
    sansmemoireadire_ = true;
    const auto dit = [this] {
        try {
            sansmemoire();
        } catch (const std::bad_alloc&) {
            std::_Exit(EXIT_FAILURE);
        }
        sansmemoireadire_ = false;
    };
    try {
        QMetaObject::invokeMethod(this, dit, Qt::QueuedConnection);
    } catch (const std::bad_alloc&) {
        std::_Exit(EXIT_FAILURE);
    }
}

bool Application::event(QEvent* evenement) {
    if (evenement->type() == QEvent::Quit && finvoulue)
        finvoulue();
    return QApplication::event(evenement);
}

} // namespace velm
