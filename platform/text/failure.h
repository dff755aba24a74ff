#pragma once
// The one road of a run-time error that the design lets end the program.
#include <QString>

#include <functional>

namespace velm {

/// Ends the program through the installed handler. Used where the logic meets an error that nothing catches: a table
/// that is missing when it is first used, a stored text that is no number, an array bound.
[[noreturn]] void runtimeError(const QString& message);

/// The handler must not return (it ends the process, or throws in a test); if it does, the process is aborted.
using RuntimeErrorHandler = std::function<void(const QString& message)>;

/// Installs a handler and gives back the one before. Without any, the message goes to standard error and the process
/// ends with code 70.
RuntimeErrorHandler setRuntimeErrorHandler(RuntimeErrorHandler handler);

} // namespace velm
