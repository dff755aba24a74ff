#pragma once
// Second bases made of an open one. What goes wrong is told by lastError() and obstacle() of the base, and leaves no
// file; a file that is there is replaced by what was made, whole or not at all, and the copy is on the disk before
// that.
#include "platform/engine/database.h"

#include <functional>

namespace velm {

/// Page by page, as the base stands at one moment. `progress` hears per cents.
bool backUp(Database& base, const QString& path, const std::function<void(double percent)>& progress = {});

/// With every row written anew, so that the file has no room unused. Not inside a transaction.
bool rebuildInto(Database& base, const QString& path);

/// Whether every table of the schema that is not optional is there with all its fields; `missing` gets the name of the
/// first one that is not.
bool complete(const Database& base, QString* missing = nullptr);

} // namespace velm
