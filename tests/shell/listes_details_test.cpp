// What is said and kept of the windows of lists, beside their rows.
#include "core/tablereglages.h"
#include "platform/widgets/look/icons.h"
#include "shell/logique/commandes.h"
#include "tests/shell/listes_support.h"

#include <QProgressBar>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

using ListesDetailsTest = ListesTest;

} // namespace

TEST_F(ListesDetailsTest, BarAndProgressHaveNamesForWhoCannotSeeThem) {
    ouvreliste(Ordre::Index);
    EXPECT_EQ(index().barre().accessibleName(), mots(9157));
    EXPECT_EQ(index().findChild<QProgressBar*>()->accessibleName(), mots(9803));
    EXPECT_EQ(index().flex().accessibleName(), index().windowTitle());
}

TEST_F(ListesDetailsTest, OneDocumentIsSaidInTheSingularAndTheButtonsOfAllAndNoneSayWhatTheyDo) {
    ouvreliste(Ordre::Index);
    const Toolbar& barre = index().barre();
    EXPECT_EQ(barre.toolTip(u"JP"_s), mots(9666, {mots(12), mots(9731, {u"1"_s})}));
    EXPECT_EQ(barre.toolTip(u"CO"_s), mots(9666, {mots(10), mots(9732, {u"4"_s})}));
    EXPECT_EQ(barre.toolTip(u"toutsélect"_s), mots(9788, {mots(9157), mots(2220)}));
    EXPECT_EQ(barre.toolTip(u"toutdéselect"_s), mots(9788, {mots(9157), mots(2221)}));
}

TEST_F(ListesDetailsTest, TypesThatNobodyTouchedAreNotWritten) {
    ouvreliste(Ordre::Index);
    aire().around(&index())->close();
    EXPECT_EQ(reglage("INDEX", "STATUS"), u"(absent)");
}

TEST_F(ListesDetailsTest, AWindowBearsThePictureOfItsCommand) {
    ouvreliste(Ordre::Chrono);
    const auto image = [](const QIcon& celle) { return celle.pixmap(QSize(16, 16), 1.0).toImage(); };
    EXPECT_EQ(image(aire().around(&chrono())->windowIcon()), image(icon(imagede(Ordre::Chrono, 0))));
}

TEST_F(ListesDetailsTest, AMaximisedListComesBackMaximised) {
    ouvreliste(Ordre::Chrono);
    aire().around(&chrono())->showNormal();
    aire().around(&chrono())->close();
    ouvreliste(Ordre::Chrono);
    EXPECT_NE(aire().stateOf(&chrono()), ChildArea::Maximised);
    aire().around(&chrono())->showMaximized();
    aire().around(&chrono())->close();
    ouvreliste(Ordre::Chrono);
    EXPECT_EQ(aire().stateOf(&chrono()), ChildArea::Maximised);
}

TEST_F(ListesDetailsTest, APlaceThatNoScreenHasCountsAsNone) {
    for (const char16_t* cle : {u"LISTELEFT1", u"LISTETOP1", u"LISTEWIDTH1", u"LISTEHEIGHT1", u"LISTESTATE1"})
        regle(u"POSITIONFORME", cle, u"1e300"_s);
    ouvreliste(Ordre::Chrono);
    EXPECT_TRUE(chrono().isVisible());
    EXPECT_TRUE(aire().rect().contains(aire().around(&chrono())->geometry().center()));
}

TEST_F(ListesDetailsTest, ListsCountAmongTheWindowsThatAreArranged) {
    ouvreliste(Ordre::Index);
    ouvreliste(Ordre::Chrono);
    const auto offertes = [this] { return barrecommande().isButtonVisible(u"Cascade"_s); };
    EXPECT_FALSE(offertes());
    actions().de(Ordre::MotCle).trigger();
    EXPECT_TRUE(offertes());
    aire().around(&chrono())->close();
    EXPECT_FALSE(offertes());
}

TEST_F(ListesDetailsTest, AYearGoesToTheTopOfTheRows) {
    {
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        TableWriter table(*base.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s, u"Date"_s});
        for (int n = 100; n < 700; ++n)
            ASSERT_TRUE(table.add({u"EU"_s, sixchiffres(n), u"t"_s, u"%1-01-01"_s.arg(1950 + n / 100)}));
    }
    ouvreliste(Ordre::Chrono);
    const auto la = std::ranges::find(bande().barres(), 1953, &BarreAnnees::annee);
    ASSERT_NE(la, bande().barres().end());
    const int rang = static_cast<int>(la - bande().barres().begin());
    QTest::mouseClick(&bande(), Qt::LeftButton, {}, bande().place(rang).center());
    EXPECT_EQ(chrono().flex().topRow(), 201);
    EXPECT_EQ(chrono().flex().row(), 201);
}
