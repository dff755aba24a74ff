#pragma once
// Bases to open, in a folder of their own.
#include "core/schemas.h"
#include "tests/platform/engine/base.h"
#include "tests/support/without_rights.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velm::testing {

class OpenTest : public EngineTest {
protected:
    OpenError errorOf(const QString& file, OpenMode mode = OpenMode::Shared) {
        const Database::Opened opened = Database::open(file, mode, corpusSchema());
        EXPECT_EQ(opened.database == nullptr, opened.error != OpenError::None);
        EXPECT_EQ(opened.message.isEmpty(), opened.error == OpenError::None);
        return opened.error;
    }
    void expectBoth(const QString& file, OpenError error) {
        EXPECT_EQ(errorOf(file, OpenMode::Shared), error);
        EXPECT_EQ(errorOf(file, OpenMode::ExclusiveReadOnly), error);
    }
    void write(const QByteArray& bytes, const QString& name = u"base.dat"_s) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray contents() {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void make(const QString& name = u"base.dat"_s) {
        auto made = Database::create(path(name), corpusSchema());
        ASSERT_TRUE(made.database) << made.message.toStdString();
        fill(*made.database, u"paramètres"_s, {u"nbarticles"_s}, {{u"     3"_s}});
        std::vector<std::vector<QVariant>> words;
        words.reserve(2000);
        for (int i = 0; i < 2000; ++i)
            words.push_back({u"MOT%1"_s.arg(i), QByteArray("A\0\0\1", 4)});
        fill(*made.database, u"dico"_s, {u"mot"_s, u"liste"_s}, words);
    }
};

} // namespace velm::testing
