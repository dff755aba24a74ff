#include "tests/e2e/thread.h"

#include <QDeadlineTimer>
#include <QThread>

namespace velm::e2e {

bool becomes(const std::function<bool()>& condition, int seconds) {
    constexpr int betweenLooks = 25;
    const QDeadlineTimer end(seconds * 1000);
    while (!inProgram(condition)) {
        if (end.hasExpired())
            return false;
        QThread::msleep(betweenLooks);
    }
    return true;
}

} // namespace velm::e2e
