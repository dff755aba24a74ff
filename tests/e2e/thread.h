#pragma once
// The test runs beside the program, not inside its event loop: boxes and menus have loops of their own, in which a test
// of the same thread would stand still. What it wants to know it asks the program's thread.
#include <QCoreApplication>
#include <QMetaObject>

#include <functional>
#include <type_traits>

namespace velm::e2e {

/// Does something in the program's thread, and waits for it.
template <typename Deed>
auto inProgram(Deed deed) {
    using Result = std::invoke_result_t<Deed>;
    if constexpr (std::is_void_v<Result>) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), deed, Qt::BlockingQueuedConnection);
    } else {
        Result result{};
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [&] { result = deed(); }, Qt::BlockingQueuedConnection);
        return result;
    }
}

/// Waits until something is true in the program's thread; false when it never is. A slow machine has its time.
bool becomes(const std::function<bool()>& condition, int seconds = 60);

} // namespace velm::e2e
