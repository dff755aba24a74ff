#include "platform/widgets/look/focusring.h"
#include "tests/support/contrast.h"
#include "tests/support/eventually.h"
#include "tests/support/show_in_front.h"
#include "tests/support/styleofprogram.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>

#include <gtest/gtest.h>
#include <memory>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class FocusRingTest : public testing::Test {
protected:
    FocusRingTest() {
        window.resize(400, 300);
        first.setGeometry(40, 40, 120, 28);
        second.setGeometry(40, 100, 120, 28);
        show(window);
        QTest::keyClick(&window, Qt::Key_Shift);
    }
    ~FocusRingTest() override { delete ring; }

    static void show(QWidget& shown) {
        test::showInFront(shown);
        if (QWidget* chosen = shown.focusWidget())
            chosen->clearFocus(); // a window that comes up chooses one
    }
    QRect outside(const QWidget& widget) const {
        return QRect(widget.mapTo(widget.window(), QPoint()), widget.size()).adjusted(-3, -3, 3, 3);
    }

    const test::StyleOfProgram style;
    FocusRing* ring = new FocusRing(static_cast<QApplication&>(*QCoreApplication::instance()));
    QWidget window;
    QPushButton first{u"Un"_s, &window};
    QPushButton second{u"Deux"_s, &window};
};

} // namespace

TEST_F(FocusRingTest, OneRingOfTwoPixelsLiesOutsideOfWhatTheKeysHaveReached) {
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), &first);
    EXPECT_EQ(ring->place(), outside(first));
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_EQ(ring->around(), &second);
    EXPECT_EQ(ring->place(), outside(second));
    const QImage seen = window.grab().toImage();
    const QColor colour = look::focusColour(look::Theme::Light);
    const QColor ground = window.palette().color(QPalette::Window);
    const int left = second.x();
    const int middle = second.geometry().center().y();
    EXPECT_EQ(seen.pixelColor(left - 3, middle), colour);
    EXPECT_EQ(seen.pixelColor(left - 2, middle), colour);
    EXPECT_EQ(seen.pixelColor(left - 1, middle), ground) << "a gap sets it off";
    EXPECT_EQ(seen.pixelColor(left - 4, middle), ground);
    EXPECT_EQ(seen.pixelColor(first.x() - 3, first.geometry().center().y()), ground) << "never two";
}

TEST_F(FocusRingTest, TheMouseNeedsNone) {
    first.setFocus(Qt::TabFocusReason);
    ASSERT_EQ(ring->around(), &first);
    QTest::mouseClick(&second, Qt::LeftButton);
    EVENTUALLY(!ring->around());
    EXPECT_TRUE(ring->place().isEmpty());
    first.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(ring->around(), nullptr) << "the program gives the focus on after the mouse";
    first.clearFocus();
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_NE(ring->around(), nullptr);
    second.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(ring->around(), &second) << "the program gives the focus on after a key";
    QTest::mouseClick(&first, Qt::LeftButton);
    second.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), nullptr) << "the toolkit walks by itself";
}

TEST_F(FocusRingTest, WhatTakesWordsHasItAlways) {
    QLineEdit line(&window);
    QComboBox box(&window);
    QTextEdit text(&window);
    for (QWidget* field : std::initializer_list<QWidget*>{&line, &box, &text}) {
        field->show();
        field->setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(ring->around() == field, field != &box) << field->metaObject()->className();
        first.setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(ring->around(), nullptr);
    }
    box.setEditable(true);
    box.move(20, 150);
    box.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ring->around(), &box);
    EXPECT_EQ(ring->place(), box.geometry().adjusted(-2, -2, 2, 2)) << "close to its edge";
    line.setReadOnly(true);
    line.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ring->around(), nullptr);
    text.setReadOnly(true);
    text.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ring->around(), nullptr);
}

TEST_F(FocusRingTest, WhatABoxOffersHasNone) {
    QComboBox box(&window);
    box.addItems({u"Article"_s, u"Loi"_s});
    box.show();
    box.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), &box);
    box.showPopup();
    EXPECT_TRUE(box.view()->isVisible());
    EXPECT_NE(ring->around(), box.view());
    box.hidePopup();
}

TEST_F(FocusRingTest, FollowsWhatMovesGrowsAndGoes) {
    first.setFocus(Qt::TabFocusReason);
    first.move(60, 50);
    EVENTUALLY(ring->place() == outside(first));
    first.resize(150, 40);
    EVENTUALLY(ring->place() == outside(first));
    QWidget holder(&window);
    holder.setGeometry(100, 100, 200, 100);
    first.setParent(&holder);
    holder.show();
    first.show();
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->place(), outside(first));
    holder.move(120, 120);
    EVENTUALLY(ring->place() == outside(first));
    holder.hide();
    EVENTUALLY(ring->around() != &first);
    first.setParent(&window);
}

TEST_F(FocusRingTest, OnlyThePartThatHasTheFocusIsSurrounded) {
    QTabBar tabs(&window);
    tabs.addTab(u"Titres"_s);
    tabs.addTab(u"Critères"_s);
    tabs.setGeometry(20, 200, 300, tabs.sizeHint().height());
    tabs.show();
    tabs.setFocus(Qt::TabFocusReason);
    const auto around = [&tabs](int tab) { return tabs.tabRect(tab).translated(tabs.pos()).adjusted(-3, -3, 3, 3); };
    EXPECT_EQ(ring->place(), around(0));
    QTest::keyClick(&tabs, Qt::Key_Right);
    EVENTUALLY(ring->place() == around(1));
    QCheckBox check(u"Mot entier"_s, &window);
    check.setGeometry(20, 240, 300, 24);
    check.show();
    check.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->place().width(), check.sizeHint().width() + 6);
}

TEST_F(FocusRingTest, StaysInsideOfTheWindowAndOfWhatIsScrolled) {
    first.move(0, 0);
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->place(), QRect(0, 0, 123, 31));
    QScrollArea area(&window);
    area.setGeometry(0, 60, 200, 100);
    auto* content = new QWidget;
    content->resize(180, 1000);
    QPushButton deep(u"Loin"_s, content);
    deep.setGeometry(10, 20, 100, 28);
    area.setWidget(content);
    area.show();
    deep.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->place(), outside(deep));
    area.verticalScrollBar()->setValue(500);
    EVENTUALLY(ring->around() == nullptr);
    area.verticalScrollBar()->setValue(0);
    EVENTUALLY(ring->place() == outside(deep));
}

TEST_F(FocusRingTest, NeitherCoversNorCatchesAnything) {
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(window.childAt(first.geometry().center()), &first);
    EXPECT_EQ(window.childAt(first.geometry().topLeft() - QPoint(2, 2)), nullptr);
    for (const QObject* child : window.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        const bool isRing = widget && widget != &first && widget != &second;
        EXPECT_FALSE(isRing && widget->mask().contains(first.geometry().center() - widget->pos()));
    }
}

TEST_F(FocusRingTest, OfAChildOfAnAreaItLiesInsideOfTheChild) {
    QMdiArea area(&window);
    area.setGeometry(0, 0, 400, 300);
    area.show();
    auto* content = new QWidget;
    auto* button = new QPushButton(u"Ici"_s, content);
    button->setGeometry(30, 30, 80, 28);
    QMdiSubWindow* child = area.addSubWindow(content);
    child->resize(200, 150);
    child->show();
    area.setActiveSubWindow(child);
    window.focusWidget()->clearFocus();
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), button);
    EXPECT_EQ(ring->place(), QRect(27, 27, 86, 34));
    const auto rings = content->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    EXPECT_EQ(rings.size(), 2) << "the button and the ring";
    content->setFocusPolicy(Qt::StrongFocus);
    content->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), nullptr) << "a window as a whole";
}

TEST_F(FocusRingTest, GoesWithItsWindowAndComesInTheNext) {
    auto other = std::make_unique<QWidget>();
    auto* button = new QPushButton(u"Là"_s, other.get());
    show(*other);
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), button);
    other.reset();
    EXPECT_EQ(ring->around(), nullptr);
    show(window);
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), &first);
}

TEST_F(FocusRingTest, WhatDrawsItsFocusByItselfHasNone) {
    FocusRing::leave(first);
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), nullptr);
    second.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring->around(), &second);
}

} // namespace velm
