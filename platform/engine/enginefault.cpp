#include "platform/engine/enginefault.h"

namespace velm {
namespace {

bool tells(Obstacle system) {
    return system == Obstacle::Full || system == Obstacle::ReadOnly || system == Obstacle::Denied;
}

/// A failed read or write: the system's error was kept with the connection, or, at the end of a transaction, only with
/// the file.
Obstacle ofTransfer(sqlite3* handle) {
    if (sqlite3_extended_errcode(handle) == SQLITE_IOERR_NOMEM)
        return Obstacle::Memory;
    if (const Obstacle system = obstacleOf(sqlite3_system_errno(handle)); tells(system))
        return system;
    int last = 0;
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &last);
    return tells(obstacleOf(last)) ? obstacleOf(last) : Obstacle::Device;
}

Obstacle ofOpening(sqlite3* handle) {
    const Obstacle system = obstacleOf(sqlite3_system_errno(handle));
    return system == Obstacle::None ? Obstacle::Other : system;
}

} // namespace

Obstacle obstacleOf(sqlite3* handle) {
    switch (sqlite3_extended_errcode(handle) & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return Obstacle::None;
    case SQLITE_FULL:
        return Obstacle::Full;
    case SQLITE_IOERR:
        return ofTransfer(handle);
    case SQLITE_CANTOPEN:
        return ofOpening(handle);
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return Obstacle::Denied;
    case SQLITE_READONLY:
        return Obstacle::ReadOnly;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Obstacle::Busy;
    case SQLITE_NOMEM:
        return Obstacle::Memory;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return Obstacle::Damaged;
    case SQLITE_CONSTRAINT: {
        const int which = sqlite3_extended_errcode(handle);
        const bool repeated = which == SQLITE_CONSTRAINT_UNIQUE || which == SQLITE_CONSTRAINT_PRIMARYKEY;
        return repeated ? Obstacle::Exists : Obstacle::Other;
    }
    default:
        return Obstacle::Other;
    }
}

} // namespace velm
