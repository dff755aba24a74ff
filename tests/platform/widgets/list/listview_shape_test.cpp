// How a list takes the shape that its texts, its width and its type want.
#include "platform/widgets/list/listview.h"
#include "platform/widgets/list/widesttext.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"

#include <QContextMenuEvent>
#include <QScrollBar>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using Arrangement = ListView::Arrangement;

class ListViewShape : public QuietTest {
protected:
    ListViewShape() {
        list.resize(700, 300);
        test::showInFront(list);
        for (int i = 1; i <= 200; ++i)
            items.add(0, u"k%1"_s.arg(i), u"titre %1"_s.arg(i), {});
        list.doItemsLayout();
    }
    bool inSight(int item) const { return list.viewport()->rect().intersects(list.itemPlace(item)); }

    ListView list;
    ListItems& items = list.items();
};

} // namespace

TEST_F(ListViewShape, IconsShareTheWidthOfTheirRow) {
    for (const Arrangement icons : {Arrangement::LargeIcons, Arrangement::SmallIcons}) {
        list.setArrangement(icons);
        for (const int width : {700, 451, 630}) {
            list.resize(width, 300);
            QTest::qWait(20); // the scroll bar comes and goes, and all is laid out anew
            int last = 1;
            while (list.itemPlace(last + 1).y() == list.itemPlace(1).y())
                ++last;
            const int beside = list.viewport()->width() - list.itemPlace(last).right();
            EXPECT_LE(beside, last + 2) << width;
        }
    }
}

TEST_F(ListViewShape, ALongerTextWidensTheColumns) {
    const int before = list.itemPlace(1).width();
    items.setText(3, u"un titre nettement plus long"_s);
    list.doItemsLayout();
    const int after = list.itemPlace(1).width();
    EXPECT_GT(after, before);
    items.setText(3, u"x"_s);
    list.doItemsLayout();
    EXPECT_EQ(list.itemPlace(1).width(), before);
}

TEST_F(ListViewShape, NoColumnIsWiderThanWhatIsSeen) {
    items.setText(3, QString(300, u'm'));
    for (const int width : {200, 250, 300}) {
        list.resize(width, 300);
        QTest::qWait(20);
        list.doItemsLayout();
        EXPECT_LE(list.itemPlace(3).width(), list.viewport()->width()) << "its text ends in points, not at the edge";
        EXPECT_GE(list.itemPlace(3).width(), list.viewport()->width() - 2);
    }
}

TEST_F(ListViewShape, LargerTypeMakesLargerCells) {
    for (const Arrangement arrangement : {Arrangement::List, Arrangement::LargeIcons, Arrangement::SmallIcons}) {
        list.setArrangement(arrangement);
        list.setFont({});
        list.doItemsLayout();
        const QSize before = list.itemPlace(1).size();
        QFont large;
        large.setPointSizeF(large.pointSizeF() * 2);
        list.setFont(large);
        list.doItemsLayout();
        EXPECT_GT(list.itemPlace(1).height(), before.height());
    }
}

TEST_F(ListViewShape, WhatIsSelectedStaysInSightInEachArrangement) {
    items.select(150);
    for (const Arrangement arrangement : {Arrangement::LargeIcons, Arrangement::SmallIcons, Arrangement::List}) {
        list.setArrangement(arrangement);
        EXPECT_TRUE(inSight(150));
    }
    list.horizontalScrollBar()->setValue(0);
    ASSERT_FALSE(inSight(150));
    items.select(150);
    EXPECT_TRUE(inSight(150)) << "once more selected";
}

TEST_F(ListViewShape, WhatWasJustListedIsPaintedAtOnce) {
    items.setRedraw(false);
    items.clear();
    items.add(0, u"neuf"_s, u"mmmmmmmm"_s, {});
    items.setRedraw(true);
    const QImage seen = list.viewport()->grab({0, 0, 100, 20}).toImage();
    const QImage ground = list.viewport()->grab({300, 100, 100, 20}).toImage();
    EXPECT_NE(seen, ground);
}

TEST_F(ListViewShape, TheMenuIsAskedForOnceAndWhereTheSelectedOneIs) {
    items.select(3);
    const QSignalSpy asked(&list, &ListView::itemRightClicked);
    const QPoint beside(list.viewport()->width() + 50, 20);
    const QPoint global = list.viewport()->mapToGlobal(list.itemPlace(2).center());
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, list.itemPlace(2).center(), global);
    QApplication::sendEvent(list.viewport(), &byMouse);
    QMouseEvent outside(QEvent::MouseButtonRelease, beside, list.viewport()->mapToGlobal(beside), Qt::RightButton,
                        Qt::NoButton, {});
    QApplication::sendEvent(list.viewport(), &outside);
    EXPECT_EQ(asked.count(), 0) << "the release of the button asks, over the list";
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list.viewport(), &byKey);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked.at(0).at(0).toInt(), 3);
    EXPECT_EQ(asked.at(0).at(1).toPoint(), list.viewport()->mapToGlobal(list.itemPlace(3).center()));
}

TEST_F(ListViewShape, TheWidestTextIsFoundAmongThousands) {
    const QFontMetrics metrics = list.fontMetrics();
    EXPECT_EQ(widestText(items, metrics, 5000), metrics.horizontalAdvance(u"titre 188"_s));
    items.add(0, u"i"_s, QString(12, u'i'), {});
    items.add(0, u"W"_s, QString(11, u'W'), {});
    EXPECT_EQ(widestText(items, metrics, 5000), metrics.horizontalAdvance(QString(11, u'W')));
    items.clear();
    EXPECT_EQ(widestText(items, metrics, 5000), 0);
}

} // namespace velm
