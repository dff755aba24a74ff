// What closed windows leave free goes back to the system.
#include "platform/system/memory.h"
#include "shell/bureau.h"
#include "tests/shell/ecran_support.h"
#include "tests/support/eventually.h"

#include <QFile>
#include <QMdiSubWindow>
#include <QTimer>

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

/// Free memory between pieces that are in use: each eighth is.
class Lacunes {
public:
    explicit Lacunes(qint64 octets) {
        constexpr std::size_t morceau = 32 * 1024;
        std::vector<std::unique_ptr<char[]>> tous;
        for (qint64 pris = 0; pris < octets; pris += morceau)
            tous.push_back(std::make_unique<char[]>(morceau)); // written to, so that it is there
        for (std::size_t i = 0; i < tous.size(); i += 8)
            gardes_.push_back(std::move(tous[i]));
    }

private:
    std::vector<std::unique_ptr<char[]>> gardes_;
};

class MemoireRendueTest : public EcranTest {};

} // namespace

TEST_F(MemoireRendueTest, ItGoesBackOnceAndThenNothingIsAtWork) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    const auto* repos = programme->bureau().findChild<QTimer*>();
    ASSERT_NE(repos, nullptr);
    EXPECT_FALSE(repos->isActive());
    aire().around(programme->fenetre(0))->close();
    EVENTUALLY(repos->isActive());
    EVENTUALLY(!repos->isActive());
}

TEST_F(MemoireRendueTest, WhatIsFreeGoesBackOnceAWindowHasClosed) {
#ifdef VELM_ADDRESS_SANITIZER
    GTEST_SKIP() << "the sanitizer keeps memory in its own way";
#endif
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    returnFreeMemory(); // what tests before this one have left
    const qint64 depart = resident();
    const Lacunes lacunes(128 * mega);
    ASSERT_GT(resident(), depart + 100 * mega);
    aire().around(programme->fenetre(0))->close();
    EVENTUALLY(resident() < depart + 50 * mega);
}
