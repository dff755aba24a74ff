// What closed windows leave free goes back to the system.
#include "shell/bureau.h"
#include "tests/gui/ecran_support.h"
#include "tests/support/eventually.h"

#include <QFile>
#include <QMdiSubWindow>

#include <memory>
#include <unistd.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 mega = 1024 * 1024;

qint64 resident() {
    QFile file(u"/proc/self/statm"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// Free memory between pieces that are in use.
class Lacunes {
public:
    explicit Lacunes(qint64 octets) {
        constexpr std::size_t lacune = 32 * 1024;
        std::vector<std::unique_ptr<char[]>> libres;
        for (qint64 pris = 0; pris < octets; pris += lacune) {
            libres.push_back(std::make_unique<char[]>(lacune)); // written to, so that it is there
            piquets_.push_back(std::make_unique<char>());
        }
    }

private:
    std::vector<std::unique_ptr<char>> piquets_;
};

class MemoireRendueTest : public EcranTest {};

} // namespace

TEST_F(MemoireRendueTest, WhatIsFreeGoesBackOnceAWindowHasClosed) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer keeps memory in its own way";
#endif
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    const qint64 depart = resident();
    const Lacunes lacunes(128 * mega);
    ASSERT_GT(resident(), depart + 100 * mega);
    ecran().aire().around(programme->fenetre(0))->close();
    EVENTUALLY(resident() < depart + 50 * mega);
}
