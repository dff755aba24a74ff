#include "platform/system/process.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray awaited(const QString& path) {
    QElapsedTimer clock;
    clock.start();
    while (QFileInfo(path).size() == 0 && clock.elapsed() < 20000)
        QThread::msleep(5);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(Processus, StartsAProgramWithItsArgumentsInAFolder) {
    const QTemporaryDir folder;
    SystemProcessus processes;
    ASSERT_TRUE(processes.runDetached(
        u"/bin/sh"_s,
        {u"-c"_s, u"printf '%s|' \"$@\" > out.tmp && mv out.tmp out"_s, u"sh"_s, u"a b"_s, u"\"c\""_s, u"$HOME"_s},
        folder.path()));
    EXPECT_EQ(awaited(folder.filePath(u"out"_s)), "a b|\"c\"|$HOME|");
}

TEST(Processus, AProgramThatIsNotThereIsSaid) {
    SystemProcessus processes;
    EXPECT_FALSE(processes.runDetached(u"/no/such/program"_s, {}, {}));
    EXPECT_FALSE(processes.runDetached(QString(), {}, {}));
}

} // namespace
