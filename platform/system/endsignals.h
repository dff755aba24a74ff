#pragma once
// The system's wishes that this process end: SIGTERM, SIGHUP and SIGINT, heard in the event loop.
#include <array>
#include <functional>
#include <memory>
#include <signal.h>

class QSocketNotifier;

namespace velm {

/// While the one object of this class lives, the first of these signals is told by a call from the event loop (also
/// when it came before the loop ran). Each signal takes its usual effect again once it has come: a process that does
/// not get to its loop any more can still be ended by a second one. A signal that was ignored stays ignored. Needs an
/// application object, in whose thread it lives.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onEnd);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    EndSignals(EndSignals&&) = delete;
    EndSignals& operator=(EndSignals&&) = delete;

private:
    struct Taken {
        int number = 0;
        struct sigaction before {};
        bool ours = false;
    };

    std::function<void()> onEnd_;
    int readEnd_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::array<Taken, 3> signals_;
};

} // namespace velm
