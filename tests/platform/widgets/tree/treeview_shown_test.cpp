// What a tree shows beside the selection: a marked node, shortened texts, room for what lies deep.
#include "platform/widgets/look/look.h"
#include "tests/support/contrast.h"
#include "treefixture.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class TreeViewShown : public TreeTest {
protected:
    /// Fifty children of one root, which is open.
    void plantMany() {
        nodes.setRedraw(false);
        add(0, u"racine"_s);
        for (int i = 0; i < 50; ++i)
            add(1, u"branche %1"_s.arg(i));
        nodes.setExpanded(1, true);
        nodes.setRedraw(true);
    }
    /// The ground at the right end of a node's row, where no text is.
    QColor groundOf(int node) {
        const QImage image = tree.viewport()->grab().toImage();
        return image.pixelColor(image.width() - 3, rectOf(node).center().y());
    }
    int weightOf(int node) const { return tree.indexOf(node).data(Qt::FontRole).value<QFont>().weight(); }
    QString tipOf(int node) {
        QHelpEvent help(QEvent::ToolTip, pointOf(node), tree.viewport()->mapToGlobal(pointOf(node)));
        QApplication::sendEvent(tree.viewport(), &help);
        return QToolTip::text();
    }
};

} // namespace

TEST_F(TreeViewShown, AMarkedNodeIsHeavierOnAGroundOfItsOwnAndNotSelected) {
    plant();
    nodes.setExpanded(1, true);
    nodes.select(2);
    const QColor plain = groundOf(3);
    tree.setMarked(3);
    EXPECT_EQ(tree.marked(), 3);
    EXPECT_NE(groundOf(3), plain);
    EXPECT_EQ(weightOf(3), QFont::DemiBold);
    EXPECT_FALSE(tree.indexOf(2).data(Qt::FontRole).isValid());
    EXPECT_EQ(nodes.selected(), 2);
    EXPECT_EQ(tree.currentIndex(), tree.indexOf(2));
    tree.setMarked(0);
    EXPECT_EQ(groundOf(3), plain);
    EXPECT_FALSE(tree.indexOf(3).data(Qt::FontRole).isValid());
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewShown, AMarkedNodeStandsInTheAccentsInkWhichIsLegibleOnItsTint) {
    plant();
    nodes.setExpanded(1, true);
    for (const look::Theme theme : {look::Theme::Light, look::Theme::Dark}) {
        tree.setPalette(look::palette(theme));
        tree.setMarked(3);
        EXPECT_EQ(groundOf(3), look::chosenGround(tree.palette()));
        const QColor ink = look::accentColour(theme);
        EXPECT_GE(test::contrast(ink, groundOf(3)), test::words);
        const QImage row = tree.viewport()->grab(rectOf(3)).toImage();
        int inked = 0;
        for (int y = 0; y < row.height(); ++y) {
            for (int x = 0; x < row.width(); ++x)
                inked += test::contrast(row.pixelColor(x, y), ink) < 1.2 ? 1 : 0;
        }
        EXPECT_GT(inked, 10);
    }
}

TEST_F(TreeViewShown, AMarkedNodeThatIsSeenStaysInSightInALowerTree) {
    plantMany();
    const int high = tree.height();
    const int marked = tree.nodeOf(tree.indexAt({10, tree.viewport()->height() - 30}));
    const auto seen = [&] { return tree.viewport()->rect().contains(rectOf(marked).center()); };
    tree.setMarked(marked);
    ASSERT_TRUE(seen());
    tree.resize(tree.width(), high / 2);
    EXPECT_TRUE(seen());
    tree.verticalScrollBar()->setValue(tree.verticalScrollBar()->maximum());
    tree.resize(tree.width(), high / 3);
    EXPECT_FALSE(seen()) << "who has scrolled it away does not want it";
}

TEST_F(TreeViewShown, AMarkedNodeThatIsSelectedLooksSelected) {
    plant();
    nodes.select(1);
    const QColor selected = groundOf(1);
    tree.setMarked(1);
    EXPECT_EQ(groundOf(1), selected);
}

TEST_F(TreeViewShown, TheMarkGoesWithTheNodesAndNeverStandsOnNone) {
    plant();
    tree.setMarked(99);
    EXPECT_EQ(tree.marked(), 0);
    tree.setMarked(2);
    nodes.clear();
    EXPECT_EQ(tree.marked(), 0);
    plant();
    EXPECT_FALSE(tree.indexOf(2).data(Qt::FontRole).isValid());
}

TEST_F(TreeViewShown, AShortenedTextHasTheWholeInItsTipAndForThoseWhoCannotSee) {
    plant();
    nodes.setExpanded(1, true);
    tree.setShownText([this](int node) { return node == 2 ? u"court"_s : nodes.text(node); });
    EXPECT_EQ(tree.indexOf(2).data().toString(), u"court");
    EXPECT_EQ(nodes.text(2), u"A");
    EXPECT_EQ(tipOf(2), u"A");
    tipOf(3);
    EVENTUALLY(!QToolTip::isVisible());
    EXPECT_EQ(tree.indexOf(2).data(Qt::AccessibleTextRole).toString(), u"A");
}

TEST_F(TreeViewShown, TextsAreCutAtTheirRightEndAndNothingLiesBesideTheView) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setText(2, u"Un titre très long qui ne tient jamais dans la largeur du volet, quoi qu’on fasse"_s);
    EXPECT_EQ(tree.textElideMode(), Qt::ElideRight);
    tree.resize(150, 300);
    tree.grab();
    EXPECT_EQ(tree.horizontalScrollBar()->maximum(), 0);
    EXPECT_FALSE(tree.horizontalScrollBar()->isVisible());
}

TEST_F(TreeViewShown, ANodeOutOfSightComesToStandInTheMiddle) {
    plantMany();
    tree.bringIntoSight(40);
    const int middle = tree.viewport()->height() / 2;
    EXPECT_NEAR(pointOf(40).y(), middle, rectOf(40).height());
    const int scrolled = tree.verticalScrollBar()->value();
    tree.bringIntoSight(42);
    EXPECT_EQ(tree.verticalScrollBar()->value(), scrolled) << "it was in sight";
    nodes.setExpanded(1, false);
    tree.bringIntoSight(20);
    EXPECT_TRUE(tree.viewport()->rect().contains(pointOf(20))) << "what lies above it opens";
    tree.bringIntoSight(0);
    tree.bringIntoSight(99);
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewShown, ANodeHalfInSightCountsAsOutOfSight) {
    plantMany();
    tree.verticalScrollBar()->setValue(rectOf(2).height() * 5 / 2);
    const int half = tree.nodeOf(tree.indexAt({60, 1}));
    ASSERT_LT(rectOf(half).top(), 0);
    tree.bringIntoSight(half);
    EXPECT_GE(rectOf(half).top(), 0);
}

} // namespace velm
