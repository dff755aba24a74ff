// Lists that take long to be filled and sorted: the window answers meanwhile, and may go.
#include "tests/shell/listes_support.h"
#include "tests/support/rounds.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QProgressBar>
#include <QTimer>

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
    /// Written once: the others get a copy.
    void ecritbase() const override {
        static const QTemporaryDir premiere;
        const QString la = premiere.filePath(u"velm2000.dat"_s);
        const QString ici = dossier.filePath(u"velm2000.dat"_s);
        if (QFile::exists(la)) {
            ASSERT_TRUE(QFile::copy(la, ici));
            return;
        }
        ListesTest::ecritbase();
        ASSERT_TRUE(QFile::copy(ici, la));
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

TEST_F(LonguesListesTest, ManyRowsAreCopiedInSlicesAndTheEscapeKeyStopsThat) {
    ouvrelindex();
    FlexGrid& grille = index().flex();
    const auto& progres = *index().findChild<QProgressBar*>();
    QGuiApplication::clipboard()->setText(u"avant"_s);
    grille.view()->setFocus();
    QTest::keyClick(grille.view(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(grille.view(), Qt::Key_C, Qt::ControlModifier);
    ASSERT_TRUE(index().encours()) << "it is not done at one go";
    EXPECT_EQ(comptede(index()), mots(9569));
    EVENTUALLY_WITHIN(longtemps, progres.isVisible() || !index().encours());
    EXPECT_TRUE(progres.isVisible());
    EVENTUALLY_WITHIN(longtemps, progres.value() > 0);
    QTest::keyClick(grille.view(), Qt::Key_Escape);
    EXPECT_FALSE(index().encours());
    EXPECT_FALSE(progres.isVisible());
    EXPECT_EQ(comptede(index()), mots(9571));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"avant");
    // Up to its end. A column that is dragged meanwhile changes nothing in it.
    QTest::keyClick(grille.view(), Qt::Key_C, Qt::ControlModifier);
    ASSERT_TRUE(index().encours());
    grille.setColPosition(numeros, 3);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    const QStringList lignes = QGuiApplication::clipboard()->text().split(u'\n');
    ASSERT_EQ(lignes.size(), beaucoup);
    EXPECT_TRUE(lignes.first().startsWith(u"CO\t000001\tTitre 7919"_s)) << lignes.first().toStdString();
    EXPECT_TRUE(lignes.last().startsWith(u"CO\t%1\t"_s.arg(sixchiffres(beaucoup)))) << lignes.last().toStdString();
    EXPECT_EQ(comptede(index()), mots(9570, {QLocale(QLocale::French).toString(beaucoup)}));
    grille.setColPosition(3, numeros);
}

TEST_F(LonguesListesTest, ASortStopsACopyAndACopyWaitsForASort) {
    ouvrelindex();
    FlexGrid& grille = index().flex();
    QGuiApplication::clipboard()->setText(u"avant"_s);
    grille.selectAll();
    index().copielignes();
    ASSERT_TRUE(index().encours());
    doubleclique(grille, 0, 2);
    EXPECT_EQ(comptede(index()), mots(9571));
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"avant");
    doubleclique(grille, 0, numeros);
    ASSERT_TRUE(index().encours());
    grille.selectAll();
    index().copielignes();
    QTest::keyClick(grille.view(), Qt::Key_Escape);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    EXPECT_EQ(grille.headerCell(numeros), mots(304) + u'>') << "the sort goes on";
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(u"CO\t000001\t"_s));
    grille.selectAll();
    index().copielignes();
    ASSERT_TRUE(index().encours());
    const QPointer<QWidget> fenetre = &index();
    aire().around(&index())->close();
    EVENTUALLY(!fenetre);
}

TEST_F(LonguesListesTest, ManyRowsGoIntoTheSelectionListWhileTheWindowAnswers) {
    ouvrelindex();
    index().flex().selectAll();
    index().findChild<QAction*>(u"ContextMenuSelection"_s)->trigger();
    ASSERT_TRUE(index().encours());
    EXPECT_EQ(comptede(index()), mots(9574));
    EXPECT_EQ(flex().rows(), 1);
    EVENTUALLY_WITHIN(longtemps, !index().encours() && !remplissage().encours());
    EXPECT_EQ(flex().rows(), beaucoup + 1);
    EXPECT_TRUE(flex().isVisible());
    EXPECT_EQ(comptede(index()), u' ' + QLocale(QLocale::French).toString(beaucoup) + u" documents"_s);
}

TEST_F(LonguesListesTest, TheWindowMayBeClosedWhileItsRowsFillTheSelectionList) {
    ouvrelindex();
    index().flex().selectAll();
    const QPointer<QWidget> fenetre = &index();
    QTimer surveille;
    QObject::connect(&surveille, &QTimer::timeout, &surveille, [&] {
        if (fenetre && remplissage().encours())
            aire().around(fenetre)->close();
    });
    surveille.start(1);
    index().selectionne();
    EVENTUALLY_WITHIN(longtemps, !fenetre && !remplissage().encours());
    EXPECT_EQ(flex().rows(), beaucoup + 1);
}

TEST_F(LonguesListesTest, TheFrameCopiesAllRowsOfTheDatesInSlices) {
    {
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        ASSERT_TRUE(base.database->execute(u"UPDATE données SET Date='2001-03-05'"_s));
    }
    ouvreliste(Ordre::Chrono);
    EVENTUALLY_WITHIN(longtemps, !chrono().encours());
    actions().de(Ordre::Copier).trigger();
    ASSERT_TRUE(chrono().encours());
    EXPECT_EQ(pressepapiers.contenu.texte, QString());
    EVENTUALLY_WITHIN(longtemps, !chrono().encours());
    EXPECT_EQ(pressepapiers.contenu.texte.count(u'\r'), beaucoup - 1);
    EXPECT_TRUE(pressepapiers.contenu.texte.endsWith(u"\tCO"_s + sixchiffres(beaucoup))) << "with what is hidden";
    EXPECT_EQ(comptede(chrono()), mots(9570, {QLocale(QLocale::French).toString(beaucoup)}));
}

TEST_F(LonguesListesTest, AListThatIsTooLongForPaperIsNotPrinted) {
    ouvrelindex();
    EXPECT_FALSE(actions().de(Ordre::Imprimer).isEnabled()) << "that command prints documents";
    index().findChild<QAction*>(u"ContextMenuPrint"_s)->trigger();
    ASSERT_EQ(dialogues.messages.size(), 1U);
    const QLocale francais(QLocale::French);
    EXPECT_EQ(dialogues.messages[0].texte, mots(9573, {francais.toString(beaucoup), francais.toString(20'000)}));
    EXPECT_TRUE(imprimante.tableaux.empty());
}

TEST_F(LonguesListesTest, WhatIsFilledWhileNoTypeIsChosenComesWithTheNextTypeAndTheProgramMayEndMeanwhile) {
    ouvrelindex();
    FlexGrid& grille = index().flex();
    doubleclique(grille, 0, numeros);
    EVENTUALLY_WITHIN(longtemps, !index().encours());
    QTest::keyClick(grille.view(), Qt::Key_F5);
    ASSERT_TRUE(index().encours()) << "the new rows are sorted before they are seen";
    doubleclique(grille, 0, 2);
    EXPECT_EQ(grille.headerCell(2), mots(300)) << "they come first";
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
