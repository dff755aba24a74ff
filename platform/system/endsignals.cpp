#include "platform/system/endsignals.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace velm {
namespace {

/// All that a handler may touch: where it puts its one byte. It has no other way to know.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void noteEnd(int) {
    const int before = errno;
    // A full pipe holds requests enough.
    [[maybe_unused]] const ssize_t written = write(writeEnd.load(), "e", 1);
    errno = before;
}

} // namespace

EndSignals::EndSignals(std::function<void()> onEnd)
    : onEnd_(std::move(onEnd)), signals_{{{SIGTERM, {}, false}, {SIGHUP, {}, false}, {SIGINT, {}, false}}} {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their usual effect
    readEnd_ = ends[0];
    writeEnd = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        notifier_->setEnabled(false);
        onEnd_();
    });
    for (Taken& taken : signals_) {
        struct sigaction action {};
        action.sa_handler = noteEnd;
        action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        sigemptyset(&action.sa_mask);
        sigaction(taken.number, nullptr, &taken.before);
        taken.ours = taken.before.sa_handler != SIG_IGN && sigaction(taken.number, &action, nullptr) == 0;
    }
}

EndSignals::~EndSignals() {
    for (const Taken& taken : signals_) {
        if (taken.ours)
            sigaction(taken.number, &taken.before, nullptr);
    }
    notifier_.reset();
    if (readEnd_ >= 0) {
        close(writeEnd.exchange(-1));
        close(readEnd_);
    }
}

} // namespace velm
