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

void runtimeError(Failure what, const QStringList& parts) {
    if (handlerSlot()) {
        handlerSlot()({what, parts});
        std::abort();
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(parts.join(u' ')));
    std::exit(70);
}

void runtimeError(const QString& message) {
    runtimeError(Failure::Engine, {message});
}

} // namespace velm
