// Who else could change a file that is about to be run.
#include "platform/system/files.h"
#include "tests/support/without_rights.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class Rights : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir().mkpath(folder));
        ASSERT_EQ(writeWhole(tool, "#!/bin/sh\n").kind, Obstacle::None);
        // A test may run as one who has all rights; whoever it is may look in.
        give(base.path(), 0755);
        give(folder, 0755);
        give(tool, 0755);
    }
    static void give(const QString& path, mode_t rights) {
        ASSERT_EQ(chmod(QFile::encodeName(path).constData(), rights), 0);
    }

    /// As the user of the test and, when that is root, as one without any rights: what root owns is safe for both.
    static bool unsafe(const QString& path) {
        const bool forUs = othersCanChange(path);
        const WithoutRights nobody;
        EXPECT_EQ(othersCanChange(path), forUs);
        return forUs;
    }

    QTemporaryDir base;
    const QString folder = base.filePath(u"disc"_s);
    const QString tool = folder + u"/tool"_s;
};

TEST_F(Rights, WhatOnlyTheUserMayWriteIsSafe) {
    for (const mode_t rights : {0755U, 0700U, 0500U, 0555U, 0444U}) {
        give(tool, rights);
        EXPECT_FALSE(unsafe(tool)) << rights;
    }
    for (const mode_t rights : {0755U, 0555U}) {
        give(folder, rights);
        EXPECT_FALSE(unsafe(tool)) << rights;
    }
}

TEST_F(Rights, AFileThatOthersMayWriteIsNot) {
    for (const mode_t rights : {0775U, 0757U, 0777U, 0722U}) {
        give(tool, rights);
        EXPECT_TRUE(unsafe(tool)) << rights;
    }
}

TEST_F(Rights, AFolderThatOthersMayWriteIsNot) {
    for (const mode_t rights : {0775U, 0757U, 01777U}) {
        give(folder, rights);
        EXPECT_TRUE(unsafe(tool)) << rights;
    }
}

TEST_F(Rights, ALinkIsAsSafeAsItsEndAndItsPlace) {
    const QString link = base.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(tool, link));
    EXPECT_FALSE(unsafe(link));
    give(folder, 0777);
    EXPECT_TRUE(unsafe(link)) << "the folder of its end";
    give(folder, 0755);
    give(tool, 0777);
    EXPECT_TRUE(unsafe(link)) << "its end";
    give(tool, 0755);
    give(base.path(), 0777);
    EXPECT_TRUE(unsafe(link)) << "its own folder";
    give(base.path(), 0700);
}

TEST_F(Rights, WhatIsNotThereIsNotSafe) {
    EXPECT_TRUE(unsafe(folder + u"/absent"_s));
    EXPECT_TRUE(unsafe(QString()));
}

TEST_F(Rights, WhatAnotherUserOwnsIsNot) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    constexpr uid_t nobody = 65534;
    const QByteArray name = QFile::encodeName(tool);
    ASSERT_EQ(chown(name.constData(), nobody, nobody), 0);
    EXPECT_TRUE(othersCanChange(tool)) << "as root";
    {
        const WithoutRights user;
        EXPECT_FALSE(othersCanChange(folder)) << "what root owns is safe for everybody";
        EXPECT_FALSE(othersCanChange(tool)) << "as its owner";
    }
    ASSERT_EQ(chown(name.constData(), 0, 0), 0);
    ASSERT_EQ(chown(QFile::encodeName(folder).constData(), nobody, nobody), 0);
    EXPECT_TRUE(othersCanChange(tool)) << "in another user's folder";
}

} // namespace
