#pragma once
// The one place where file formats are told apart. Internal to this room.
#include "platform/engine/database.h"

#include <sqlite3.h>

namespace velm {

enum class FileFormat { Missing, Unreadable, Base, OldEngine, Foreign };

/// Looks at the first bytes of a file, never at its name. A reader for another format is hung in where the answer is
/// used, in Database::open().
FileFormat detectFormat(const QString& path);
/// The same for a file's content.
FileFormat formatOfBytes(QByteArrayView bytes);

/// True when the file and its folder can be written: the engine needs the folder for its journal.
bool canBeWritten(const QString& path);

/// True when an interrupted change lies beside the file, waiting to be undone.
bool hasHotJournal(const QString& path);

/// True when the open file is shorter than its own header says.
bool isTruncated(sqlite3* handle);

} // namespace velm
