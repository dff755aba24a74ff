// A process that ends in the middle of a save leaves the old rows or the new ones, never some of both.
#include "core/schemas.h"
#include "tests/platform/engine/base.h"

#ifdef Q_OS_UNIX

#include <csignal>
#include <random>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velm::testing {
namespace {

constexpr int folderCount = 300;

class KillTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        const auto base = store(dossiersSchema());
        ASSERT_TRUE(base && base->begin());
        const auto folders = base->openTable(u"arborescences"_s);
        for (int i = 1; i <= folderCount; ++i) {
            folders->addNew();
            folders->setValue(u"numerodutype"_s, i);
            folders->setValue(u"ordre"_s, 0);
            folders->setValue(u"typededonnées"_s, QString(200, u'n'));
            ASSERT_TRUE(folders->update());
        }
        ASSERT_TRUE(base->commit());
    }

    /// Writes generation after generation into every row until it is killed.
    [[noreturn]] void saveForEver() {
        const auto base = Database::open(path(), OpenMode::Shared, dossiersSchema()).database;
        if (!base)
            _exit(1);
        // A small cache puts changed pages into the file before the end of the save.
        base->execute(u"PRAGMA cache_size=4"_s);
        const auto folders = base->openTable(u"arborescences"_s);
        for (qint64 generation = 1;; ++generation) {
            if (!base->begin())
                _exit(2);
            for (folders->moveFirst(); !folders->eof(); folders->moveNext()) {
                folders->edit();
                folders->setValue(u"ordre"_s, generation);
                if (!folders->update())
                    _exit(3);
            }
            if (!base->commit())
                _exit(4);
        }
    }
};

TEST_F(KillTest, ASaveThatIsKilledLeavesTheOldTreeOrTheNewOne) {
    std::mt19937 random(std::random_device{}());
    for (int round = 0; round < 12; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            saveForEver();
        std::this_thread::sleep_for(std::chrono::milliseconds(10 + static_cast<int>(random() % 60)));
        ASSERT_EQ(kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the writer gave up by itself, code " << WEXITSTATUS(status);
        const auto base = open(dossiersSchema());
        ASSERT_TRUE(base);
        const auto folders = base->openTable(u"arborescences"_s);
        std::set<qint64> generations;
        int rows = 0;
        for (; !folders->eof(); folders->moveNext(), ++rows)
            generations.insert(folders->number(u"ordre"_s));
        EXPECT_EQ(rows, folderCount);
        EXPECT_EQ(generations.size(), 1U);
        EXPECT_TRUE(base->check());
    }
}

} // namespace
} // namespace velm::testing

#endif
