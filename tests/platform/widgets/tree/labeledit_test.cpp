// What begins and ends the edit of a label, told finely: a tree beside a list, whose hands are the same.
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"
#include "treewithlist.h"

#include <QLineEdit>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Slow clicks are told apart soon, so that the tests are short.
class LabelEdit : public QuietTest {
protected:
    LabelEdit() {
        QApplication::setDoubleClickInterval(soon);
        host.plant(4, 6);
        test::showInFront(host);
        tree.setFocus();
        tree.setDragging(false);
        nodes.select(2);
        list.items().select(2);
        QCoreApplication::processEvents();
        QObject::connect(&tree, &TreeView::labelEdited, &host, [this](int node, const QString& text, bool cancelled) {
            host.told << u"edited %1 %2%3"_s.arg(node).arg(text, cancelled ? u" cancelled"_s : u""_s);
        });
    }
    ~LabelEdit() override { QApplication::setDoubleClickInterval(usual); }
    QPoint ofNode(int node) const {
        const QRect row = tree.visualRect(tree.indexOf(node));
        return tree.viewport()->mapTo(&host, QPoint(row.left() + 10, row.center().y()));
    }
    QPoint ofItem(int item) const {
        const QRect cell = list.itemPlace(item);
        return list.viewport()->mapTo(&host, QPoint(cell.left() + 40, cell.center().y()));
    }
    void click(const QPoint& at, Qt::KeyboardModifiers with = {}) {
        QTest::mouseClick(host.windowHandle(), Qt::LeftButton, with, at);
    }
    static QLineEdit* editorOf(const QAbstractScrollArea& view) { return view.viewport()->findChild<QLineEdit*>(); }
    QStringList takeTold() { return std::exchange(host.told, {}); }
    qsizetype wanted() {
        QTest::qWait(soon + 60);
        return takeTold().count(u"wanted"_s);
    }

    static constexpr int soon = 60;
    const int usual = QApplication::doubleClickInterval();
    TreeWithList host;
    TreeView& tree = host.tree;
    ListView& list = host.list;
    TreeNodes& nodes = host.tree.nodes();
};

} // namespace

TEST_F(LabelEdit, ASecondSlowClickAsksOnce) {
    click(ofNode(2));
    EXPECT_EQ(wanted(), 1);
    click(ofNode(2), Qt::ControlModifier);
    EXPECT_EQ(wanted(), 0) << "with a key it means something else";
    click(ofNode(2));
    QTest::keyClick(&tree, Qt::Key_F2);
    EXPECT_EQ(wanted(), 1) << "the key has asked already";
}

TEST_F(LabelEdit, TheClickThatBringsTheFocusAsksForNothing) {
    click(ofItem(2));
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(wanted(), 0);
    click(ofItem(2));
    EXPECT_EQ(wanted(), 1);
    click(ofNode(2));
    EXPECT_EQ(wanted(), 0);
    click(ofNode(2));
    EXPECT_EQ(wanted(), 1);
}

TEST_F(LabelEdit, WhatComesInBetweenTakesTheSlowClickBack) {
    click(ofNode(2));
    list.setFocus();
    EXPECT_EQ(wanted(), 0);
    click(ofItem(2));
    tree.setFocus();
    EXPECT_EQ(wanted(), 0);
    click(ofNode(2));
    nodes.select(3);
    EXPECT_EQ(wanted(), 0);
    nodes.select(2);
    click(ofNode(2));
    QTest::mousePress(host.windowHandle(), Qt::LeftButton, {}, ofNode(2));
    EXPECT_EQ(wanted(), 0) << "the button is down";
    QTest::mouseRelease(host.windowHandle(), Qt::LeftButton, {}, {100, 300});
    EXPECT_EQ(wanted(), 0) << "it was let go beside the words";
}

TEST_F(LabelEdit, ADoubleClickInTheListAsksForNothing) {
    list.setFocus();
    const QSignalSpy activated(&list, &ListView::itemActivated);
    click(ofItem(2));
    takeTold();
    const QPoint at = list.viewport()->mapFrom(&host, ofItem(2));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(activated.count(), 1);
    EXPECT_FALSE(takeTold().contains(u"item 2"_s)) << "its release is no click";
    EXPECT_EQ(wanted(), 0);
    QTest::mouseDClick(list.viewport(), Qt::RightButton, {}, at);
    QTest::mouseRelease(list.viewport(), Qt::RightButton, {}, at);
    EXPECT_EQ(activated.count(), 1);
    click(ofItem(3));
    EXPECT_TRUE(takeTold().contains(u"item 3"_s));
}

TEST_F(LabelEdit, ADragThatWasGivenUpAsksForNothing) {
    tree.setDragging(true);
    QTest::mousePress(host.windowHandle(), Qt::LeftButton, {}, ofNode(2));
    QTest::mouseMove(host.windowHandle(), ofNode(3));
    ASSERT_TRUE(host.carrier.carries());
    QTest::keyClick(host.windowHandle(), Qt::Key_Escape);
    QTest::mouseMove(host.windowHandle(), ofNode(2));
    QTest::mouseRelease(host.windowHandle(), Qt::LeftButton, {}, ofNode(2));
    EXPECT_EQ(wanted(), 0);
}

TEST_F(LabelEdit, APointerThatMovesWithoutAButtonDragsNothing) {
    tree.setDragging(true);
    click(ofNode(2));
    const QPoint at = tree.viewport()->mapFrom(&host, ofNode(4));
    QMouseEvent move(QEvent::MouseMove, at, tree.viewport()->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(tree.viewport(), &move);
    EXPECT_FALSE(host.carrier.carries());
}

TEST_F(LabelEdit, F2AsksForTheSelectedEntryAloneAndWithoutOtherKeys) {
    QTest::keyClick(&tree, Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(wanted(), 0);
    nodes.select(0);
    QTest::keyClick(&tree, Qt::Key_F2);
    EXPECT_EQ(wanted(), 0);
}

TEST_F(LabelEdit, TheOwnerIsAskedAboutEntriesThatAreThere) {
    const QSignalSpy asked(&tree, &TreeView::labelEditBegins);
    EXPECT_FALSE(tree.startLabelEdit(99));
    nodes.remove(3);
    EXPECT_FALSE(tree.startLabelEdit(3));
    EXPECT_EQ(asked.count(), 0);
}

TEST_F(LabelEdit, TheOwnerWhoIsAskedMayTakeTheEntryAway) {
    QObject::connect(&tree, &TreeView::labelEditBegins, &host, [this](int node) { nodes.remove(node); });
    EXPECT_FALSE(tree.startLabelEdit(3));
    EXPECT_EQ(tree.editedNode(), 0);
    EXPECT_EQ(takeTold(), QStringList());
}

TEST_F(LabelEdit, TheOwnerWhoIsAskedMayEditAnother) {
    QObject::connect(&tree, &TreeView::labelEditBegins, &host, [this](int node) {
        if (node == 3)
            tree.startLabelEdit(4);
    });
    EXPECT_FALSE(tree.startLabelEdit(3));
    EXPECT_EQ(tree.editedNode(), 4);
    EXPECT_EQ(editorOf(tree)->text(), nodes.text(4));
}

TEST_F(LabelEdit, AnEntryThatWentIsToldOnce) {
    tree.startLabelEdit(3);
    nodes.remove(3);
    nodes.remove(4);
    EXPECT_EQ(takeTold(), QStringList{u"edited 3  cancelled"_s});
}

TEST_F(LabelEdit, AViewThatGoesTellsNothing) {
    auto* view = new TreeView;
    view->nodes().add(0, u"a"_s, u"a"_s, {}, {});
    test::showInFront(*view);
    ASSERT_TRUE(view->startLabelEdit(1));
    int told = 0;
    QObject::connect(view, &TreeView::labelEdited, &host, [&] { ++told; });
    delete view;
    auto* other = new ListView;
    other->items().add(0, u"a"_s, u"a"_s, {});
    test::showInFront(*other);
    ASSERT_TRUE(other->startLabelEdit(1));
    QObject::connect(other, &ListView::labelEdited, &host, [&] { ++told; });
    delete other;
    EXPECT_EQ(told, 0);
}

TEST_F(LabelEdit, AMenuTakesNothingFromTheEditor) {
    tree.startLabelEdit(3);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(editorOf(tree), &menu);
    EXPECT_EQ(tree.editedNode(), 3);
}

TEST_F(LabelEdit, AnotherWindowInFrontKeepsWhatWasWrittenAMomentLater) {
    tree.startLabelEdit(3);
    QTest::keyClicks(editorOf(tree), u"neuf"_s);
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(editorOf(tree), &away);
    EXPECT_EQ(tree.editedNode(), 3);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree.editedNode(), 3) << "the field has the focus again";
    QWidget other;
    test::showInFront(other);
    EVENTUALLY(tree.editedNode() == 0);
    EXPECT_EQ(nodes.text(3), u"neuf"_s);
}

TEST_F(LabelEdit, WhoTookTheFocusKeepsIt) {
    tree.startLabelEdit(3);
    list.setFocus();
    EXPECT_EQ(tree.editedNode(), 0);
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(LabelEdit, TheWordsStayWhereTheyAre) {
    list.startLabelEdit(3);
    QLineEdit& field = *editorOf(list);
    field.home(false);
    const int first = field.x() + field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().toRect().center().x();
    const int words = list.itemPlace(3).left() + 4 + list.iconSize().width() + 4;
    EXPECT_NEAR(first, words, 1);
}

TEST_F(LabelEdit, OnlyWhatCanBeOpenedOpensUnderARestingPointer) {
    tree.hover(3);
    nodes.add(2, u"dedans"_s, u"dedans"_s, {}, {});
    QTest::qWait(TreeView::hoverMilliseconds + 60);
    EXPECT_EQ(takeTold(), QStringList()) << "a leaf";
    tree.hover(2);
    nodes.clear();
    host.plant(4, 0);
    nodes.add(2, u"dedans"_s, u"dedans"_s, {}, {});
    QTest::qWait(TreeView::hoverMilliseconds + 60);
    EXPECT_FALSE(nodes.expanded(2)) << "another tree";
}

} // namespace velm
