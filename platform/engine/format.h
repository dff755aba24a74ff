#pragma once
// The one place where file formats are told apart. Internal to this room.
#include "platform/engine/database.h"

#include <sqlite3.h>

namespace velm {

enum class FileFormat { Missing, Unreadable, Base, OldEngine, Foreign };

struct DetectedFormat {
    FileFormat format = FileFormat::Missing;
    Obstacle obstacle = Obstacle::None; ///< why it is missing or unreadable
};

/// Looks at the first bytes of a file, never at its name. A reader for another format is hung in where the answer is
/// used, in Database::open().
DetectedFormat detectFormat(const QString& path);
/// The same for a file's content.
FileFormat formatOfBytes(QByteArrayView bytes);

/// True when the file and its folder can be written: the engine needs the folder for its journal.
bool canBeWritten(const QString& path);

enum class Journal {
    None,   ///< or one that holds nothing any more
    Hot,    ///< an interrupted change waits to be undone
    NoFile, ///< what bears its name is a pipe, a device or a folder: the engine would wait for it
};

/// What lies beside the file under the name of its journal.
Journal journalOf(const QString& path);

/// True when the open file is shorter than its own header says.
bool isTruncated(sqlite3* handle);

} // namespace velm
