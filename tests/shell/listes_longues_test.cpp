// Lists that take long to be filled and sorted: the window answers meanwhile, and may go.
#include "tests/shell/listes_support.h"
#include "tests/support/rounds.h"

#include <QProgressBar>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class LonguesListesTest : public ListesTest {
protected:
    static constexpr int beaucoup = rounds(300'000);
    /// The column whose sort takes longest: its texts are all different.
    static constexpr int numeros = 1;
    static constexpr int longtemps = 120'000; ///< milliseconds, on a machine that is busy
    std::vector<DocumentEssai> documents() const override {
        std::vector<DocumentEssai> tous;
        tous.reserve(beaucoup);
        for (int n = 1; n <= beaucoup; ++n)
            tous.push_back({u"CO"_s + sixchiffres(n), u"Titre "_s + QString::number(qint64{n} * 7919 % beaucoup), {}});
        return tous;
    }
    /// Wide enough for all columns to stand side by side.
    void ouvrelindex() {
        ouvreliste(Ordre::Index);
        ecran().resize(1400, 800);
        EVENTUALLY(!index().flex().isNarrow());
    }
};

} // namespace

TEST_F(LonguesListesTest, ALongSortShowsItsProgressLetsTheWindowAnswerAndMayBeClosedUnderIt) {
    ouvrelindex();
    FlexGrid& grille = index().flex();
    ASSERT_EQ(grille.rows(), beaucoup + 1);
    const auto& progres = *index().findChild<QProgressBar*>();
    EXPECT_FALSE(progres.isVisible());
    doubleclique(grille, 0, numeros);
    ASSERT_TRUE(index().encours()) << "it is not done at one go";
    grille.setTopRow(beaucoup / 2);
    EXPECT_FALSE(grille.text(beaucoup / 2, 2).isEmpty()) << "the rows are there meanwhile";
    EXPECT_EQ(grille.headerCell(numeros), mots(304)) << "in their old order";
    EVENTUALLY_WITHIN(longtemps, progres.isVisible() || !index().encours());
    // Another sort takes its place.
    doubleclique(grille, 0, 2);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    EXPECT_FALSE(progres.isVisible());
    EXPECT_EQ(grille.headerCell(2), mots(300) + u'>');
    EXPECT_EQ(grille.headerCell(numeros), mots(304));
    EXPECT_EQ(grille.text(1, 2), u"Titre 0");
    // A column may be dragged away under its sort.
    doubleclique(grille, 0, numeros);
    ASSERT_TRUE(index().encours());
    grille.setColPosition(numeros, 3);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    EXPECT_EQ(grille.headerCell(3), mots(304) + u'>');
    EXPECT_EQ(grille.text(1, 3), u"000001");
    doubleclique(grille, 0, 3);
    ASSERT_TRUE(index().encours());
    const QPointer<QWidget> fenetre = &index();
    aire().around(&index())->close();
    EVENTUALLY(!fenetre);
}

TEST_F(LonguesListesTest, WhatIsFilledWhileNoTypeIsChosenComesWithTheNextTypeAndTheProgramMayEndMeanwhile) {
    ouvrelindex();
    FlexGrid& grille = index().flex();
    doubleclique(grille, 0, numeros);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    QTest::keyClick(grille.view(), Qt::Key_F5);
    ASSERT_TRUE(index().encours()) << "the new rows are sorted before they are seen";
    QTest::mouseClick(index().barre().widget(u"toutdéselect"_s), Qt::LeftButton);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    EXPECT_TRUE(grille.isHidden());
    EXPECT_EQ(comptede(index()), QString());
    QTest::mouseClick(index().barre().widget(u"toutsélect"_s), Qt::LeftButton);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    EXPECT_TRUE(grille.isVisible());
    EXPECT_EQ(grille.rows(), beaucoup + 1);
    EXPECT_EQ(grille.headerCell(numeros), mots(304) + u'>');
    QTest::keyClick(grille.view(), Qt::Key_F5);
    ASSERT_TRUE(index().encours());
    dialogues.answers.push_back(Bouton::Oui);
    ASSERT_TRUE(programme->quitteprogramme());
    QCoreApplication::processEvents();
    programme.reset();
}
