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

void runtimeError(const QString& message) {
    if (handlerSlot()) {
        handlerSlot()(message);
        std::abort();
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    std::exit(70);
}

} // namespace velm
