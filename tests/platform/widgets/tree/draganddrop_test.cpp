#include "platform/widgets/list/listview.h"
#include "platform/widgets/look/carrier.h"
#include "platform/widgets/tree/treeview.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"

#include <QLineEdit>
#include <QPointer>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A tree and a list beside it: entries of both hang on the pointer and come to nodes of the tree, but the first.
class TreeWithList : public QWidget {
public:
    TreeWithList() {
        resize(640, 400);
        tree.setGeometry(10, 10, 250, 380);
        list.setGeometry(270, 10, 360, 380);
        tree.setDragging(true);
        list.setDragging(true);
        connect(&tree, &TreeView::dragBegins, this, [this](int node) { carry(tree.nodes().text(node)); });
        connect(&list, &ListView::dragBegins, this, [this](int item) { carry(list.items().text(item)); });
        connect(&carrier, &Carrier::over, this, [this](QWidget* under, const QPoint& at) { over(under, at); });
        connect(&carrier, &Carrier::dropped, this, [this](QWidget* under, const QPoint& at) {
            told << u"%1 on %2"_s.arg(carried).arg(nodeUnder(under, at));
            end();
        });
        connect(&carrier, &Carrier::cancelled, this, [this] {
            told << u"cancelled"_s;
            end();
        });
        connect(&tree, &TreeView::nodeClicked, this, [this](int node) { told << u"node %1"_s.arg(node); });
        connect(&list, &ListView::itemClicked, this, [this](int item) { told << u"item %1"_s.arg(item); });
        connect(&tree, &TreeView::labelEditWanted, this, [this] { told << u"wanted"_s; });
        connect(&list, &ListView::labelEditWanted, this, [this] { told << u"wanted"_s; });
        connect(&tree, &TreeView::expanding, this, [this](int node) { told << u"expanding %1"_s.arg(node); });
    }
    ~TreeWithList() override { carrier.finish(); }
    void plant(int branches, int items) {
        tree.nodes().add(0, u"r"_s, u"racine"_s, {}, {});
        for (int i = 2; i <= branches + 1; ++i)
            tree.nodes().add(1, u"b%1"_s.arg(i), u"branche %1"_s.arg(i), {}, {});
        tree.nodes().setExpanded(1, true);
        for (int i = 1; i <= items; ++i)
            list.items().add(0, u"e%1"_s.arg(i), u"article %1"_s.arg(i), {});
    }
    void carry(const QString& label) {
        carried = label;
        carrier.carry(this, QIcon(), label, mode);
    }
    int nodeUnder(const QWidget* under, const QPoint& at) const {
        return under == tree.viewport() ? tree.nodeAt(tree.viewport()->mapFromGlobal(at)) : 0;
    }
    void over(const QWidget* under, const QPoint& at) {
        const int node = nodeUnder(under, at);
        carrier.setAllowed(node > 1);
        tree.setDropTarget(node > 1 ? node : 0);
        tree.hover(node);
        if (under == tree.viewport())
            tree.scrollNear(tree.viewport()->mapFromGlobal(at));
    }
    void end() {
        tree.setDropTarget(0);
        tree.hover(0);
    }

    TreeView tree{this};
    ListView list{this};
    Carrier carrier;
    Carrier::Mode mode = Carrier::Mode::UntilRelease;
    QString carried;
    QStringList told;
};

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

namespace {

/// What can happen to a window in which somebody edits labels and carries entries.
class Storm {
public:
    explicit Storm(unsigned seed) : random_(seed) {}
    ~Storm() { delete host_.data(); }
    void step() {
        if (!host_)
            open();
        (this->*deeds()[static_cast<std::size_t>(random_.bounded(static_cast<int>(deeds().size())))])();
    }
    TreeWithList* host() const { return host_; }

private:
    using Deed = void (Storm::*)();
    static const std::vector<Deed>& deeds() {
        static const std::vector<Deed> all{&Storm::goes,    &Storm::hides,   &Storm::resizes, &Storm::refills,
                                           &Storm::removes, &Storm::edits,   &Storm::edits,   &Storm::types,
                                           &Storm::ends,    &Storm::presses, &Storm::presses, &Storm::moves,
                                           &Storm::moves,   &Storm::moves,   &Storm::lets,    &Storm::lives,
                                           &Storm::carries, &Storm::lives,   &Storm::moves,   &Storm::arranges};
        return all;
    }
    int any(int count) { return random_.bounded(count + 2); }
    bool rarely(int times) { return random_.bounded(times) == 0; }
    QPoint somewhere() { return {random_.bounded(640), random_.bounded(400)}; }
    void open() {
        host_ = new TreeWithList;
        refills();
        host_->show();
        // Its owners do more than hear of it.
        QObject::connect(&host_->tree, &TreeView::labelEdited, host_, [this] { afterwards(); });
        QObject::connect(&host_->list, &ListView::labelEdited, host_, [this] { afterwards(); });
        QObject::connect(&host_->carrier, &Carrier::dropped, host_, [this] { afterwards(); });
    }
    void afterwards() {
        if (rarely(6))
            host_->tree.nodes().remove(any(host_->tree.nodes().count()));
        if (rarely(6))
            refills();
        if (rarely(6))
            edits();
    }
    void goes() {
        if (rarely(40))
            delete host_.data();
    }
    void hides() { host_->setVisible(!rarely(5)); }
    void resizes() { host_->tree.resize(random_.bounded(1, 300), random_.bounded(1, 380)); }
    void refills() {
        if (!rarely(8) && host_->list.items().count() > 0)
            return;
        host_->list.items().setRedraw(rarely(2));
        host_->list.items().clear();
        host_->tree.nodes().clear();
        host_->plant(random_.bounded(1, 30), random_.bounded(30));
        host_->list.items().setRedraw(true);
    }
    void removes() {
        host_->tree.nodes().remove(any(host_->tree.nodes().count()));
        host_->list.items().remove(any(host_->list.items().count()));
        host_->tree.nodes().setExpanded(1, !rarely(3));
    }
    void edits() {
        if (rarely(2))
            host_->tree.startLabelEdit(any(host_->tree.nodes().count()));
        else
            host_->list.startLabelEdit(any(host_->list.items().count()));
    }
    void types() {
        constexpr std::array keys{Qt::Key_A, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Down};
        if (host_->isVisible())
            QTest::keyClick(host_->windowHandle(), keys.at(static_cast<std::size_t>(random_.bounded(6))));
    }
    void ends() {
        host_->tree.endLabelEdit(rarely(2));
        host_->list.endLabelEdit(rarely(2));
    }
    void presses() {
        if (host_->isVisible())
            QTest::mousePress(host_->windowHandle(), Qt::LeftButton, {}, somewhere());
    }
    void moves() {
        if (host_->isVisible())
            QTest::mouseMove(host_->windowHandle(), somewhere());
    }
    void lets() {
        if (host_->isVisible())
            QTest::mouseRelease(host_->windowHandle(), Qt::LeftButton, {}, somewhere());
    }
    void carries() {
        host_->mode = rarely(2) ? Carrier::Mode::UntilClick : Carrier::Mode::UntilRelease;
        if (rarely(3))
            host_->carry(u"x"_s);
    }
    void arranges() { host_->list.setArrangement(static_cast<ListArrangement>(random_.bounded(3))); }
    void lives() { QCoreApplication::processEvents(); }

    QRandomGenerator random_;
    QPointer<TreeWithList> host_;
};

/// What must be so at every moment.
void expectSound(TreeWithList& host) {
    const auto stands = [](int which, bool there) { return which == 0 || there; };
    TreeView& tree = host.tree;
    EXPECT_TRUE(stands(tree.editedNode(), tree.nodes().contains(tree.editedNode())));
    EXPECT_TRUE(stands(tree.dropTarget(), tree.nodes().contains(tree.dropTarget())));
    EXPECT_TRUE(stands(host.list.editedItem(), host.list.items().contains(host.list.editedItem())));
    EXPECT_EQ(host.list.items().selected(), host.list.currentIndex().row() + 1);
    EXPECT_EQ(host.carrier.carries(), host.carrier.picture() != nullptr);
    for (const QWidget* const viewport : {tree.viewport(), host.list.viewport()}) {
        const auto* field = viewport->findChild<QLineEdit*>();
        const int edited = viewport == tree.viewport() ? tree.editedNode() : host.list.editedItem();
        EXPECT_EQ(!field->isHidden(), edited != 0);
    }
}

} // namespace

TEST_F(DragAndDrop, NothingThatHappensToTheWindowBreaksAnEditOrADrag) {
    for (const unsigned seed : {21U, 22U, 23U}) {
        Storm storm(seed);
        for (int step = 0; step < 1500 && !HasFailure(); ++step) {
            storm.step();
            if (storm.host())
                expectSound(*storm.host());
        }
    }
}

} // namespace velm
