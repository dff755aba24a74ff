// What the user does in a grid: mouse, keyboard, tool tips.
#include "gridinputfixture.h"
#include "platform/widgets/look/plaintext.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

TEST_F(FlexGridInput, ArrowsAndPagesMoveTheRow) {
    key(Qt::Key_Down);
    EXPECT_EQ(range(), GridTest::Range(1, 1));
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Up);
    EXPECT_EQ(range(), GridTest::Range(2, 2));
    key(Qt::Key_End);
    EXPECT_EQ(range(), GridTest::Range(100, 100));
    key(Qt::Key_Down);
    EXPECT_EQ(grid.row(), 100);
    key(Qt::Key_PageUp);
    EXPECT_EQ(grid.row(), 100 - pageRows());
    key(Qt::Key_Home);
    EXPECT_EQ(range(), GridTest::Range(1, 1));
    EXPECT_EQ(grid.topRow(), 1);
    key(Qt::Key_PageDown);
    EXPECT_EQ(grid.row(), 1 + pageRows());
}

TEST_F(FlexGridInput, TheGridThatHasTheFocusIsKnown) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(grid.window()));
    grid.setFocus();
    EXPECT_EQ(FlexGrid::withFocus(), &grid) << "its view has it";
    grid.view()->clearFocus();
    EXPECT_EQ(FlexGrid::withFocus(), nullptr);
}

TEST_F(FlexGridInput, ShiftExtendsTheRange) {
    grid.setRow(5);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(range(), GridTest::Range(5, 7));
    EXPECT_EQ(grid.view()->selectionModel()->selectedRows().size(), 3);
    for (int i = 0; i < 4; ++i)
        key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(range(), GridTest::Range(5, 3));
    EXPECT_EQ(grid.selectedRows(), std::pair(3, 5));
    key(Qt::Key_Down);
    EXPECT_EQ(range(), GridTest::Range(4, 4));
    press(9, 0, Qt::ShiftModifier);
    EXPECT_EQ(range(), GridTest::Range(4, 9));
}

TEST_F(FlexGridInput, TheProgramSetsTheRangeToo) {
    grid.setRowSel(4);
    EXPECT_EQ(range(), GridTest::Range(4, 4));
    grid.setRowSel(90);
    EXPECT_EQ(range(), GridTest::Range(4, 90));
    grid.setRow(1000);
    EXPECT_EQ(range(), GridTest::Range(100, 100));
    grid.setRow(0);
    EXPECT_EQ(range(), GridTest::Range(0, 0));
    EXPECT_EQ(grid.selectedRows(), std::pair(0, 0));
    EXPECT_FALSE(grid.view()->selectionModel()->hasSelection());
    grid.setRow(-4);
    EXPECT_EQ(grid.row(), 0);
}

TEST_F(FlexGridInput, ControlASelectsAllRows) {
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(range(), GridTest::Range(1, 100));
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_EQ(grid.clip().count(u'\r'), 99);
}

TEST_F(FlexGridInput, TheClipHoldsAllColumnsOfTheSelectedRows) {
    grid.setRow(3);
    grid.setRowSel(2);
    EXPECT_EQ(grid.clip(), u"ligne 2\t2\rligne 3\t3"_s);
    grid.setColPosition(1, 0);
    EXPECT_EQ(grid.clip(), u"2\tligne 2\r3\tligne 3"_s);
    grid.setColWidth(0, 0);
    EXPECT_EQ(grid.clip(), u"2\tligne 2\r3\tligne 3"_s);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"ligne 2\r\nligne 3"_s);
}

TEST_F(FlexGridInput, TheCopyKeyGivesATableOfTheSelectedRows) {
    grid.setText(2, 0, u"a < b & \"c\"\tet\r\nd"_s);
    grid.setRow(2);
    grid.setRowSel(3);
    key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), u"a < b & \"c\" et  d\t2\r\nligne 3\t3"_s);
    EXPECT_TRUE(copied->html().endsWith(u"<table><tr><td>a &lt; b &amp; &quot;c&quot; et  d</td><td>2</td></tr>"
                                        "<tr><td>ligne 3</td><td>3</td></tr></table>"_s))
        << qPrintable(copied->html());
    grid.setRow(0);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith(u"ligne 3\t3")) << "without a row nothing is copied";
}

TEST_F(FlexGridInput, TheCopyKeyIsTheListsOwnEvenWhereAMenuHasIt) {
    QAction entry;
    entry.setShortcut(QKeySequence::Copy);
    grid.addAction(&entry);
    QSignalSpy triggered(&entry, &QAction::triggered);
    grid.setRow(4);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(triggered.size(), 0);
    EXPECT_EQ(QApplication::clipboard()->text(), u"ligne 4\t4");
}

TEST_F(FlexGridInput, TheMenuKeyAsksAtTheSelectedRow) {
    QSignalSpy right(&grid, &FlexGrid::rightClicked);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {5, 5}, rowsWidget()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(rowsWidget(), &menu);
    EXPECT_EQ(right.size(), 0);
    grid.setRow(90);
    grid.setTopRow(1);
    QContextMenuEvent again(QContextMenuEvent::Keyboard, {5, 5}, rowsWidget()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(rowsWidget(), &again);
    ASSERT_EQ(right.size(), 1);
    EXPECT_EQ(right.at(0).at(0).toInt(), 90);
    const QPoint at = rowsWidget()->mapFromGlobal(right.at(0).at(2).toPoint());
    EXPECT_EQ(grid.view()->rowAt(at.y()), 89);
}

TEST_F(FlexGridInput, ReturnActivatesAndDeleteIsTold) {
    QSignalSpy activated(&grid, &FlexGrid::activated);
    QSignalSpy deleted(&grid, &FlexGrid::deletePressed);
    key(Qt::Key_Return);
    EXPECT_EQ(activated.size(), 0);
    grid.setRow(8);
    key(Qt::Key_Return);
    key(Qt::Key_Enter, Qt::KeypadModifier);
    key(Qt::Key_Delete);
    ASSERT_EQ(activated.size(), 2);
    EXPECT_EQ(activated.at(0).at(0).toInt(), 8);
    EXPECT_EQ(deleted.size(), 1);
}

TEST_F(FlexGridInput, TypingLooksARowUp) {
    grid.setRows(1);
    for (const QString& text : {u"abri"_s, u"École"_s, u"écran"_s, u"Zone"_s, u"abus"_s})
        grid.addItem(text);
    QTest::keyClicks(grid.view(), u"ecr"_s);
    EXPECT_EQ(grid.row(), 3);
    QTest::qWait(QApplication::keyboardInputInterval() + 20);
    QTest::keyClicks(grid.view(), u"a"_s);
    EXPECT_EQ(grid.row(), 5);
    QTest::keyClicks(grid.view(), u"a"_s);
    EXPECT_EQ(grid.row(), 1);
    QTest::keyClicks(grid.view(), u"xyz"_s);
    EXPECT_EQ(grid.row(), 1);
}

TEST_F(FlexGridInput, TypingLooksInTheColumnByWhichTheRowsAreSorted) {
    grid.setRows(1);
    grid.setCols(2);
    grid.setColWidth(1, 1500);
    for (const QString& cells : {u"un\tzone"_s, u"zéro\tabri"_s, u"deux\tzéro"_s})
        grid.addItem(cells);
    QTest::keyClicks(grid.view(), u"z"_s);
    EXPECT_EQ(grid.text(grid.row(), 0), u"zéro") << "of the first column, without an order";
    grid.sort(1, false);
    grid.setRow(1);
    QTest::qWait(QApplication::keyboardInputInterval() + 20);
    QTest::keyClicks(grid.view(), u"zo"_s);
    EXPECT_EQ(grid.text(grid.row(), 1), u"zone");
    grid.setColWidth(1, 0);
    grid.setRow(1);
    QTest::qWait(QApplication::keyboardInputInterval() + 20);
    QTest::keyClicks(grid.view(), u"d"_s);
    EXPECT_EQ(grid.text(grid.row(), 0), u"deux") << "a sorted column that is not seen is none";
}

TEST_F(FlexGridInput, KeysThatAreNotItsOwnGoOn) {
    class Catcher : public QWidget {
    public:
        QList<int> keys;

    protected:
        void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
    } window;
    FlexGrid inner(&window);
    inner.setCols(1);
    inner.addItem(u"a"_s);
    window.show();
    for (const auto code : {Qt::Key_Escape, Qt::Key_F5, Qt::Key_Down})
        QTest::keyClick(inner.view(), code);
    QTest::keyClick(inner.view(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window.keys, (QList<int>{Qt::Key_Escape, Qt::Key_F5, Qt::Key_Control, Qt::Key_F}));
}

TEST_F(FlexGridInput, TheSelectionStaysAtItsPlaceWhenRowsGo) {
    grid.setRow(3);
    grid.setRowSel(5);
    for (int i = 0; i < 3; ++i)
        grid.removeItem(3);
    EXPECT_EQ(range(), GridTest::Range(3, 3));
    EXPECT_EQ(grid.text(3, 1), u"6"_s);
    EXPECT_EQ(grid.view()->selectionModel()->currentIndex().row(), 2);
    grid.setRow(97);
    grid.removeItem(97);
    EXPECT_EQ(range(), GridTest::Range(96, 96));
    grid.removeItem(1);
    EXPECT_EQ(grid.row(), 95);
    grid.setRows(1);
    EXPECT_EQ(range(), GridTest::Range(0, 0));
}

TEST_F(FlexGridInput, AClickBesideTheRowsChangesNothing) {
    grid.setRows(3);
    grid.setRow(1);
    QTest::mouseClick(rowsWidget(), Qt::LeftButton, {}, {10, 200});
    EXPECT_EQ(grid.row(), 1);
    QTest::mouseClick(rowsWidget(), Qt::LeftButton, {}, pointOf(2, 0));
    EXPECT_EQ(grid.row(), 2);
}

TEST_F(FlexGridInput, TheTipIsTheTextUnderThePointerCutOrNot) {
    const QString whole = u"Un titre très long qui ne tient pas dans la colonne où il se trouve"_s;
    grid.setText(1, 0, whole);
    grid.setText(3, 1, QString());
    grid.setHeader(0, u"Titre"_s);
    grid.setHeader(1, u"Un titre de colonne qui ne tient pas dans sa cellule"_s);
    EXPECT_EQ(tipAt(rowsWidget(), pointOf(1, 0)), whole);
    EXPECT_EQ(tipAt(rowsWidget(), pointOf(2, 0)), u"ligne 2"_s);
    EXPECT_EQ(tipAt(rowsWidget(), pointOf(2, 1)), u"2"_s);
    EXPECT_EQ(tipAt(headerWidget(), headerPoint(0)), u"Titre"_s);
    EXPECT_EQ(tipAt(headerWidget(), headerPoint(1)), u"Un titre de colonne qui ne tient pas dans sa cellule"_s);
    EXPECT_TRUE(noTipAt(rowsWidget(), pointOf(3, 1))) << "an empty cell";
    EXPECT_EQ(tipAt(rowsWidget(), pointOf(4, 0)), u"ligne 4"_s);
    grid.setRows(3);
    EXPECT_TRUE(noTipAt(rowsWidget(), {20, rowsWidget()->height() - 2})) << "below the rows";
}

TEST_F(FlexGridInput, ATipIsNeverTakenForMarkup) {
    const QString title = u"<img src=\"/dev/zero\"> Article 2"_s;
    grid.setText(1, 0, title);
    grid.setHeader(0, title);
    const QString tip = plainTip(title);
    ASSERT_NE(tip, title);
    EXPECT_EQ(tipAt(rowsWidget(), pointOf(1, 0)), tip);
    EXPECT_EQ(tipAt(rowsWidget(), pointOf(2, 0)), u"ligne 2"_s);
    EXPECT_EQ(tipAt(headerWidget(), headerPoint(0)), tip);
}

TEST_F(FlexGridInput, ARangeWithoutFocusIsGrey) {
    grid.setRow(2);
    const auto ground = [this] {
        const QPoint at(190, pointOf(2, 0).y());
        return grid.grab().toImage().pixelColor(rowsWidget()->mapTo(&grid, at));
    };
    EXPECT_EQ(ground(), grid.palette().color(QPalette::Active, QPalette::Highlight));
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !grid.view()->hasFocus(); }));
    EXPECT_LT(ground().hslSaturation(), 60);
    EXPECT_NE(ground(), grid.palette().color(QPalette::Base));
}

TEST_F(FlexGridInput, ToolsForPeopleWhoCannotSeeReadAndSelectCells) {
    grid.setHeader(0, u"Titre"_s);
    grid.setAccessibleName(u"Liste des liens"_s);
    grid.hide();
    grid.show();
    EXPECT_EQ(grid.view()->accessibleName(), u"Liste des liens"_s);
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(grid.view());
    ASSERT_TRUE(view && view->tableInterface());
    EXPECT_EQ(view->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), u"ligne 2"_s);
    grid.view()->selectionModel()->select(grid.view()->model()->index(6, 0),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(grid.row(), 7);
}

TEST_F(FlexGridInput, RowsGrowWithTheType) {
    const int before = grid.view()->rowHeight(0);
    QFont font = grid.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    grid.setFont(font);
    EXPECT_GT(grid.view()->rowHeight(0), before * 3 / 2);
    EXPECT_GT(grid.view()->horizontalHeader()->sizeHint().height(), grid.view()->rowHeight(0));
}

} // namespace velm
