#include "platform/text/failure.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace velm {

namespace {
RuntimeErrorHandler& handlerSlot() {
    static RuntimeErrorHandler handler;
    return handler;
}
} // namespace

RuntimeErrorHandler setRuntimeErrorHandler(RuntimeErrorHandler handler) {
    return std::exchange(handlerSlot(), std::move(handler));
}

void runtimeError(const RuntimeFailure& failure) {
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

void runtimeError(const QString& message) {
    runtimeError(Failure::Engine, {message});
}

} // namespace velm
