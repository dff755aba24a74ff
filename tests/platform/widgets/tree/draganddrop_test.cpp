#include "tests/support/eventually.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"
#include "treewithlist.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Presses and moves come through the window, as those of a real mouse: it finds who is below.
class DragAndDrop : public QuietTest {
protected:
    DragAndDrop() {
        host.plant(4, 6);
        test::showInFront(host);
        tree.setFocus();
        QCoreApplication::processEvents();
    }
    ~DragAndDrop() override { EXPECT_FALSE(QApplication::overrideCursor()); }
    QPoint ofNode(int node) const {
        const QRect row = tree.visualRect(tree.indexOf(node));
        return tree.viewport()->mapTo(&host, QPoint(row.left() + 10, row.center().y()));
    }
    QPoint ofItem(int item) const { return list.viewport()->mapTo(&host, list.itemPlace(item).center()); }
    void press(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(host.windowHandle(), button, {}, at);
    }
    void release(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(host.windowHandle(), button, {}, at);
    }
    /// In three steps.
    void move(const QPoint& from, const QPoint& to) {
        for (int step = 1; step <= 3; ++step)
            QTest::mouseMove(host.windowHandle(), from + (to - from) * step / 3);
    }
    void drag(const QPoint& from, const QPoint& to) {
        press(from);
        move(from, to);
    }
    QStringList takeTold() { return std::exchange(host.told, {}); }
    /// Everything that a slow click would have asked for has been asked.
    static void waitForSlowClick() { QTest::qWait(QApplication::doubleClickInterval() + 60); }

    TreeWithList host;
    TreeView& tree = host.tree;
    ListView& list = host.list;
    Carrier& carrier = host.carrier;
    TreeNodes& nodes = host.tree.nodes();
};

} // namespace

TEST_F(DragAndDrop, AnEntryOfTheListComesToANode) {
    drag(ofItem(3), ofNode(4));
    EXPECT_TRUE(carrier.carries());
    EXPECT_EQ(tree.dropTarget(), 4);
    EXPECT_EQ(list.items().selected(), 3);
    EXPECT_EQ(nodes.selected(), 0);
    takeTold();
    release(ofNode(4));
    EXPECT_EQ(takeTold(), QStringList{u"article 3 on 4"_s});
    EXPECT_EQ(tree.dropTarget(), 0);
    EXPECT_EQ(list.items().selected(), 3);
    waitForSlowClick();
    EXPECT_EQ(takeTold(), QStringList()) << "neither a click nor a slow one";
}

TEST_F(DragAndDrop, ANodeComesToAnother) {
    nodes.select(2);
    drag(ofNode(2), ofNode(5));
    EXPECT_EQ(nodes.selected(), 2);
    release(ofNode(5));
    EXPECT_EQ(takeTold(), QStringList{u"branche 2 on 5"_s});
    waitForSlowClick();
    EXPECT_EQ(takeTold(), QStringList());
    QTest::mouseClick(host.windowHandle(), Qt::LeftButton, {}, ofNode(3));
    EXPECT_EQ(takeTold(), QStringList{u"node 3"_s}) << "the mouse is free again";
}

TEST_F(DragAndDrop, BesideTheNodesAndOnAForbiddenOneNothingIsDropped) {
    for (const QPoint& at : {ofNode(1), ofItem(5), QPoint(100, 380), QPoint(5, 5), QPoint(-30, 100)}) {
        drag(ofItem(2), ofNode(3));
        move(ofNode(3), at);
        EXPECT_EQ(tree.dropTarget(), 0);
        release(at);
        EXPECT_EQ(takeTold(), QStringList{u"cancelled"_s});
    }
}

TEST_F(DragAndDrop, AMoveOfAFewPixelsIsAClick) {
    press(ofItem(2));
    QTest::mouseMove(host.windowHandle(), ofItem(2) + QPoint(2, 1));
    release(ofItem(2) + QPoint(2, 1));
    EXPECT_EQ(takeTold(), QStringList{u"item 2"_s});
}

TEST_F(DragAndDrop, EscapeGivesBackAndTheReleaseIsNothing) {
    drag(ofItem(3), ofNode(4));
    QTest::keyClick(host.windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(takeTold(), QStringList{u"cancelled"_s});
    EXPECT_EQ(tree.dropTarget(), 0);
    move(ofNode(4), ofNode(3));
    EXPECT_FALSE(carrier.carries()) << "it begins with a press only";
    release(ofNode(3));
    EXPECT_EQ(takeTold(), QStringList());
    drag(ofItem(1), ofNode(2));
    release(ofNode(2));
    EXPECT_EQ(takeTold(), QStringList{u"article 1 on 2"_s});
}

TEST_F(DragAndDrop, TheOtherButtonsDropNothing) {
    drag(ofItem(3), ofNode(4));
    press(ofNode(4), Qt::RightButton);
    release(ofNode(4), Qt::RightButton);
    EXPECT_TRUE(carrier.carries());
    EXPECT_EQ(nodes.selected(), 0);
    release(ofNode(4));
    EXPECT_EQ(takeTold(), QStringList{u"article 3 on 4"_s});
}

TEST_F(DragAndDrop, AClosedNodeOpensUnderThePointerThatRests) {
    nodes.add(3, u"dedans"_s, u"dedans"_s, {}, {});
    drag(ofItem(3), ofNode(3));
    EVENTUALLY(nodes.expanded(3));
    const int inside = nodes.child(3);
    move(ofNode(3), ofNode(inside));
    EXPECT_EQ(tree.dropTarget(), inside);
    release(ofNode(inside));
    EXPECT_EQ(takeTold(), (QStringList{u"expanding 3"_s, u"article 3 on %1"_s.arg(inside)}));
}

TEST_F(DragAndDrop, AtTheEdgesTheTreeScrollsAndTheTargetFollows) {
    for (int i = 0; i < 60; ++i)
        nodes.add(1, u"n%1"_s.arg(i), u"n%1"_s.arg(i), {}, {});
    tree.doItemsLayout();
    const QPoint low(100, tree.geometry().bottom() - 3);
    drag(ofItem(2), low);
    const int first = tree.dropTarget();
    ASSERT_NE(first, 0);
    EVENTUALLY(tree.verticalScrollBar()->value() > 100);
    EVENTUALLY(tree.dropTarget() > first + 2);
    const int far = tree.verticalScrollBar()->value();
    move(low, {100, tree.geometry().top() + 3});
    EVENTUALLY(tree.verticalScrollBar()->value() < far - 50);
    QTest::keyClick(host.windowHandle(), Qt::Key_Escape);
    const int now = tree.verticalScrollBar()->value();
    QTest::qWait(150);
    EXPECT_EQ(tree.verticalScrollBar()->value(), now) << "it stands when nothing is carried";
}

TEST_F(DragAndDrop, AMovingPointerScrollsNoFasterThanARestingOne) {
    for (int i = 0; i < 600; ++i)
        nodes.add(1, u"n%1"_s.arg(i), u"n%1"_s.arg(i), {}, {});
    tree.doItemsLayout();
    const QPoint low(100, tree.geometry().bottom() - 3);
    drag(ofItem(2), low);
    const int before = tree.verticalScrollBar()->value();
    for (int i = 0; i < 200; ++i)
        QTest::mouseMove(host.windowHandle(), low + QPoint(i % 2, 0));
    EXPECT_LT(tree.verticalScrollBar()->value() - before, 1000);
    carrier.finish();
}

TEST_F(DragAndDrop, TheWheelScrollsWhatIsBelowAndTheTargetFollows) {
    for (int i = 0; i < 60; ++i)
        nodes.add(1, u"n%1"_s.arg(i), u"n%1"_s.arg(i), {}, {});
    tree.doItemsLayout();
    const QPoint at(100, 200);
    drag(ofItem(2), at);
    const int first = tree.dropTarget();
    ASSERT_NE(first, 0);
    const QPoint inside = tree.viewport()->mapFrom(&host, at);
    QWheelEvent wheel(inside, host.mapToGlobal(at), {}, {0, -240}, Qt::LeftButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(tree.viewport(), &wheel);
    EXPECT_GT(tree.verticalScrollBar()->value(), 0);
    EXPECT_TRUE(carrier.carries());
    EVENTUALLY(tree.dropTarget() > first);
    const int now = tree.dropTarget();
    release(at);
    EXPECT_EQ(takeTold(), QStringList{u"article 2 on %1"_s.arg(now)});
}

TEST_F(DragAndDrop, APressThatBeginsADragKeepsWhatIsEdited) {
    ASSERT_TRUE(tree.startLabelEdit(2));
    QTest::keyClicks(tree.viewport()->findChild<QLineEdit*>(), u"neuf"_s);
    drag(ofItem(3), ofNode(4));
    EXPECT_EQ(tree.editedNode(), 0);
    EXPECT_EQ(nodes.text(2), u"neuf"_s);
    release(ofNode(4));
    EXPECT_TRUE(takeTold().contains(u"article 3 on 4"_s));
}

TEST_F(DragAndDrop, ANodeThatGoesUnderThePointerIsNoTargetAnyMore) {
    drag(ofItem(3), ofNode(5));
    nodes.remove(5);
    release(ofNode(4) + QPoint(0, 40));
    EXPECT_EQ(takeTold(), QStringList{u"cancelled"_s});
}

TEST_F(DragAndDrop, AWindowThatClosesWhileSomethingIsCarriedEndsIt) {
    drag(ofItem(3), ofNode(4));
    host.close();
    EXPECT_EQ(takeTold(), QStringList{u"cancelled"_s});
    EXPECT_EQ(tree.dropTarget(), 0);
}

} // namespace velm
