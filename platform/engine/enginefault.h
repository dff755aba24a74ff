#pragma once
// The engine's errors by their kinds. Internal to this room.
#include "platform/base/obstacle.h"

#include <sqlite3.h>

namespace velm {

/// The kind of the last error of a connection: what the system said to the engine, else the engine's own complaint.
Obstacle obstacleOf(sqlite3* handle);

} // namespace velm
