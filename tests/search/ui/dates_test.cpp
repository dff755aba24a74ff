// The boxes of the date.
#include "tests/search/ui/formulaire_support.h"

using namespace velm;
using namespace velm::test;

namespace {

class DatesTest : public FormulaireTest {
protected:
    void SetUp() override {
        FormulaireTest::SetUp();
        onglet(Onglet::Criteres);
    }
    /// Types into a box and leaves it with the Tab key.
    void tape(const QString& nom, const QString& texte) const {
        champ(nom).setFocus();
        champ(nom).clear();
        QTest::keyClicks(&champ(nom), texte);
        QTest::keyClick(&champ(nom), Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(DatesTest, ADayOf32OrAMonthOf13KeepsTheFocus) {
    for (const QString& texte : {u"32"_s, u"0"_s, u"-3"_s, u"x"_s}) {
        tape(u"textejour"_s, texte);
        EXPECT_TRUE(champ(u"textejour"_s).hasFocus()) << qPrintable(texte);
    }
    tape(u"textejour"_s, u"31"_s);
    EXPECT_TRUE(champ(u"textemois"_s).hasFocus());
    tape(u"textemois"_s, u"13"_s);
    EXPECT_TRUE(champ(u"textemois"_s).hasFocus());
    tape(u"textemois"_s, u"2"_s);
    EXPECT_TRUE(champ(u"texteannée"_s).hasFocus());
    tape(u"textejour"_s, QString());
    EXPECT_FALSE(champ(u"textejour"_s).hasFocus());
}

TEST_F(DatesTest, TwoBadBoxesDoNotFightForTheFocus) {
    champ(u"textemois"_s).setText(u"13"_s);
    champ(u"textejour"_s).setText(u"32"_s);
    champ(u"textejour"_s).setFocus();
    QTest::mouseClick(&champ(u"textemois"_s), Qt::LeftButton);
    for (int tour = 0; tour < 10; ++tour)
        QCoreApplication::processEvents();
    EXPECT_TRUE(champ(u"textejour"_s).hasFocus());
}

TEST_F(DatesTest, AYearOf4Becomes2004Of98Of150) {
    for (const auto& [tapee, lue] : {std::pair(u"4"_s, u"2004"_s), std::pair(u"98"_s, u"1998"_s),
                                     std::pair(u"150"_s, u"2050"_s), std::pair(u"2026"_s, u"2026"_s)}) {
        tape(u"texteannée"_s, tapee);
        EXPECT_EQ(champ(u"texteannée"_s).text(), lue);
    }
}

TEST_F(DatesTest, TheLetterECannotBeTypedInTheYear) {
    champ(u"texteannée"_s).setFocus();
    QTest::keyClicks(&champ(u"texteannée"_s), u"1e9E9"_s);
    EXPECT_EQ(champ(u"texteannée"_s).text(), u"199");
}

TEST_F(DatesTest, NoSearchBeginsWithABadDate) {
    champ(u"textejour"_s).setText(u"32"_s);
    champ(u"texterech(0)"_s).setFocus();
    QTest::keyClick(&champ(u"texterech(0)"_s), Qt::Key_Return);
    EXPECT_TRUE(champ(u"textejour"_s).hasFocus());
    EXPECT_TRUE(volet.publications.empty());
    clique(u"cmdok"_s);
    EXPECT_TRUE(volet.publications.empty());
    champ(u"textejour"_s).setText(u"31"_s);
    champ(u"textemois"_s).setText(u"2"_s);
    clique(u"cmdok"_s);
    EXPECT_EQ(volet.publications.size(), 1U);
    EXPECT_EQ(liste.lignes(), 0);
}

TEST_F(DatesTest, TheYearIsCompletedBeforeASearch) {
    champ(u"texteannée"_s).setText(u"4"_s);
    QTest::keyClick(&champ(u"texterech(0)"_s), Qt::Key_Return);
    EXPECT_EQ(champ(u"texteannée"_s).text(), u"2004");
}

TEST_F(DatesTest, ABadDateKeepsNoSearchFromBeingStopped) {
    champ(u"textejour"_s).setFocus();
    pendant([this] {
        EXPECT_EQ(bouton(u"cmdok"_s).text(), arreter);
        champ(u"textejour"_s).setText(u"32"_s);
        // As a hand does it: the focus has gone where the button is pressed before that is let go.
        QTest::mousePress(&bouton(u"cmdok"_s), Qt::LeftButton);
        QCoreApplication::processEvents();
        QTest::mouseRelease(&bouton(u"cmdok"_s), Qt::LeftButton);
        EXPECT_EQ(bouton(u"cmdok"_s).text(), chercher);
    });
    QTest::keyClick(&champ(u"textejour"_s), Qt::Key_Return);
    EXPECT_EQ(volet.publications.size(), 1U);
    EXPECT_EQ(liste.lignes(), 0) << "the search went on";
    EXPECT_EQ(champ(u"textejour"_s).text(), u"32");
    // The next one is held back as ever.
    clique(u"cmdok"_s);
    EXPECT_EQ(volet.publications.size(), 1U);
    EXPECT_TRUE(champ(u"textejour"_s).hasFocus());
}

TEST_F(DatesTest, ABadDateLeavesTheFocusToTheButtonThatSearchesUntilItIsLetGo) {
    champ(u"textejour"_s).setText(u"32"_s);
    champ(u"textejour"_s).setFocus();
    QTest::mousePress(&bouton(u"cmdok"_s), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_FALSE(champ(u"textejour"_s).hasFocus());
    EXPECT_TRUE(bouton(u"cmdok"_s).isDown()) << "who loses the focus is no longer pressed";
    QTest::mouseRelease(&bouton(u"cmdok"_s), Qt::LeftButton);
    EXPECT_TRUE(champ(u"textejour"_s).hasFocus());
    EXPECT_TRUE(volet.publications.empty());
}
