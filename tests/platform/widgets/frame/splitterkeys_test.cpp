#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/splitterkeys.h"
#include "tests/support/eventually.h"
#include "tests/support/show_in_front.h"

#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <gtest/gtest.h>

namespace velm {

namespace {

class SplitterKeysTest : public testing::Test {
protected:
    SplitterKeysTest() {
        window.resize(400, 300);
        field.setGeometry(10, 10, 80, 24);
        lower.setGeometry(0, 200, 400, SplitterBar::thickness);
        upper.setGeometry(0, 100, 400, SplitterBar::thickness);
        upright.setGeometry(150, 0, SplitterBar::thickness, 100);
        test::showInFront(window);
        field.setFocus();
    }
    QWidget* pressed() {
        QTest::keyClick(&window, Qt::Key_F8);
        return QApplication::focusWidget();
    }

    QWidget window;
    SplitterBar lower{Qt::Horizontal, &window};
    SplitterBar upper{Qt::Horizontal, &window};
    SplitterBar upright{Qt::Vertical, &window};
    QLineEdit field{&window};
};

} // namespace

TEST_F(SplitterKeysTest, WalkTheBarsInReadingOrderAndComeBack) {
    EXPECT_EQ(pressed(), &upright);
    EXPECT_EQ(pressed(), &upper);
    EXPECT_EQ(pressed(), &lower);
    EXPECT_EQ(pressed(), &field);
    EXPECT_EQ(pressed(), &upright);
}

TEST_F(SplitterKeysTest, PassByWhatCannotBeSeenOrMoved) {
    upper.hide();
    upright.setEnabled(false);
    EXPECT_EQ(pressed(), &lower);
    EXPECT_EQ(pressed(), &field);
    lower.hide();
    EXPECT_EQ(pressed(), &field) << "no bar, no step";
}

TEST_F(SplitterKeysTest, TheTabKeyNeverStopsAtABar) {
    QLineEdit other(&window);
    other.show();
    for (int i = 0; i < 6; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(qobject_cast<SplitterBar*>(QApplication::focusWidget()), nullptr);
    }
    EXPECT_EQ(pressed(), &upright);
    QTest::keyClick(&upright, Qt::Key_Tab);
    EXPECT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr) << "and leaves one that has the focus";
}

TEST_F(SplitterKeysTest, GiveTheFocusUpWhereItsBeginningIsGone) {
    EXPECT_EQ(pressed(), &upright);
    field.hide();
    pressed();
    EXPECT_EQ(pressed(), &lower);
    EXPECT_EQ(pressed(), nullptr);
}

TEST_F(SplitterKeysTest, OfChildWindowsReachTheActiveOneAlone) {
    QMdiArea area(&window);
    area.setGeometry(0, 205, 400, 95);
    area.show();
    const auto child = [&area] {
        auto* content = new QWidget;
        (new SplitterBar(Qt::Vertical, content))->setGeometry(40, 0, SplitterBar::thickness, 60);
        QMdiSubWindow* frame = area.addSubWindow(content);
        frame->show();
        return content;
    };
    QWidget* behind = child();
    QWidget* front = child();
    EXPECT_EQ(area.activeSubWindow()->widget(), front);
    field.setFocus();
    QList<QWidget*> met;
    for (int i = 0; i < 5; ++i)
        met << pressed();
    EXPECT_EQ(met.at(3)->parentWidget(), front);
    EXPECT_EQ(met.at(4), &field);
    for (const QWidget* bar : met)
        EXPECT_NE(bar->parentWidget(), behind);
}

} // namespace velm
