#pragma once
// What stands around the opening of a base. Internal to this room.
#include "platform/engine/database_p.h"
#include "platform/engine/format.h"

namespace velm::opening {

/// The file's name for the engine: an absolute path never reads as an address, whatever the file is called.
QByteArray plainName(const QString& path);
/// The same for a file that is taken as unchanging.
QByteArray unchangingName(const QString& path);

/// Before the first connection.
void keepNoStatistics();
/// What a base may not do to us, however it was made.
void guard(sqlite3* handle);

Database::Opened failure(OpenError error, Obstacle obstacle, const QString& message);
/// Why content of that format is not even handed to the engine; OpenError::None when it is.
Database::Opened refusal(const DetectedFormat& detected);
/// The same for a file, with what stands around it.
Database::Opened refusal(const QString& path, bool shared);
/// Reads a page, so that nothing that opens is unreadable; takes part in undoing an interrupted change.
OpenError probe(Database::Private& d);

/// Makes the content of a file that of an open handle, which reads these bytes themselves: they outlive it. False when
/// the engine refuses.
bool readFrom(sqlite3* handle, const QByteArray& content);
/// The same for a handle that changes a copy of them. False when memory is short, too.
bool changeCopyOf(sqlite3* handle, const QByteArray& content);

/// Makes an empty file where there was none; what stood in the way, with the system's words.
Database::Opened makeFile(const QString& path);

} // namespace velm::opening
