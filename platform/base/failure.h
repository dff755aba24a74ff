#pragma once
// The one road of a run-time error that the design lets end the program.
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace velm {

/// What an error of this kind can be, with the parts that its message needs.
enum class Failure {
    ArrayBounds,  ///< the number, its limit
    NotANumber,   ///< the setting, its text
    MissingTable, ///< the table
    Engine,       ///< what the engine says
    MissingIndex, ///< the index, the table
    MissingField  ///< the field
};

/// A line of a settings file whose value cannot be used.
struct FaultySetting {
    QString file;
    QString section;
    QString key;
    QString text; ///< its value as it stands there
};

struct RuntimeFailure {
    Failure what = Failure::Engine;
    QStringList parts = {};
    std::optional<FaultySetting> setting = {}; ///< what there is to mend, when the error lies in a setting
    bool said = false;                         ///< the user knows already and has chosen to end
};

/// Ends the program through the installed handler. Used where the logic meets an error that nothing catches: a table
/// that is missing when it is first used, a stored text that is no number, an array bound.
[[noreturn]] void runtimeError(const RuntimeFailure& failure);
[[noreturn]] void runtimeError(Failure what, const QStringList& parts);
/// An error of the engine, in its own words.
[[noreturn]] void runtimeError(const QString& message);

/// Runs `work`. A run-time error inside it, on this thread, leaves it where it stands and is given back, and the
/// handler is not called: for the few places where the design passes an error over.
std::optional<RuntimeFailure> failureOf(const std::function<void()>& work);

/// The handler must not return (it ends the process, or throws in a test); if it does, the process is aborted. It may
/// install another one while it runs.
using RuntimeErrorHandler = std::function<void(const RuntimeFailure& failure)>;

/// Installs a handler and gives back the one before. Without any, the parts go to standard error and the process ends
/// with code 70.
RuntimeErrorHandler setRuntimeErrorHandler(RuntimeErrorHandler handler);

} // namespace velm
