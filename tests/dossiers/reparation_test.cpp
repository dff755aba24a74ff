// Repair of the store: what goes, what is corrected, and what becomes of the file.
#include "dossiers/reparation.h"
#include "magasin_support.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace velm::test {
namespace {

class ReparationTest : public MagasinTest {
protected:
    BilanReparation repare(const Reparation::Progres& progres = {}) { return Reparation::repare(magasin, progres); }
    std::vector<qint64> numeros() {
        std::vector<qint64> tous;
        for (const RangeeDossier& r : dossiers())
            tous.push_back(r.numero);
        return tous;
    }
    QByteArray octets() const {
        QFile fichier(chemin());
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }
    /// The files beside the store that it did not come with.
    QStringList restes() const {
        QStringList tous = QDir(dossier()).entryList(QDir::Files);
        tous.removeIf([](const QString& nom) {
            return nom == u"dossiers.dat" || nom == u"dossiers.dat.verrou" || nom.startsWith(u"dossiers-2");
        });
        return tous;
    }
};

TEST_F(ReparationTest, OrphanDossiersGoInOnePassInTheOrderOfTheirNumbers) {
    // 2 has no parent; 3 lies below it and is met behind it; 1 lies below 5, which goes later than it is met.
    ouvre(
        {{1, 5, 1, u"a"_s, 0}, {2, 9, 2, u"b"_s, 0}, {3, 2, 3, u"c"_s, 0}, {4, 0, 4, u"d"_s, 0}, {5, 8, 5, u"e"_s, 0}});
    const BilanReparation bilan = repare();
    EXPECT_TRUE(bilan.echec.ok());
    EXPECT_EQ(bilan.dossiers, 3);
    EXPECT_EQ(numeros(), (std::vector<qint64>{1, 4}));
    EXPECT_EQ(repare().dossiers, 1) << "what the first pass could not reach";
    EXPECT_EQ(numeros(), std::vector<qint64>{4});
}

TEST_F(ReparationTest, ACycleOfDossiersIsNoOrphan) {
    ouvre({{1, 2, 1, u"a"_s}, {2, 1, 2, u"b"_s}, {-3, 0, 3, u"c"_s}});
    EXPECT_EQ(repare().dossiers, 0);
    EXPECT_EQ(numeros(), (std::vector<qint64>{-3, 1, 2}));
}

TEST_F(ReparationTest, ItemsBeforeBetweenAndBehindTheDossiersGo) {
    ouvre({{2, 0, 1, u"a"_s, 1}, {5, 9, 2, u"b"_s, 1}}, {{0, 1, u"CO000001"_s, u"on the root"_s},
                                                         {1, 1, u"CO000002"_s, u"before all"_s},
                                                         {2, 1, u"CO000003"_s, u"kept"_s, 3, 4},
                                                         {3, 1, u"CO000004"_s, u"between"_s},
                                                         {5, 1, u"CO000005"_s, u"of an orphan"_s},
                                                         {9, 1, u"CO000006"_s, u"behind all"_s}});
    EXPECT_EQ(repare().elements, 5);
    EXPECT_EQ(elements(), (std::vector<RangeeElement>{{2, 1, u"CO000003"_s, u"kept"_s, 3, 4}}));
}

TEST_F(ReparationTest, OrphanItemsGoThoseOfTheRootToo) {
    ouvre({{1, 0, 1, u"a"_s, 1}}, {{0, 1, u"CO000001"_s, u"racine"_s, 0, 0},
                                   {1, 1, u"CO000002"_s, u"bon"_s, 0, 0},
                                   {7, 1, u"CO000003"_s, u"perdu"_s, 0, 0}});
    EXPECT_EQ(repare().elements, 2);
    EXPECT_EQ(elements(), (std::vector<RangeeElement>{{1, 1, u"CO000002"_s, u"bon"_s, 0, 0}}));
}

TEST_F(ReparationTest, CountsAreCorrected) {
    ouvre({{1, 0, 1, u"a"_s, 5}, {2, 0, 2, u"b"_s, 0}, {3, 0, 3, u"c"_s, 1}}, {{1, 1, u"CO000001"_s, u"x"_s, 0, 0},
                                                                               {1, 4, u"CO000002"_s, u"y"_s, 0, 0},
                                                                               {3, 1, u"CO000003"_s, u"z"_s, 0, 0}});
    EXPECT_EQ(repare().comptes, 1);
    EXPECT_EQ(dossiers()[0].compte, 2);
    EXPECT_EQ(dossiers()[1].compte, 0);
    EXPECT_TRUE(repare().rien());
}

TEST_F(ReparationTest, TheLastNumberIsTheHighestOrNone) {
    ouvre({{3, 0, 1, u"a"_s, 0}, {12, 99, 2, u"b"_s, 0}});
    repare();
    EXPECT_EQ(derniernumero(), 3);
}

TEST_F(ReparationTest, OfAnEmptyTreeWritesZero) {
    ouvre({{4, 99, 1, u"a"_s, 0}});
    repare();
    EXPECT_EQ(derniernumero(), 0);
    EXPECT_TRUE(dossiers().empty());
}

TEST_F(ReparationTest, LeavesOneWholeFileWithoutRoomUnused) {
    std::vector<RangeeElement> perdus;
    for (qint64 n = 1; n <= 2000; ++n)
        perdus.push_back({9, n, u"CO000001"_s, QString(100, u'x'), 0, 0});
    ouvre({{1, 0, 1, u"a"_s, 0}}, perdus);
    const qint64 avant = QFileInfo(chemin()).size();
    EXPECT_TRUE(repare().echec.ok());
    EXPECT_LT(QFileInfo(chemin()).size(), avant / 4);
    EXPECT_TRUE(magasin.sain());
    EXPECT_EQ(restes(), QStringList());
}

TEST_F(ReparationTest, TheStoreIsOpenAndWrittenAfterwards) {
    ouvre({{1, 0, 1, u"a"_s, 0}});
    repare();
    EXPECT_TRUE(magasin
                    .ecrit([this] {
                        ajoutedossier({2, 0, 2, u"b"_s, 0});
                        return true;
                    })
                    .ok());
    magasin.fermedossiers();
    magasin.ouvredossiers(dossier());
    EXPECT_EQ(numeros(), (std::vector<qint64>{1, 2})) << "in the file that took the place";
}

TEST_F(ReparationTest, TellsHowFarItIsAndCanBeStopped) {
    std::vector<RangeeElement> elementsdu;
    for (qint64 n = 1; n <= 3000; ++n)
        elementsdu.push_back({n % 2, n, u"CO000001"_s, u"t"_s, 0, 0});
    ouvre({{1, 0, 1, u"a"_s, 0}}, elementsdu);
    std::vector<int> dits;
    EXPECT_TRUE(repare([&dits](int pourcent) {
                    dits.push_back(pourcent);
                    return true;
                }).echec.ok());
    EXPECT_GT(dits.size(), 3U);
    EXPECT_TRUE(std::ranges::is_sorted(dits));
    EXPECT_LE(dits.back(), 100);
}

TEST_F(ReparationTest, StoppedItHasChangedNothing) {
    ouvre({{1, 9, 1, u"a"_s, 3}}, {{9, 1, u"CO000001"_s, u"t"_s, 0, 0}});
    magasin.ecrit([] { return true; }); // the copy of the day
    const QByteArray avant = octets();
    const BilanReparation bilan = repare([](int) { return false; });
    EXPECT_TRUE(bilan.arretee);
    EXPECT_TRUE(bilan.echec.ok());
    EXPECT_EQ(octets(), avant);
    EXPECT_EQ(restes(), QStringList());
}

TEST_F(ReparationTest, OfADamagedStoreIsNoneAndTheFileStays) {
    std::vector<RangeeElement> beaucoup;
    for (qint64 n = 1; n <= 500; ++n)
        beaucoup.push_back({1, n, u"CO000001"_s, QString(200, u'x'), 0, 0});
    ouvre({{1, 0, 1, u"a"_s, 500}}, beaucoup);
    magasin.fermedossiers();
    QFile fichier(chemin());
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
    fichier.seek(5 * 4096 + 8);
    fichier.write(QByteArray(3000, '\x55'));
    fichier.close();
    const QByteArray avant = octets();
    magasin.ouvredossiers(dossier());
    EXPECT_EQ(repare().echec.obstacle, Obstacle::Damaged);
    EXPECT_EQ(octets(), avant);
    EXPECT_EQ(restes(), QStringList());
}

} // namespace
} // namespace velm::test
