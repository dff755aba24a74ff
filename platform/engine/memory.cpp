// Bases that lie in memory.
#include "platform/engine/database_p.h"

#include <algorithm>
#include <sqlite3.h>

namespace velm {

bool Database::Private::takeBytes(const QByteArray& content, bool changing) {
    constexpr auto schemaName = "main";
    const sqlite3_int64 size = content.size();
    if (!changing) {
        bytes = content;
        // The engine asks for writable bytes and, told that they are only read, writes none.
        auto* there = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.constData()));
        return sqlite3_deserialize(handle, schemaName, there, size, size, SQLITE_DESERIALIZE_READONLY) == SQLITE_OK;
    }
    auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(static_cast<sqlite3_uint64>(size)));
    if (copy == nullptr)
        return false;
    std::copy(content.begin(), content.end(), copy);
    // From here on the copy is the engine's, also when it refuses.
    return sqlite3_deserialize(handle, schemaName, copy, size, size,
                               SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE) == SQLITE_OK;
}

} // namespace velm
