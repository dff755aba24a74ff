#include "platform/base/obstacle.h"

#include <cerrno>

namespace velm {

Obstacle obstacleOf(int systemError) {
    switch (systemError) {
    case 0:
        return Obstacle::None;
    case ENOENT:
    case ENOTDIR:
        return Obstacle::Missing;
    case EEXIST:
        return Obstacle::Exists;
    case EACCES:
    case EPERM:
        return Obstacle::Denied;
    case EISDIR:
        return Obstacle::NotPlain;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Obstacle::Full;
    case EROFS:
        return Obstacle::ReadOnly;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
        return Obstacle::Busy;
    case ENOMEM:
        return Obstacle::Memory;
    case EIO:
    case ENXIO:
    case ENODEV:
        return Obstacle::Device;
    default:
        return Obstacle::Other;
    }
}

} // namespace velm
