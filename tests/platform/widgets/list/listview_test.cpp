#include "platform/widgets/list/listview.h"
#include "platform/widgets/look/look.h"
#include "tests/support/contrast.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"

#include <QLineEdit>
#include <QPointer>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class ListViewTest : public QuietTest {
protected:
    ListViewTest() {
        list.resize(500, 300);
        test::showInFront(list);
        list.setFocus();
        QObject::connect(&list, &ListView::itemClicked, &list, [this](int i) { told << u"clicked %1"_s.arg(i); });
        QObject::connect(&list, &ListView::itemActivated, &list, [this](int i) { told << u"activated %1"_s.arg(i); });
        QObject::connect(&list, &ListView::selectionMoved, &list, [this](int i) { told << u"moved %1"_s.arg(i); });
        QObject::connect(&list, &ListView::itemRightClicked, &list, [this](int i) { told << u"right %1"_s.arg(i); });
        QObject::connect(&list, &ListView::labelEditWanted, &list, [this](int i) { told << u"wanted %1"_s.arg(i); });
        QObject::connect(&list, &ListView::dragBegins, &list, [this](int i) { told << u"drag %1"_s.arg(i); });
        QObject::connect(&list, &ListView::labelEdited, &list, [this](int item, const QString& text, bool cancelled) {
            told << u"edited %1 %2%3"_s.arg(item).arg(text, cancelled ? u" cancelled"_s : u""_s);
        });
    }
    void fill(int count) {
        for (int i = 1; i <= count; ++i)
            items.add(0, u"k%1"_s.arg(i), u"titre %1"_s.arg(i), u"AA"_s);
        list.doItemsLayout();
    }
    QPoint pointOf(int item) const { return list.itemPlace(item).center(); }
    void click(int item, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list.viewport(), button, {}, pointOf(item));
    }
    void key(Qt::Key code) { QTest::keyClick(&list, code); }
    QLineEdit* editor() const { return list.viewport()->findChild<QLineEdit*>(); }
    QStringList takeTold() { return std::exchange(told, {}); }

    ListView list;
    ListItems& items = list.items();
    QStringList told;
};

} // namespace

TEST_F(ListViewTest, TheListFillsColumnsAndTheIconsFillRows) {
    fill(40);
    EXPECT_LT(list.itemPlace(1).y(), list.itemPlace(2).y());
    EXPECT_GT(list.itemPlace(40).x(), list.itemPlace(1).x());
    for (const auto icons : {ListView::Arrangement::LargeIcons, ListView::Arrangement::SmallIcons}) {
        list.setArrangement(icons);
        list.doItemsLayout();
        EXPECT_EQ(list.itemPlace(1).y(), list.itemPlace(2).y());
        EXPECT_LT(list.itemPlace(1).x(), list.itemPlace(2).x());
        EXPECT_GT(list.itemPlace(40).y(), list.itemPlace(1).y());
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
        EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
    }
}

TEST_F(ListViewTest, ALongTitleMakesNoColumnTooWide) {
    items.add(0, u"a"_s, u"court"_s, {});
    list.doItemsLayout();
    const int narrow = list.itemPlace(1).width();
    items.add(0, u"b"_s, QString(300, u'm'), {});
    list.doItemsLayout();
    EXPECT_GT(list.itemPlace(1).width(), narrow);
    EXPECT_LE(list.itemPlace(1).width(), list.viewport()->width()) << "one column may have all of the room";
    fill(60);
    list.doItemsLayout();
    const int scale = std::max(16, list.fontMetrics().height());
    EXPECT_LE(list.itemPlace(1).width(), ListDelegate::widestColumn * scale / 16);
}

TEST_F(ListViewTest, KeysChooseLookUpAndActivate) {
    fill(40);
    key(Qt::Key_Down);
    EXPECT_EQ(items.selected(), 1);
    key(Qt::Key_Down);
    EXPECT_EQ(items.selected(), 2);
    key(Qt::Key_End);
    EXPECT_EQ(items.selected(), 40);
    key(Qt::Key_Home);
    EXPECT_EQ(items.selected(), 1);
    key(Qt::Key_Right);
    EXPECT_GT(items.selected(), 2);
    key(Qt::Key_PageDown);
    items.select(1);
    takeTold();
    QTest::keyClicks(&list, u"titre 27"_s);
    EXPECT_EQ(items.selected(), 27);
    takeTold();
    key(Qt::Key_Return);
    EXPECT_EQ(takeTold(), QStringList{u"activated 27"_s});
}

TEST_F(ListViewTest, TheMouseChoosesActivatesAndAsksForAMenu) {
    fill(5);
    click(3);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 3"_s, u"clicked 3"_s}));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, pointOf(3));
    EXPECT_TRUE(takeTold().contains(u"activated 3"_s));
    click(2, Qt::RightButton);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 2"_s, u"right 2"_s}));
}

TEST_F(ListViewTest, WhatTheProgramDoesIsShownAndNotTold) {
    fill(5);
    items.select(4);
    EXPECT_EQ(list.currentIndex().row(), 3);
    items.add(2, u"neuf"_s, u"neuf"_s, {});
    EXPECT_EQ(list.currentIndex().row(), 4);
    items.remove(1);
    EXPECT_EQ(list.currentIndex().row(), 3);
    items.remove(4);
    EXPECT_FALSE(list.currentIndex().isValid());
    EXPECT_EQ(items.selected(), 0);
    items.setRedraw(false);
    items.clear();
    items.add(0, u"a"_s, u"a"_s, {});
    items.setRedraw(true);
    EXPECT_EQ(list.model()->rowCount(), 1);
    EXPECT_EQ(takeTold(), QStringList());
}

TEST_F(ListViewTest, FocusIsToldAndChoosesNothing) {
    fill(3);
    list.clearFocus();
    const QSignalSpy taken(&list, &ListView::focusTaken);
    list.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(taken.count(), 1);
    EXPECT_EQ(items.selected(), 0);
    EXPECT_EQ(takeTold(), QStringList());
}

TEST_F(ListViewTest, FaintEntriesCanBeRead) {
    for (const look::Theme theme : {look::Theme::Light, look::Theme::Dark}) {
        const QPalette palette = look::palette(theme);
        const QColor ground = palette.color(QPalette::Base);
        const QColor faint = ListDelegate::faintInk(palette);
        EXPECT_GE(test::contrast(faint, ground), test::words);
        EXPECT_LT(test::contrast(faint, ground), test::contrast(palette.color(QPalette::Text), ground));
    }
    fill(2);
    const QImage usual = list.viewport()->grab(list.itemPlace(1)).toImage();
    list.setFaint([](const QString& key) { return !key.isEmpty(); });
    EXPECT_NE(list.viewport()->grab(list.itemPlace(1)).toImage(), usual);
}

TEST_F(ListViewTest, LabelsAreEditedAsInATree) {
    fill(5);
    items.select(2);
    key(Qt::Key_F2);
    EXPECT_EQ(takeTold(), QStringList{u"wanted 2"_s});
    ASSERT_TRUE(list.startLabelEdit(2));
    QTest::keyClicks(editor(), u"Neuf"_s);
    QTest::keyClick(editor(), Qt::Key_Return);
    EXPECT_EQ(takeTold(), QStringList{u"edited 2 Neuf"_s});
    EXPECT_EQ(items.text(2), u"Neuf"_s);
    EXPECT_TRUE(list.hasFocus());
    list.startLabelEdit(2);
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_EQ(takeTold(), QStringList{u"edited 2 Neuf cancelled"_s});
}

TEST_F(ListViewTest, AnEditFollowsItsEntryAndGoesWithIt) {
    fill(5);
    list.startLabelEdit(3);
    items.add(1, u"neuf"_s, u"neuf"_s, {});
    EXPECT_EQ(list.editedItem(), 4);
    items.remove(1);
    EXPECT_EQ(list.editedItem(), 3);
    items.remove(3);
    EXPECT_EQ(list.editedItem(), 0);
    EXPECT_EQ(takeTold(), QStringList{u"edited 3  cancelled"_s});
}

TEST_F(ListViewTest, ASecondSlowClickAsksForAnEdit) {
    fill(5);
    click(2);
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_FALSE(takeTold().contains(u"wanted 2"_s));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.itemPlace(2).center());
    EVENTUALLY(told.contains(u"wanted 2"_s));
}

TEST_F(ListViewTest, ADragBeginsWithoutChoosingOthers) {
    fill(5);
    list.setDragging(true);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, pointOf(2));
    takeTold();
    QMouseEvent move(QEvent::MouseMove, pointOf(4), list.viewport()->mapToGlobal(pointOf(4)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(list.viewport(), &move);
    EXPECT_EQ(takeTold(), QStringList{u"drag 2"_s});
    EXPECT_EQ(items.selected(), 2);
}

TEST_F(ListViewTest, FiveThousandEntriesAreListedInEachArrangement) {
    for (const auto arrangement :
         {ListView::Arrangement::List, ListView::Arrangement::LargeIcons, ListView::Arrangement::SmallIcons}) {
        list.setArrangement(arrangement);
        items.clear();
        items.setRedraw(false);
        for (int i = 1; i <= 5000; ++i)
            items.add(0, u"AA%1"_s.arg(i), u"Un article de longueur moyenne, numéro %1"_s.arg(i), u"AA"_s);
        items.setRedraw(true);
        list.grab();
        EXPECT_GT(list.horizontalScrollBar()->maximum() + list.verticalScrollBar()->maximum(), 1000);
    }
}

TEST_F(ListViewTest, EditorsSurviveWhateverHappensToTheList) {
    QRandomGenerator random(14);
    QPointer<ListView> other;
    for (int step = 0; step < 4000; ++step) {
        if (!other) {
            other = new ListView;
            other->show();
        }
        ListItems& some = other->items();
        const int item = random.bounded(some.count() + 2);
        switch (random.bounded(11)) {
        case 0:
            if (random.bounded(20) == 0)
                delete other;
            break;
        case 1:
            if (random.bounded(10) == 0)
                some.clear();
            break;
        case 2:
            some.remove(item);
            break;
        case 3:
            some.setRedraw(random.bounded(3) != 0);
            break;
        case 4:
        case 5:
            some.add(item, QString::number(step), u"n"_s, {});
            break;
        case 6:
            other->setArrangement(static_cast<ListView::Arrangement>(random.bounded(3)));
            break;
        case 7:
            other->endLabelEdit(random.bounded(2) == 0);
            break;
        case 8:
            QCoreApplication::processEvents();
            break;
        case 9:
            some.select(item);
            break;
        default:
            other->startLabelEdit(item);
        }
        if (other && other->items().redraw())
            EXPECT_EQ(other->items().selected(), other->currentIndex().row() + 1);
    }
    delete other;
}

} // namespace velm
