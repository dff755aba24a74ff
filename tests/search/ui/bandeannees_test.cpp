// The strip of years by itself: the keys, the pointer, what it says.
#include "search/ui/bandeannees.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class BandeAnneesTest : public testing::Test {
protected:
    void SetUp() override {
        bande.resize(400, bande.sizeHint().height());
        bande.montre({{1999, 1, 0}, {2001, 4, 1}, {2002, 2, 5}});
        bande.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&bande));
    }
    void TearDown() override { QToolTip::hideText(); }
    static QString texte(Texte lequel) {
        return lequel == Texte::NomEtNombre      ? u"%1: %2"_s
               : lequel == Texte::EntreDesAnnees ? u"%1-%2"_s
               : lequel == Texte::LigneEtiquetee ? u"%1 - %2"_s
                                                 : u"%1 t"_s + QString::number(static_cast<int>(lequel));
    }
    void touche(Qt::Key une) { QTest::keyClick(&bande, une); }

    BandeAnnees bande{&BandeAnneesTest::texte, nullptr};
    QSignalSpy voulues{&bande, &BandeAnnees::voulue};
};

} // namespace

TEST_F(BandeAnneesTest, TheKeysWalkItsBarsAndStopAtTheEnds) {
    ASSERT_EQ(bande.barres().size(), 4U);
    bande.clearFocus();
    EXPECT_EQ(bande.courante(), bande.courante() < 0 ? -1 : 0);
    bande.setFocus();
    EXPECT_EQ(bande.courante(), 0) << "the keys begin at the first";
    touche(Qt::Key_Left);
    EXPECT_EQ(bande.courante(), 0);
    touche(Qt::Key_End);
    EXPECT_EQ(bande.courante(), 3);
    touche(Qt::Key_Right);
    EXPECT_EQ(bande.courante(), 3);
    touche(Qt::Key_Left);
    EXPECT_EQ(bande.courante(), 2);
    touche(Qt::Key_Enter);
    ASSERT_EQ(voulues.size(), 1);
    EXPECT_EQ(voulues.at(0), (QVariantList{2001, 2001}));
    touche(Qt::Key_Home);
    touche(Qt::Key_Right);
    touche(Qt::Key_Space);
    EXPECT_EQ(voulues.size(), 1) << "a year without documents leads nowhere";
}

TEST_F(BandeAnneesTest, TheLeftButtonAlonePressesABar) {
    QTest::mouseClick(&bande, Qt::RightButton, {}, bande.place(2).center());
    EXPECT_TRUE(voulues.isEmpty());
    QTest::mouseClick(&bande, Qt::LeftButton, {}, bande.place(2).center());
    EXPECT_EQ(voulues.size(), 1);
    EXPECT_EQ(bande.courante(), 2) << "the keys go on from there";
    EXPECT_EQ(bande.place(4), QRect());
    EXPECT_EQ(bande.dit(4), QString());
}

TEST_F(BandeAnneesTest, WhoCannotSeeItHearsWhichBarTheKeysAreOn) {
    bande.setFocus();
    touche(Qt::Key_End);
    EXPECT_TRUE(bande.accessibleName().endsWith(bande.dit(3))) << bande.accessibleName().toStdString();
    EXPECT_TRUE(bande.dit(3).startsWith(u"2002: 2 "_s)) << bande.dit(3).toStdString();
    EXPECT_TRUE(bande.dit(0).endsWith(u't' + QString::number(static_cast<int>(Texte::CompteUnDocument))));
    EXPECT_TRUE(bande.dit(3).endsWith(u't' + QString::number(static_cast<int>(Texte::CompteDocuments))));
    bande.montre({{1980, 1, 0}});
    EXPECT_EQ(bande.courante(), -1) << "other rows, no bar of theirs was pressed";
    EXPECT_FALSE(bande.accessibleName().contains(u"2002"));
}

TEST_F(BandeAnneesTest, ThePointerAndTheKeysShowTheYearAndItsNumber) {
    const QPoint milieu = bande.place(3).center();
    QHelpEvent aide(QEvent::ToolTip, milieu, bande.mapToGlobal(milieu));
    QCoreApplication::sendEvent(&bande, &aide);
    EXPECT_TRUE(QToolTip::text().contains(u"2002")) << QToolTip::text().toStdString();
    QToolTip::hideText();
    bande.setFocus();
    touche(Qt::Key_Home);
    EXPECT_TRUE(QToolTip::text().contains(u"1999")) << QToolTip::text().toStdString();
}

TEST_F(BandeAnneesTest, WithoutYearsItIsNoStopOfTheTabKey) {
    EXPECT_TRUE(bande.isEnabled());
    bande.montre({});
    EXPECT_FALSE(bande.isEnabled());
    bande.montre({{1999, 1, 0}});
    EXPECT_TRUE(bande.isEnabled());
}

TEST_F(BandeAnneesTest, TheBarOfTheKeysStaysTheSameYearInAnotherWidth) {
    std::vector<AnneeChrono> annees;
    for (int annee = 1900; annee < 2000; ++annee)
        annees.push_back({annee, 1, annee - 1900});
    bande.resize(600, bande.height());
    bande.montre(annees);
    ASSERT_EQ(bande.barres().size(), 100U);
    bande.setFocus();
    touche(Qt::Key_End);
    bande.resize(120, bande.height());
    ASSERT_LT(bande.barres().size(), 60U);
    ASSERT_EQ(bande.courante(), static_cast<int>(bande.barres().size()) - 1);
    touche(Qt::Key_Return);
    ASSERT_EQ(voulues.size(), 1);
    EXPECT_LT(voulues.at(0).at(0).toInt(), 1999);
    EXPECT_EQ(voulues.at(0).at(1).toInt(), 1999) << "one bar for several years";
    EXPECT_TRUE(bande.dit(bande.courante()).contains(u"1999"));
}
