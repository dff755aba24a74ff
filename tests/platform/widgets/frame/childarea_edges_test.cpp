// What an area does at its edges: windows of others, windows that were hidden, a scrolled area, pointers and shortcuts.
#include "childareafixture.h"

#include <QScrollBar>
#include <QShortcut>

namespace velm {

namespace {

/// Counts how often the focus has come to it.
class Counting : public QWidget {
public:
    Counting() { setFocusPolicy(Qt::StrongFocus); }
    int entered = 0;

protected:
    void focusInEvent(QFocusEvent*) override { ++entered; }
};

class ChildEdgesTest : public ChildAreaTest {
protected:
    ChildEdgesTest() { showFrame(); }
    template <class Widget>
    Widget* show() {
        auto* child = new Widget;
        area->add(child);
        area->place(child, ChildArea::Normal, 0, 0, 0, 0);
        area->activate(child);
        return child;
    }
    /// More windows than there is room for, seen from their right end.
    std::vector<Child*> scrolledTiles() {
        auto made = addShown(5);
        for (Child* child : made)
            area->around(child)->setMinimumWidth(300);
        area->arrange(ChildArea::Arrangement::TileVertical);
        EXPECT_GT(area->horizontalScrollBar()->maximum(), 0);
        area->horizontalScrollBar()->setValue(area->horizontalScrollBar()->maximum());
        return made;
    }
};

} // namespace

// ---- whose window

TEST_F(ChildEdgesTest, WindowsOfOtherAreasAndOtherPartsOfAFrameAreNone) {
    ChildArea other;
    auto* stranger = new Child;
    other.add(stranger);
    EXPECT_EQ(area->around(stranger), nullptr);
    Child* own = addShown(1).front();
    const QWidget part(area->around(own));
    EXPECT_EQ(area->around(&part), nullptr);
    EXPECT_EQ(area->around(nullptr), nullptr);
}

TEST_F(ChildEdgesTest, AHiddenFrameIsNotTheActiveOne) {
    const auto made = addShown(2);
    area->around(made[1])->hide();
    EXPECT_EQ(area->activeChild(), made[0]);
}

TEST_F(ChildEdgesTest, AnIconComesForwardOnlyAfterTheWindows) {
    const auto made = addShown(3);
    area->activate(made[1]);
    area->around(made[1])->showMinimized();
    area->activate(made[2]);
    area->hideChild(made[2]);
    EXPECT_EQ(area->activeChild(), made[0]);
}

TEST_F(ChildEdgesTest, AnIconStaysInSight) {
    const auto made = addShown(2);
    area->around(made[1])->showMinimized();
    QApplication::processEvents();
    EXPECT_TRUE(area->around(made[1])->isVisible());
}

// ---- places

TEST_F(ChildEdgesTest, PlacesCountFromTheCornerOfWhatIsScrolled) {
    const auto made = scrolledTiles();
    const int scrolled = area->horizontalScrollBar()->value();
    const QRect first = area->twipsOf(made[0]);
    EXPECT_EQ(first.topLeft(), QPoint(0, 0));
    Child* child = add();
    area->place(child, ChildArea::Normal, twipsFromPixels(40), twipsFromPixels(20), twipsFromPixels(320),
                twipsFromPixels(200));
    EXPECT_EQ(placeOf(child).topLeft(), QPoint(40 - scrolled, 20));
    EXPECT_EQ(area->twipsOf(child).topLeft(), QPoint(twipsFromPixels(40), twipsFromPixels(20)));
}

TEST_F(ChildEdgesTest, AScrolledAreaIsArrangedFromItsCorner) {
    const auto made = scrolledTiles();
    area->arrange(ChildArea::Arrangement::TileVertical);
    EXPECT_EQ(area->horizontalScrollBar()->value(), 0);
    EXPECT_EQ(placeOf(made[0]).left(), 0);
}

TEST_F(ChildEdgesTest, HiddenWindowsPushNoneAside) {
    const auto made = addShown(2);
    area->hideChild(made[0]);
    area->hideChild(made[1]);
    Child* child = add();
    area->place(child, ChildArea::Normal, 0, 0, 0, 0);
    EXPECT_EQ(placeOf(child).topLeft(), QPoint(0, 0));
}

TEST_F(ChildEdgesTest, AHiddenIconLeavesItsRoomToTheTiles) {
    const auto made = addShown(2);
    area->around(made[0])->showMinimized();
    area->hideChild(made[0]);
    area->arrange(ChildArea::Arrangement::TileVertical);
    EXPECT_EQ(placeOf(made[1]).height(), inside().height());
}

TEST_F(ChildEdgesTest, ATileOfAnEarlierArrangementFollowsTheAreaNoMore) {
    const auto made = addShown(2);
    area->arrange(ChildArea::Arrangement::TileVertical);
    const QRect tile = placeOf(made[0]);
    area->hideChild(made[0]);
    area->arrange(ChildArea::Arrangement::TileVertical);
    area->hideChild(made[1]);
    area->activate(made[0]);
    frame.resize(frame.size() + QSize(60, 60));
    EXPECT_EQ(placeOf(made[0]).size(), tile.size());
}

TEST_F(ChildEdgesTest, AWishOutlastsTheOtherStates) {
    for (const bool maximised : {true, false}) {
        frame.resize(900, 700);
        Child* child = add();
        area->place(child, ChildArea::Normal, 0, 0, twipsFromPixels(5000), twipsFromPixels(300));
        area->activate(child);
        QMdiSubWindow* window = area->around(child);
        EXPECT_EQ(window->width(), inside().width());
        maximised ? window->showMaximized() : window->showMinimized();
        frame.resize(940, 740);
        window->showNormal();
        frame.resize(900, 700);
        frame.resize(1000, 740);
        EXPECT_EQ(window->width(), inside().width()) << maximised;
        window->close();
    }
}

// ---- focus

TEST_F(ChildEdgesTest, AChildKeepsItsOwnWayToTheFocus) {
    auto* child = show<Counting>();
    EXPECT_EQ(child->focusPolicy(), Qt::StrongFocus);
    show<Form>();
    area->activate(child);
    EXPECT_EQ(child->entered, 2);
    EXPECT_TRUE(child->hasFocus());
}

TEST_F(ChildEdgesTest, AClickOnItsOwnTitleLeavesTheFocusInside) {
    auto* form = show<Form>();
    form->fields[2]->setFocus();
    QMdiSubWindow* window = area->around(form);
    QTest::mouseClick(window, Qt::LeftButton, {}, {window->width() / 2, 8});
    EXPECT_TRUE(form->fields[2]->hasFocus());
}

TEST_F(ChildEdgesTest, TheKeyBackwardsLeavesTheFirstControl) {
    auto* form = show<Form>();
    form->fields[0]->setFocus();
    bool last = false;
    for (int step = 0; step < 6 && !last; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        last = form->fields[2]->hasFocus();
    }
    EXPECT_TRUE(last);
}

TEST_F(ChildEdgesTest, AControlThatTakesNoFocusAnyMoreOrIsElsewhereDoesNotGetIt) {
    auto* one = show<Form>();
    one->fields[0]->setFocus();
    show<Form>();
    one->fields[0]->setFocusPolicy(Qt::NoFocus);
    area->activate(one);
    EXPECT_TRUE(one->fields[1]->hasFocus());
    one->fields[2]->setFocus();
    show<Form>();
    one->fields[2]->setParent(&frame);
    one->fields[2]->show();
    area->activate(one);
    EXPECT_TRUE(one->fields[1]->hasFocus());
}

TEST_F(ChildEdgesTest, AControlHiddenBehindAnotherProgramLeavesTheChoiceToTheChild) {
    auto* form = show<Form>();
    form->fields[0]->setFocus();
    QLineEdit elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    form->fields[0]->hide();
    area->activate(form);
    EXPECT_NE(frame.focusWidget(), form->fields[0]);
}

TEST_F(ChildEdgesTest, AnIconHasNoFocusInside) {
    auto* form = show<Form>();
    area->around(form)->showMinimized();
    area->around(form)->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(QApplication::focusWidget(), area->around(form));
}

// ---- pointer and keys

TEST_F(ChildEdgesTest, ThePointerOfTheGroundIsNotThatOfTheWindows) {
    area->viewport()->setCursor(Qt::WaitCursor);
    EXPECT_EQ(show<QWidget>()->cursor().shape(), Qt::ArrowCursor);
    auto* own = new QWidget;
    own->setCursor(Qt::IBeamCursor);
    area->add(own);
    EXPECT_EQ(own->cursor().shape(), Qt::IBeamCursor);
}

TEST_F(ChildEdgesTest, ItsKeysGoBeforeShortcutsOfTheFrame) {
    const auto made = addShown(2);
    QShortcut shortcut(QKeySequence(u"Ctrl+F6"_s), &frame);
    const QSignalSpy used(&shortcut, &QShortcut::activated);
    key(Qt::Key_F6);
    EXPECT_EQ(used.count(), 0);
    EXPECT_EQ(area->activeChild(), made[0]);
}

TEST_F(ChildEdgesTest, TheKeysThatCloseDoNotWithShift) {
    addShown(2);
    key(Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
    key(Qt::Key_F4, Qt::ControlModifier | Qt::ShiftModifier);
    QApplication::processEvents();
    EXPECT_EQ(area->children().size(), 2U);
}

} // namespace velm
