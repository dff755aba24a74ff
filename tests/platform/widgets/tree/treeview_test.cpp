#include "treefixture.h"

#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QIcon plain(Qt::GlobalColor colour) {
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

using TreeViewTest = TreeTest;

} // namespace

TEST_F(TreeViewTest, APictureKeepsItsColoursOnTheGreyOfASelectionWithoutFocus) {
    tree.setImages([](const QString&) { return plain(Qt::red); });
    plant();
    nodes.select(1);
    const auto reds = [this] {
        const QImage row = tree.viewport()->grab(rectOf(1)).toImage();
        int count = 0;
        for (int y = 0; y < row.height(); ++y) {
            for (int x = 0; x < row.width(); ++x)
                count += row.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(reds(), 0) << "with the focus it takes the tint of the selection";
    tree.clearFocus();
    EXPECT_EQ(reds(), tree.iconSize().width() * tree.iconSize().height());
}

TEST_F(TreeViewTest, ReturnIsToldApartFromADoubleClick) {
    plant();
    const QSignalSpy returned(&tree, &TreeView::nodeReturned);
    clickTwice(1);
    EXPECT_EQ(returned.count(), 0);
    key(Qt::Key_Return);
    ASSERT_EQ(returned.count(), 1);
    EXPECT_EQ(returned.at(0).at(0).toInt(), 1);
}

TEST_F(TreeViewTest, NodesStandBelowTheirParents) {
    plant();
    const QAbstractItemModel& model = *tree.model();
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.rowCount(tree.indexOf(1)), 2);
    EXPECT_EQ(tree.indexOf(5).parent(), tree.indexOf(2));
    EXPECT_EQ(tree.indexOf(5).row(), 1);
    EXPECT_EQ(tree.indexOf(5).data().toString(), u"A2"_s);
    EXPECT_TRUE(model.hasChildren(tree.indexOf(3)));
    EXPECT_FALSE(model.hasChildren(tree.indexOf(6)));
    EXPECT_EQ(tree.nodeOf(tree.indexOf(4)), 4);
    EXPECT_EQ(tree.nodeOf({}), 0);
    EXPECT_FALSE(tree.indexOf(0).isValid());
    EXPECT_FALSE(tree.indexOf(7).isValid());
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, WhatTheUserOpensIsToldBeforeItsChildrenArePainted) {
    plant();
    QObject::connect(&tree, &TreeView::expanding, &tree, [this](int node) {
        if (node == 1)
            add(1, u"C"_s);
    });
    click(signOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"expanding 1"_s});
    EXPECT_TRUE(nodes.expanded(1));
    EXPECT_TRUE(shown(2));
    EXPECT_TRUE(shown(7));
    click(signOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"collapsed 1"_s});
    EXPECT_FALSE(nodes.expanded(1));
    EXPECT_FALSE(shown(2));
}

TEST_F(TreeViewTest, WhatTheProgramDoesIsShownAndNotTold) {
    plant();
    nodes.setExpanded(1, true);
    EXPECT_TRUE(tree.isExpanded(tree.indexOf(1)));
    nodes.select(6);
    EXPECT_EQ(tree.currentIndex(), tree.indexOf(6));
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.indexOf(6)));
    EXPECT_TRUE(shown(6)) << "what lies above a selected node is open";
    EXPECT_TRUE(nodes.expanded(3));
    nodes.setExpanded(1, false);
    EXPECT_FALSE(shown(3));
    nodes.select(0);
    EXPECT_FALSE(tree.currentIndex().isValid());
    nodes.setText(2, u"autre"_s);
    EXPECT_EQ(tree.indexOf(2).data().toString(), u"autre"_s);
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, ASelectionBeforeTheTreeIsShownOpensNothingLater) {
    tree.hide();
    plant();
    nodes.select(6);
    tree.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    EXPECT_TRUE(shown(6));
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, AClickOnALeafIsToldAndAClickOnASignIsNot) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setExpanded(3, true);
    click(pointOf(6));
    EXPECT_EQ(takeTold(), (QStringList{u"moved 6"_s, u"clicked 6"_s}));
    EXPECT_EQ(nodes.selected(), 6);
    click(pointOf(6));
    EXPECT_EQ(takeTold(), QStringList{u"clicked 6"_s});
    click(signOf(2));
    EXPECT_EQ(takeTold(), QStringList{u"expanding 2"_s});
}

TEST_F(TreeViewTest, ADoubleClickTogglesABranchAndActivates) {
    plant();
    clickTwice(1);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 1"_s, u"clicked 1"_s, u"activated 1"_s, u"expanding 1"_s}));
    clickTwice(1);
    EXPECT_EQ(takeTold(), (QStringList{u"clicked 1"_s, u"activated 1"_s, u"collapsed 1"_s}));
    click(pointOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"clicked 1"_s});
}

TEST_F(TreeViewTest, ARightClickSelectsAndAsks) {
    plant();
    nodes.setExpanded(1, true);
    click(pointOf(3), Qt::RightButton);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 3"_s, u"right 3"_s}));
    click({100, 380}, Qt::RightButton);
    EXPECT_EQ(takeTold().last(), u"right 0"_s);
    nodes.select(2);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {1, 1}, {1, 1});
    QApplication::sendEvent(tree.viewport(), &menu);
    EXPECT_EQ(takeTold(), QStringList{u"right 2"_s});
}

TEST_F(TreeViewTest, TheKeyboardMovesOpensAndActivates) {
    plant();
    EXPECT_EQ(takeTold(), QStringList());
    key(Qt::Key_Down);
    EXPECT_EQ(takeTold(), QStringList{u"moved 1"_s});
    key(Qt::Key_Plus);
    EXPECT_EQ(takeTold(), QStringList{u"expanding 1"_s});
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 2"_s, u"expanding 2"_s}));
    key(Qt::Key_End);
    EXPECT_EQ(takeTold(), QStringList{u"moved 3"_s});
    key(Qt::Key_Return);
    EXPECT_EQ(takeTold(), QStringList{u"activated 3"_s});
    key(Qt::Key_Home);
    key(Qt::Key_Minus);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 1"_s, u"collapsed 1"_s}));
    EXPECT_EQ(nodes.selected(), 1);
}

TEST_F(TreeViewTest, ClosingABranchTakesTheCurrentNodeAlong) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setExpanded(2, true);
    nodes.select(5);
    click(signOf(1));
    EXPECT_EQ(takeTold(), (QStringList{u"moved 1"_s, u"collapsed 1"_s}));
    EXPECT_EQ(nodes.selected(), 1);
}

TEST_F(TreeViewTest, TheOpenPictureShowsWhileANodeIsOpen) {
    QStringList asked;
    tree.setImages([&](const QString& name) {
        asked.append(name);
        return name == u"fermé"_s ? plain(Qt::red) : name == u"ouvert"_s ? plain(Qt::green) : QIcon();
    });
    plant();
    const auto picture = [this](int node) {
        const auto icon = tree.indexOf(node).data(Qt::DecorationRole).value<QIcon>();
        return icon.isNull() ? QColor() : icon.pixmap(16).toImage().pixelColor(8, 8);
    };
    EXPECT_EQ(picture(1), QColor(Qt::red));
    nodes.setExpanded(1, true);
    EXPECT_EQ(picture(1), QColor(Qt::green));
    click(signOf(1));
    EXPECT_EQ(picture(1), QColor(Qt::red));
    nodes.setImages(1, u"inconnu"_s, {});
    EXPECT_EQ(picture(1), QColor());
    picture(2);
    picture(3);
    EXPECT_EQ(asked.count(u"fermé"_s), 1);
}

TEST_F(TreeViewTest, OnlyATextThatDoesNotFitHasATip) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setText(2, u"Un titre <b>très</b> long qui ne tient jamais dans la largeur du volet"_s);
    const auto tip = [this](int node) {
        QHelpEvent help(QEvent::ToolTip, pointOf(node), tree.viewport()->mapToGlobal(pointOf(node)));
        QApplication::sendEvent(tree.viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_TRUE(tip(2).contains(u"&lt;b&gt;très&lt;/b&gt; long"_s));
    tip(3);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(TreeViewTest, TheEndThatIsKeptIsSeenBehindATextThatIsCut) {
    add(0, u"seul"_s);
    const auto painted = [this](const QString& end) {
        nodes.setText(1, QString(90, u'm') + end);
        return tree.grab().toImage();
    };
    const QImage one = painted(u" [1]"_s);
    EXPECT_EQ(painted(u" [2]"_s), one) << "it is cut like all else";
    tree.setKeptEnd([](const QString&) { return qsizetype(4); });
    const QImage kept = painted(u" [1]"_s);
    EXPECT_NE(painted(u" [2]"_s), kept);
    EXPECT_NE(painted(u""_s), kept);
    EXPECT_EQ(nodes.text(1), QString(90, u'm')) << "drawn only";
    nodes.setText(1, u"mm [1]"_s);
    const QImage fits = tree.grab().toImage();
    tree.setKeptEnd({});
    EXPECT_EQ(tree.grab().toImage(), fits) << "what fits is not cut";
    QHelpEvent help(QEvent::ToolTip, pointOf(1), tree.viewport()->mapToGlobal(pointOf(1)));
    nodes.setText(1, QString(90, u'm') + u" [7]"_s);
    tree.setKeptEnd([](const QString&) { return qsizetype(4); });
    QApplication::sendEvent(tree.viewport(), &help);
    EXPECT_TRUE(QToolTip::text().contains(u" [7]"_s));
}

TEST_F(TreeViewTest, ToolsForPeopleWhoCannotSeeReadNodes) {
    plant();
    nodes.setExpanded(1, true);
    tree.grab();
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&tree);
    ASSERT_TRUE(view && view->tableInterface());
    EXPECT_EQ(view->tableInterface()->cellAt(2, 0)->text(QAccessible::Name), u"B"_s);
}

TEST_F(TreeViewTest, DeepTextsKeepSomeRoom) {
    tree.resize(120, 300);
    int node = 0;
    for (int level = 0; level < 12; ++level) {
        node = add(node, QString::number(level));
        nodes.setExpanded(nodes.parent(node), true);
    }
    tree.ensureVisible(node);
    EXPECT_GT(rectOf(node).width(), 60);
    EXPECT_EQ(tree.header()->sectionSize(0), tree.viewport()->width()) << "steps are small rather than out of sight";
    const int small = tree.indentation();
    tree.resize(500, 300);
    EXPECT_GT(tree.indentation(), small);
    nodes.clear();
    add(0, u"seul"_s);
    tree.resize(300, 300);
    EXPECT_GT(tree.indentation(), small);
}

} // namespace velm
