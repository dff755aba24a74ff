#pragma once
// What stood in the way of reading or writing a file, whoever met it: the system or the engine.

namespace velm {

/// The kinds that a message tells apart; their words are entries of the language file.
enum class Obstacle {
    None,
    Missing,   ///< there is no such file
    NoFolder,  ///< the folder that it should be written into is not there
    Exists,    ///< it is there already, and was to be made; of a row, what a unique index has already
    Denied,    ///< this user may not
    NotPlain,  ///< a folder, a pipe, a device
    NotFolder, ///< something else than a folder
    Full,      ///< no room is left on the disk, or the file may not grow
    ReadOnly,  ///< the medium, the folder or the file cannot be written
    Busy,      ///< another program holds it
    Memory,    ///< not enough memory
    Device,    ///< the medium fails
    Damaged,   ///< a base that is none, or whose pages contradict each other
    Other      ///< only the words of whoever met it tell
};

/// The kind of a system error (errno); None for 0. A path that leads nowhere is Missing.
Obstacle obstacleOf(int systemError);

} // namespace velm
