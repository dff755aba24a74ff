// The windows of the index and of the dates in the frame of the program.
#include "document/ui/divisiontextes.h"
#include "platform/widgets/look/icons.h"
#include "tests/shell/listes_support.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

// ---- opening and closing

TEST_F(ListesTest, TheButtonOfTheIndexShowsAndHidesItAndStaysDownMeanwhile) {
    ouvreliste(Ordre::Index);
    EXPECT_EQ(index().objectName(), u"fIndex");
    EXPECT_TRUE(index().isVisible());
    EXPECT_EQ(surbarre("Index"), u"enfoncé");
    EXPECT_TRUE(entree("moutils0", 0)->isChecked());
    EXPECT_TRUE(entree("maffichagef", 11)->isChecked());
    EXPECT_TRUE(entree("mlistefenetre", 12)->isVisible());
    EXPECT_TRUE(entree("mlistefenetre", 12)->isChecked()) << "it is in front";
    presse(barreecran(), "Index");
    EXPECT_FALSE(index().isVisible());
    EXPECT_EQ(surbarre("Index"), u"relevé");
    EXPECT_FALSE(entree("mlistefenetre", 12)->isVisible());
    entree("maffichagef", 11)->trigger();
    EXPECT_TRUE(index().isVisible());
    programme->ouvre(decoupecle(u"CO000001"));
    EXPECT_FALSE(entree("mlistefenetre", 12)->isChecked());
    entree("mlistefenetre", 12)->trigger();
    EXPECT_EQ(aire().activeChild(), &index());
}

TEST_F(ListesTest, AClosedIndexReleasesItsButtonAndComesAgain) {
    ouvreliste(Ordre::Index);
    const QPointer<QWidget> premiere = &index();
    aire().around(&index())->close();
    EXPECT_EQ(programme->listes().fenetre(Ordre::Index), nullptr);
    EXPECT_EQ(surbarre("Index"), u"relevé");
    EXPECT_FALSE(entree("moutils0", 0)->isChecked());
    EXPECT_FALSE(entree("mlistefenetre", 12)->isVisible());
    ouvreliste(Ordre::Index);
    EXPECT_TRUE(index().isVisible());
    EVENTUALLY(!premiere);
}

TEST_F(ListesTest, TheButtonOfTheDatesOpensBringsForwardAndCloses) {
    ouvreliste(Ordre::Chrono);
    EXPECT_EQ(chrono().objectName(), u"frmchrono");
    EXPECT_EQ(chrono().windowTitle(), mots(9151));
    EXPECT_EQ(surbarre("chrono"), u"enfoncé");
    programme->ouvre(decoupecle(u"CO000001"));
    EXPECT_NE(aire().activeChild(), &chrono());
    presse(barrecommande(), "chrono");
    EXPECT_EQ(aire().activeChild(), &chrono()) << "one that lies behind comes forward";
    EXPECT_EQ(surbarre("chrono"), u"enfoncé");
    aire().around(&chrono())->showMinimized();
    presse(barrecommande(), "chrono");
    EXPECT_EQ(aire().stateOf(&chrono()) == ChildArea::Minimised, false) << "an icon comes back";
    presse(barrecommande(), "chrono");
    EXPECT_EQ(programme->listes().fenetre(Ordre::Chrono), nullptr);
    EXPECT_EQ(surbarre("chrono"), u"relevé");
}

TEST_F(ListesTest, PlacesAndTypesComeBackAtTheNextOpening) {
    ouvreliste(Ordre::Chrono);
    type(chrono(), u"JP"_s);
    QMdiSubWindow* autour = aire().around(&chrono());
    autour->showNormal();
    autour->setGeometry(30, 40, 480, 320);
    const QRect place = autour->geometry();
    autour->close();
    EXPECT_EQ(reglage("CHRONO", "STATUS"), u"11011111111");
    ouvreliste(Ordre::Chrono);
    EXPECT_EQ(aire().around(&chrono())->geometry(), place);
    EXPECT_FALSE(chrono().barre().value(u"JP"_s));
    redemarre();
    ouvreliste(Ordre::Chrono);
    EXPECT_FALSE(chrono().types().enfonce(2)) << "and in the next run";
    aire().around(&chrono())->showMinimized();
    aire().around(&chrono())->close();
    ouvreliste(Ordre::Chrono);
    EXPECT_NE(aire().stateOf(&chrono()), ChildArea::Minimised) << "what is asked for is seen";
}

TEST_F(ListesTest, TheProgramEndsWithListsOpen) {
    ouvreliste(Ordre::Index);
    ouvreliste(Ordre::Chrono);
    type(index(), u"EU"_s);
    dialogues.answers.push_back(Bouton::Oui);
    programme->listes().amene(Ordre::Index);
    ASSERT_TRUE(programme->quitteprogramme());
    programme.reset();
    EXPECT_EQ(reglage("INDEX", "STATUS"), u"10111111111");
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"11           X") << "the index was in front";
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche) << "which is no document to open";
}

// ---- the index

TEST_F(ListesTest, ANewIndexHasAllTypesOnAndListsAllDocuments) {
    ouvreliste(Ordre::Index);
    EXPECT_TRUE(index().types().tous());
    EXPECT_EQ(index().flex().rows(), 6);
    EXPECT_EQ(comptede(index()), u" 5 documents");
    EXPECT_EQ(index().flex().headerCell(0), QString());
    EXPECT_EQ(colonnede(index().flex(), 1),
              (QStringList{u"000001"_s, u"000002"_s, u"000003"_s, u"000004"_s, u"000007"_s}));
    EXPECT_TRUE(index().flex().mergeCells());
    EXPECT_EQ(index().barre().toolTip(u"typeflex"_s), mots(2608));
}

TEST_F(ListesTest, SelectingNoneThenAllShowsTheList) {
    ouvreliste(Ordre::Index);
    type(index(), u"toutdéselect"_s);
    EXPECT_FALSE(index().flex().isVisible());
    EXPECT_FALSE(index().barre().value(u"CO"_s));
    EXPECT_EQ(comptede(index()), QString()) << "nothing is listed";
    EXPECT_FALSE(actions().de(Ordre::ToutSelectionner).isEnabled());
    QStringList ditsons;
    for (const QLabel* label : index().findChildren<QLabel*>()) {
        if (label->isVisible())
            ditsons << label->text();
    }
    EXPECT_TRUE(ditsons.contains(mots(9723))) << "and it is said why";
    type(index(), u"toutsélect"_s);
    EXPECT_TRUE(index().flex().isVisible());
    EXPECT_TRUE(index().barre().value(u"CO"_s));
    EXPECT_EQ(index().flex().rows(), 6);
}

TEST_F(ListesTest, TheSameChoiceAfterNoneOnlyShowsTheGridAgain) {
    ouvreliste(Ordre::Index);
    type(index(), u"toutdéselect"_s);
    type(index(), u"JP"_s);
    EXPECT_EQ(index().flex().rows(), 2);
    const GridSource* source = index().flex().source();
    type(index(), u"JP"_s);
    EXPECT_FALSE(index().flex().isVisible());
    type(index(), u"JP"_s);
    EXPECT_TRUE(index().flex().isVisible());
    EXPECT_EQ(index().flex().source(), source);
    type(index(), u"CO"_s);
    EXPECT_EQ(index().flex().rows(), 6);
}

TEST_F(ListesTest, AButtonOfATypeSaysItsNameAndNumber) {
    ouvreliste(Ordre::Index);
    EXPECT_TRUE(index().barre().toolTip(u"CO"_s).startsWith(mots(10)));
    EXPECT_TRUE(index().barre().toolTip(u"CO"_s).contains(u'4')) << index().barre().toolTip(u"CO"_s).toStdString();
    EXPECT_TRUE(index().barre().toolTip(u"JP"_s).contains(u'1'));
    int boutons = 0;
    for (int rang = 1; rang <= index().barre().buttonCount(); ++rang)
        boutons += codestypes.contains(index().barre().keyAt(rang)) && index().barre().keyAt(rang).size() == 2 ? 1 : 0;
    EXPECT_EQ(boutons, nombredecollections);
    const auto image = [&](const QString& code) {
        return index().barre().widget(code)->icon().pixmap(QSize(24, 24), 1.0).toImage();
    };
    EXPECT_EQ(image(u"JP"_s), icon(u"collection2"_s).pixmap(QSize(24, 24), 1.0).toImage());
    EXPECT_NE(image(u"EU"_s), icon(u"collection1"_s).pixmap(QSize(24, 24), 1.0).toImage()) << "it has no document";
}

TEST_F(ListesTest, ADoubleClickOpensTheRowsAndSoDoesReturn) {
    ouvreliste(Ordre::Index);
    FlexGrid& grille = index().flex();
    grille.setRow(2);
    grille.setRowSel(3);
    doubleclique(grille, 3, 2);
    EXPECT_EQ(programme->bureau().active()->referencecourante(), u"CO000003");
    EXPECT_EQ(programme->bureau().navigation().derniersdocuments().at(1), u"CO000002") << "and the first one before it";
    EXPECT_TRUE(programme->fenetre(0)->division().disposition().replie()) << "the text has the room";
    programme->listes().amene(Ordre::Index);
    grille.setRow(5);
    QTest::keyClick(grille.view(), Qt::Key_Return);
    EXPECT_EQ(programme->bureau().active()->referencecourante(), u"JP000007");
}

TEST_F(ListesTest, AHeaderSortsWithItsMarksAndTheSelectedDocumentStaysSelected) {
    ouvreliste(Ordre::Index);
    FlexGrid& grille = index().flex();
    grille.setRow(3);
    doubleclique(grille, 0, 2);
    EVENTUALLY(!index().encours());
    EXPECT_EQ(grille.headerCell(2), mots(300) + u'>');
    EXPECT_EQ(colonnede(grille, 2), (QStringList{u"alpha"_s, u"Béta"_s, u"Delta"_s, u"gamma"_s, u"Un arrêt"_s}));
    EXPECT_EQ(grille.text(grille.row(), 2), u"Delta");
    doubleclique(grille, 0, 2);
    EVENTUALLY(!index().encours());
    EXPECT_EQ(grille.headerCell(2), mots(300) + u'<');
    EXPECT_EQ(grille.text(1, 2), u"Un arrêt");
    // What is typed is looked up in the sorted column.
    QTest::keyClicks(grille.view(), u"g"_s);
    EXPECT_EQ(grille.text(grille.row(), 2), u"gamma");
    // Filled anew, the list stays sorted.
    const GridSource* avant = grille.source();
    QTest::keyClick(grille.view(), Qt::Key_F5);
    EVENTUALLY(!index().encours());
    EXPECT_NE(grille.source(), avant);
    EXPECT_EQ(grille.text(1, 2), u"Un arrêt");
    EXPECT_EQ(grille.text(grille.row(), 2), u"gamma");
}

TEST_F(ListesTest, CopyingInTheIndexTakesTheSelectedRowsByItsKeyAlone) {
    ouvreliste(Ordre::Index);
    FlexGrid& grille = index().flex();
    EXPECT_FALSE(actions().de(Ordre::Copier).isEnabled()) << "the frame's copying has nothing in it";
    EXPECT_TRUE(actions().de(Ordre::ToutSelectionner).isEnabled());
    grille.view()->setFocus();
    grille.setRow(1);
    QTest::keyClick(grille.view(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData* pris = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(pris->text(), u"CO\t000001\tBéta\tvente\t\t"_s);
    EXPECT_TRUE(pris->html().contains(u"<td>Béta</td>"_s));
    QTest::keyClick(grille.view(), Qt::Key_A, Qt::ControlModifier);
    index().findChild<QAction*>(u"ContextMenuCopier"_s)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), 4);
}

TEST_F(ListesTest, TheMenuPutsTheChosenRowsIntoTheSelectionList) {
    ouvreliste(Ordre::Index);
    index().flex().setRow(2);
    index().flex().setRowSel(3);
    index().findChild<QAction*>(u"ContextMenuSelection"_s)->trigger();
    EXPECT_EQ(flex().rows(), 3);
    EXPECT_TRUE(volet().isVisible());
    EXPECT_EQ(colonne(0), (QStringList{u"alpha"_s, u"Delta"_s}));
    index().findChild<QAction*>(u"ContextMenuOuvrir"_s)->trigger();
    EXPECT_EQ(active()->referencecourante(), u"CO000003");
}

// ---- the chronological list

TEST_F(ListesTest, TheChronologicalListFillsAtLoadAndMergesEqualYearsAndMonths) {
    ouvreliste(Ordre::Chrono);
    FlexGrid& grille = chrono().flex();
    EXPECT_EQ(comptede(chrono()), u" 3 documents");
    EXPECT_EQ(colonnede(grille, 0), (QStringList{u"1999"_s, u"2001"_s, u"2001"_s}));
    EXPECT_EQ(colonnede(grille, 2), (QStringList{u"31"_s, u"5"_s, u"9"_s}));
    EXPECT_TRUE(grille.joinsAbove(3, 0));
    EXPECT_TRUE(grille.joinsAbove(3, 1));
    EXPECT_FALSE(grille.joinsAbove(3, 2));
    QTest::mouseClick(chrono().barre().widget(u"typeflex"_s), Qt::LeftButton);
    EXPECT_FALSE(grille.joinsAbove(3, 0));
    EXPECT_EQ(chrono().barre().toolTip(u"typeflex"_s), mots(2605));
}

TEST_F(ListesTest, YearMonthAndDayHaveTheRoomThatTheirTextsWant) {
    regle(u"CHRONO", u"LARGEURCOLONNE", u"000700001500000700003000002000002000002000"_s);
    ouvreliste(Ordre::Chrono);
    FlexGrid& grille = chrono().flex();
    const auto large = [&](int place) { return grille.view()->columnWidth(place); };
    EXPECT_GE(large(0), grille.view()->horizontalHeader()->sectionSizeHint(0)) << "though its own is 700";
    EXPECT_EQ(grille.colWidth(0), 700) << "which is kept";
    EXPECT_EQ(large(1), pixelsFromTwips(1500)) << "somebody has chosen that";
    aire().around(&chrono())->close();
    EXPECT_EQ(reglage("CHRONO", "LARGEURCOLONNE"), u"000700001500000700003000002000002000002000");
}

TEST_F(ListesTest, NoTypeListsNothingAndSaysWhy) {
    ouvreliste(Ordre::Chrono);
    type(chrono(), u"toutdéselect"_s);
    EXPECT_EQ(chrono().flex().rows(), 1);
    EXPECT_TRUE(chrono().flex().isVisible());
    EXPECT_EQ(chrono().flex().emptyText(), mots(9723));
    EXPECT_TRUE(bande().barres().empty());
    type(chrono(), u"CO"_s);
    EXPECT_EQ(chrono().flex().rows(), 4);
}

TEST_F(ListesTest, CopyInTheChronologicalListCopiesTheWholeGrid) {
    ouvreliste(Ordre::Chrono);
    EXPECT_TRUE(actions().de(Ordre::Copier).isEnabled());
    actions().de(Ordre::Copier).trigger();
    EXPECT_EQ(pressepapiers.contenu.texte.count(u'\r'), 2);
}

TEST_F(ListesTest, AClickOnAYearGoesToItsFirstRowAndSoDoTheKeys) {
    ouvreliste(Ordre::Chrono);
    ASSERT_EQ(bande().barres().size(), 3U) << "1999 to 2001";
    EXPECT_TRUE(bande().dit(2).startsWith(u"2001")) << bande().dit(2).toStdString();
    EXPECT_TRUE(bande().dit(2).contains(u'2'));
    FlexGrid& grille = chrono().flex();
    QTest::mouseClick(&bande(), Qt::LeftButton, {}, bande().place(2).center());
    EXPECT_EQ(grille.row(), 2);
    bande().setFocus();
    QTest::keyClick(&bande(), Qt::Key_Home);
    EXPECT_EQ(bande().courante(), 0);
    QTest::keyClick(&bande(), Qt::Key_Return);
    EXPECT_EQ(grille.row(), 1);
    QTest::keyClick(&bande(), Qt::Key_Right);
    QTest::keyClick(&bande(), Qt::Key_Space);
    EXPECT_EQ(grille.row(), 1) << "a year without documents leads nowhere";
    // Sorted otherwise, the year's row is where it stands then.
    doubleclique(grille, 0, 3);
    EVENTUALLY(!chrono().encours());
    QTest::keyClick(&bande(), Qt::Key_Home);
    QTest::keyClick(&bande(), Qt::Key_Return);
    EXPECT_EQ(grille.text(grille.row(), 0), u"1999");
    EXPECT_EQ(bande().barres().size(), 3U) << "the strip is that of the dates, whatever the order";
}
