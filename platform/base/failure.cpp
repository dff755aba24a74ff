#include "platform/base/failure.h"

#include <QScopedValueRollback>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace velm {

namespace {
RuntimeErrorHandler& handlerSlot() {
    static RuntimeErrorHandler handler;
    return handler;
}

/// How many pieces of work this thread runs whose errors are given back.
thread_local int guarded = 0;

/// What leaves such a piece of work.
struct Left {
    RuntimeFailure failure;
};
} // namespace

RuntimeErrorHandler setRuntimeErrorHandler(RuntimeErrorHandler handler) {
    return std::exchange(handlerSlot(), std::move(handler));
}

void runtimeError(const RuntimeFailure& failure) {
    if (guarded > 0)
        throw Left{failure};
    // A copy: what the handler holds must outlive the handler's being replaced from inside it.
    const RuntimeErrorHandler handler = handlerSlot();
    if (handler) {
        handler(failure);
        std::abort();
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(failure.parts.join(u' ')));
    std::exit(70);
}

void runtimeError(Failure what, const QStringList& parts) {
    runtimeError(RuntimeFailure{what, parts});
}

std::optional<RuntimeFailure> failureOf(const std::function<void()>& work) {
    const QScopedValueRollback guard(guarded, guarded + 1);
    try {
        work();
    } catch (const Left& left) {
        return left.failure;
    }
    return std::nullopt;
}

void runtimeError(const QString& message) {
    runtimeError(Failure::Engine, {message});
}

} // namespace velm
