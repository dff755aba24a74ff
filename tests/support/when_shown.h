#pragma once
// Does something to the modal dialog that comes up next; stops waiting when it is destroyed.
#include <QApplication>
#include <QTimer>

#include <functional>
#include <memory>

namespace velm::test {

template <typename Dialog>
[[nodiscard]] std::unique_ptr<QTimer> whenShown(std::function<void(Dialog&)> act) {
    auto timer = std::make_unique<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [timer = timer.get(), act = std::move(act)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        timer->stop();
        act(*dialog);
    });
    timer->start(1);
    return timer;
}

} // namespace velm::test
