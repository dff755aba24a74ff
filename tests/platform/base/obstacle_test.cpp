#include "platform/base/obstacle.h"

#include <cerrno>
#include <gtest/gtest.h>

using namespace velm;

TEST(Obstacles, SystemErrorsHaveTheirKinds) {
    EXPECT_EQ(obstacleOf(0), Obstacle::None);
    for (const int error : {ENOENT, ENOTDIR})
        EXPECT_EQ(obstacleOf(error), Obstacle::Missing);
    for (const int error : {EACCES, EPERM})
        EXPECT_EQ(obstacleOf(error), Obstacle::Denied);
    for (const int error : {ENOSPC, EDQUOT, EFBIG})
        EXPECT_EQ(obstacleOf(error), Obstacle::Full);
    EXPECT_EQ(obstacleOf(EEXIST), Obstacle::Exists);
    EXPECT_EQ(obstacleOf(EISDIR), Obstacle::NotPlain);
    EXPECT_EQ(obstacleOf(EROFS), Obstacle::ReadOnly);
    for (const int error : {EBUSY, ETXTBSY, EAGAIN})
        EXPECT_EQ(obstacleOf(error), Obstacle::Busy);
    EXPECT_EQ(obstacleOf(ENOMEM), Obstacle::Memory);
    for (const int error : {EIO, ENXIO, ENODEV})
        EXPECT_EQ(obstacleOf(error), Obstacle::Device);
    EXPECT_EQ(obstacleOf(EDOM), Obstacle::Other);
}
