// The list as keys, helps and those who cannot see it meet it, in each arrangement.
#include "platform/widgets/list/listview.h"
#include "tests/support/contrast.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using Arrangement = ListView::Arrangement;
constexpr std::array arrangements{Arrangement::List, Arrangement::LargeIcons, Arrangement::SmallIcons};

/// The owner of the list, who has the keys first.
class KeyWatch : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress)
            keys << static_cast<QKeyEvent*>(event)->key();
        return false;
    }
    QList<int> keys;
};

class ListViewHands : public QuietTest {
protected:
    ListViewHands() {
        list.resize(500, 300);
        test::showInFront(list);
        list.setFocus();
        fill(100);
    }
    ~ListViewHands() override { QToolTip::hideText(); }
    void fill(int count) {
        for (int i = 1; i <= count; ++i)
            items.add(0, u"k%1"_s.arg(i), u"titre %1"_s.arg(i), {});
        list.doItemsLayout();
    }
    void arrange(Arrangement arrangement) {
        list.setArrangement(arrangement);
        list.doItemsLayout();
        items.select(1);
    }
    int after(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(&list, key, with);
        EXPECT_EQ(list.selectionModel()->selectedIndexes(), QModelIndexList{list.currentIndex()})
            << "the one that is current looks selected, and no other";
        return items.selected();
    }
    /// How many entries stand in the first line of the flow: a column of the list, a row of icons.
    int line() const {
        int count = 1;
        const bool columns = list.arrangement() == Arrangement::List;
        while (columns ? list.itemPlace(count + 1).x() == list.itemPlace(1).x()
                       : list.itemPlace(count + 1).y() == list.itemPlace(1).y())
            ++count;
        return count;
    }
    /// But for the last pixel of its margin.
    bool inSight(int item) const {
        return list.viewport()->rect().contains(list.itemPlace(item).adjusted(1, 1, -1, -1));
    }
    QString tipAt(const QPoint& at) {
        QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
        QApplication::sendEvent(list.viewport(), &help);
        return QToolTip::text();
    }
    QLineEdit* editor() const { return list.viewport()->findChild<QLineEdit*>(); }

    ListView list;
    ListItems& items = list.items();
};

} // namespace

TEST_F(ListViewHands, ArrowsGoWhereTheyPointInEachArrangement) {
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        const bool columns = arrangement == Arrangement::List;
        const int along = line();
        ASSERT_GT(along, 1);
        EXPECT_EQ(after(columns ? Qt::Key_Down : Qt::Key_Right), 2);
        EXPECT_EQ(after(columns ? Qt::Key_Right : Qt::Key_Down), 2 + along);
        EXPECT_EQ(after(columns ? Qt::Key_Up : Qt::Key_Left), 1 + along);
        EXPECT_EQ(after(columns ? Qt::Key_Left : Qt::Key_Up), 1);
        EXPECT_EQ(after(columns ? Qt::Key_Up : Qt::Key_Left), 1) << "it is the first";
    }
}

TEST_F(ListViewHands, HomeEndAndPagesGoFarAndComeIntoSight) {
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        EXPECT_EQ(after(Qt::Key_End), 100);
        EXPECT_TRUE(inSight(100));
        EXPECT_EQ(after(Qt::Key_Home), 1);
        EXPECT_TRUE(inSight(1));
        const int page = after(Qt::Key_PageDown);
        EXPECT_GT(page, 1);
        EXPECT_TRUE(inSight(page));
        int last = page;
        for (int i = 0; i < 100 && last != 100; ++i) {
            const int next = after(Qt::Key_PageDown);
            if (next == last)
                break;
            EXPECT_GT(next, last);
            last = next;
        }
        EXPECT_LT(after(Qt::Key_PageUp), last);
    }
}

TEST_F(ListViewHands, OneEntryAtMostIsSelectedWhateverTheKeys) {
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        EXPECT_EQ(after(Qt::Key_A, Qt::ControlModifier), 1);
        EXPECT_EQ(after(Qt::Key_Space, Qt::ControlModifier), 1);
        EXPECT_EQ(after(Qt::Key_Space), 1);
        const int next = after(arrangement == Arrangement::List ? Qt::Key_Down : Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(next, 2);
        EXPECT_EQ(after(Qt::Key_End, Qt::ShiftModifier), 100);
        items.select(2);
        for (const Qt::KeyboardModifier with : {Qt::ControlModifier, Qt::ShiftModifier}) {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, with, list.itemPlace(2).center());
            EXPECT_EQ(list.selectionModel()->selectedIndexes(), QModelIndexList{list.currentIndex()});
            QTest::mouseClick(list.viewport(), Qt::LeftButton, with, list.itemPlace(4).center());
            EXPECT_EQ(items.selected(), 4);
            items.select(2);
        }
    }
}

TEST_F(ListViewHands, AClickBesideAllEntriesLeavesTheSelection) {
    items.clear();
    fill(3);
    items.select(2);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {480, 200});
    EXPECT_EQ(items.selected(), 2);
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(1, 0)));
}

TEST_F(ListViewHands, TheOwnerHasTheKeysOfTheListAndNoneOfTheEditor) {
    KeyWatch owner;
    list.installEventFilter(&owner);
    items.select(2);
    QTest::keyClick(&list, Qt::Key_Delete);
    QTest::keyClick(&list, Qt::Key_Insert);
    EXPECT_EQ(owner.keys, (QList<int>{Qt::Key_Delete, Qt::Key_Insert}));
    EXPECT_EQ(items.count(), 100);
    owner.keys.clear();
    ASSERT_TRUE(list.startLabelEdit(2));
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_F2})
        QTest::keyClick(editor(), key);
    QTest::keyClick(editor(), Qt::Key_Return);
    EXPECT_TRUE(owner.keys.isEmpty());
    EXPECT_EQ(items.selected(), 2);
}

TEST_F(ListViewHands, TheEditorLiesOnTheWordsInEachArrangement) {
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        ASSERT_TRUE(list.startLabelEdit(1));
        const QRect cell = list.itemPlace(1);
        EXPECT_TRUE(cell.adjusted(0, 0, 0, 4).contains(editor()->geometry().center()));
        if (arrangement == Arrangement::LargeIcons)
            EXPECT_NEAR(editor()->geometry().center().x(), cell.center().x(), 1);
        QTest::keyClick(editor(), Qt::Key_Escape);
        ASSERT_TRUE(list.startLabelEdit(100)) << "it is brought into sight";
        EXPECT_TRUE(list.viewport()->rect().intersects(editor()->geometry()));
        QTest::keyClick(editor(), Qt::Key_Escape);
    }
}

TEST_F(ListViewHands, TheEditorFollowsItsEntryWhenTheListScrollsOrIsArrangedAnew) {
    arrange(Arrangement::SmallIcons);
    ASSERT_TRUE(list.startLabelEdit(8));
    const int beside = editor()->y() - list.itemPlace(8).y();
    list.verticalScrollBar()->setValue(30);
    EXPECT_EQ(editor()->y() - list.itemPlace(8).y(), beside);
    list.resize(300, 300);
    list.doItemsLayout();
    EXPECT_EQ(editor()->y() - list.itemPlace(8).y(), beside);
    EXPECT_EQ(list.editedItem(), 8);
    list.setArrangement(Arrangement::LargeIcons);
    list.doItemsLayout();
    EXPECT_EQ(list.editedItem(), 8);
    EXPECT_TRUE(list.itemPlace(8).intersects(editor()->geometry()));
}

TEST_F(ListViewHands, NothingOfTheOldWordsIsSeenBesideTheEditor) {
    items.setText(2, u"un long libellé en deux lignes"_s);
    const QColor ground = list.palette().color(QPalette::Base);
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        // Where the words stand, without the field.
        const auto inked = [&] {
            const QRect cell = list.itemPlace(2);
            const bool large = arrangement == Arrangement::LargeIcons;
            const QRect words = large ? cell.adjusted(0, 45, 0, 0) : cell.adjusted(30, 0, 0, 0);
            QImage seen = list.viewport()->grab(words).toImage();
            QPainter painter(&seen);
            if (list.editedItem() != 0)
                painter.fillRect(editor()->geometry().translated(-words.topLeft()), ground);
            return test::contrast(seen, ground) > 2;
        };
        EXPECT_TRUE(inked());
        ASSERT_TRUE(list.startLabelEdit(2));
        QTest::keyClicks(editor(), u"i"_s);
        EXPECT_FALSE(inked());
        list.endLabelEdit(false);
        EXPECT_TRUE(inked());
    }
}

TEST_F(ListViewHands, TheWheelScrollsEachArrangement) {
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        const QScrollBar& bar =
            arrangement == Arrangement::List ? *list.horizontalScrollBar() : *list.verticalScrollBar();
        ASSERT_GT(bar.maximum(), 0);
        QWheelEvent wheel({50, 50}, list.viewport()->mapToGlobal(QPoint(50, 50)), {}, {0, -240}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(list.viewport(), &wheel);
        EXPECT_GT(bar.value(), 0);
    }
}

TEST_F(ListViewHands, TheTipTellsWhatIsCutOrWhatTheOwnerSays) {
    const QString longest = u"Article L. 121-2 sur "_s + QString(20, u'x') + u" "_s + QString(300, u'y');
    items.add(1, u"longest"_s, longest, {});
    for (const Arrangement arrangement : arrangements) {
        arrange(arrangement);
        EXPECT_TRUE(tipAt(list.itemPlace(1).center()).startsWith(u"Article L. 121-2 sur xxx"_s));
        tipAt(list.itemPlace(2).center());
        EVENTUALLY(!QToolTip::isVisible());
    }
    list.setTips([](int item) { return u"dit de %1"_s.arg(item); });
    EXPECT_EQ(tipAt(list.itemPlace(2).center()), u"dit de 2"_s);
    items.clear();
    tipAt({50, 50});
    EVENTUALLY(!QToolTip::isVisible());
}

TEST_F(ListViewHands, WhoCannotSeeHearsEntriesAndTheEditor) {
    list.setAccessibleName(u"Contenu"_s);
    list.setTips([](int item) { return u"dit de %1"_s.arg(item); });
    items.select(3);
    QAccessibleInterface* const view = QAccessible::queryAccessibleInterface(&list);
    ASSERT_TRUE(view);
    EXPECT_EQ(view->role(), QAccessible::List);
    EXPECT_EQ(view->text(QAccessible::Name), u"Contenu"_s);
    QAccessibleInterface* const entry = view->child(2);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->role(), QAccessible::ListItem);
    EXPECT_EQ(entry->text(QAccessible::Name), u"titre 3"_s);
    EXPECT_EQ(entry->text(QAccessible::Description), u"dit de 3"_s);
    EXPECT_TRUE(entry->state().selected);
    EXPECT_FALSE(view->child(3)->state().selected);
    list.startLabelEdit(3);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(editor())->text(QAccessible::Name), u"titre 3"_s);
}

} // namespace velm
