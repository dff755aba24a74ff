#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/look/look.h"
#include "tests/support/show_in_front.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace velm {

namespace {

/// A window that does what the bar says, and keeps the steps.
class SplitterBarTest : public testing::Test {
protected:
    SplitterBarTest() {
        window.resize(400, 300);
        place(100);
        QObject::connect(&bar, &SplitterBar::dropped, &window, [this](int position) {
            steps.push_back(position);
            place(position);
        });
        test::showInFront(window);
    }

    void place(int position) {
        if (bar.orientation() == Qt::Vertical)
            bar.setGeometry(position, 0, SplitterBar::thickness, 300);
        else
            bar.setGeometry(0, position, 400, SplitterBar::thickness);
    }

    /// Mouse positions in the window, as a hand moves.
    void press(QPoint at) { QTest::mousePress(&bar, Qt::LeftButton, {}, bar.mapFrom(&window, at)); }
    void move(QPoint to) { QTest::mouseMove(&bar, bar.mapFrom(&window, to)); }
    void release(QPoint at) { QTest::mouseRelease(&bar, Qt::LeftButton, {}, bar.mapFrom(&window, at)); }

    QWidget window;
    SplitterBar bar{Qt::Vertical, &window};
    std::vector<int> steps;
};

} // namespace

TEST_F(SplitterBarTest, TheWindowFollowsTheHandWhileTheBarIsDragged) {
    press({102, 50});
    move({132, 60});
    EXPECT_EQ(bar.x(), 130);
    move({152, 60});
    EXPECT_EQ(bar.x(), 150);
    release({152, 60});
    move({200, 60});
    EXPECT_EQ(bar.x(), 150);
    EXPECT_EQ(steps, (std::vector<int>{130, 150}));
}

TEST_F(SplitterBarTest, ALyingBarFollowsTheHandDownwards) {
    bar.setOrientation(Qt::Horizontal);
    place(100);
    press({50, 103});
    move({90, 143});
    release({90, 143});
    EXPECT_EQ(steps, (std::vector<int>{140}));
    EXPECT_EQ(bar.cursor().shape(), Qt::SplitVCursor);
    EXPECT_EQ(bar.height(), SplitterBar::thickness);
}

TEST_F(SplitterBarTest, AnOwnerThatPlacesAllAnewAtEachStepKeepsTheDrag) {
    QObject::connect(&bar, &SplitterBar::dropped, &window, [this] { bar.setOrientation(bar.orientation()); });
    press({102, 50});
    move({120, 50});
    move({152, 50});
    release({152, 50});
    EXPECT_EQ(bar.x(), 150);
}

TEST_F(SplitterBarTest, TheBarStaysInsideTheWindow) {
    press({102, 50});
    move({-500, 50});
    EXPECT_EQ(bar.x(), 0);
    move({5000, 50});
    EXPECT_EQ(bar.x(), 400 - SplitterBar::thickness);
    release({5000, 50});
}

TEST_F(SplitterBarTest, ABarAtTheEndOfAPanelGoesAsFarAsTheWindowAroundIt) {
    QWidget panel(&window);
    panel.setGeometry(50, 0, 100, 300);
    SplitterBar edge(Qt::Vertical, &panel);
    edge.setGeometry(95, 0, SplitterBar::thickness, 300);
    panel.show();
    std::vector<int> places;
    QObject::connect(&edge, &SplitterBar::dropped, &panel, [&](int position) { places.push_back(position); });
    const auto drag = [&](int by) {
        const QPoint grip = edge.rect().center();
        QTest::mousePress(&edge, Qt::LeftButton, {}, grip);
        QTest::mouseMove(&edge, grip + QPoint(by, 0));
        QTest::mouseRelease(&edge, Qt::LeftButton, {}, grip + QPoint(by, 0));
    };
    drag(50);
    EXPECT_TRUE(places.empty()); // it stands at the end of its parent
    edge.setBounds(&window);
    drag(50);
    drag(5000);
    drag(-5000);
    EXPECT_EQ(places, (std::vector<int>{145, 400 - 50 - SplitterBar::thickness, 0}));
}

TEST_F(SplitterBarTest, ADragWithoutAWayTellsNothing) {
    press({102, 50});
    move({102, 90});
    release({102, 90});
    EXPECT_TRUE(steps.empty());
}

TEST_F(SplitterBarTest, OnlyTheLeftButtonDrags) {
    QTest::mousePress(&bar, Qt::RightButton, {}, {2, 50});
    move({200, 50});
    QTest::mouseRelease(&bar, Qt::RightButton, {}, {2, 50});
    EXPECT_TRUE(steps.empty());
}

TEST_F(SplitterBarTest, EscapeBringsADraggedBarBackWhereverTheFocusIs) {
    QLineEdit field(&window);
    field.show();
    field.setFocus();
    press({102, 50});
    move({180, 50});
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(bar.x(), 100);
    move({220, 50});
    EXPECT_EQ(bar.x(), 100);
    EXPECT_EQ(QApplication::focusWidget(), &field);
}

TEST_F(SplitterBarTest, EscapeWithoutADragIsLeftToTheWindow) {
    bar.setFocus();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&bar, &escape);
    EXPECT_FALSE(escape.isAccepted());
    EXPECT_TRUE(steps.empty());
}

TEST_F(SplitterBarTest, TheKeysMoveABarThatHasTheFocus) {
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Right);
    QTest::keyClick(&bar, Qt::Key_Right);
    QTest::keyClick(&bar, Qt::Key_Left);
    QTest::keyClick(&bar, Qt::Key_Up);
    QTest::keyClick(&bar, Qt::Key_Home);
    QTest::keyClick(&bar, Qt::Key_Left);
    QTest::keyClick(&bar, Qt::Key_End);
    EXPECT_EQ(steps, (std::vector<int>{108, 116, 108, 0, 400 - SplitterBar::thickness}));
    bar.setOrientation(Qt::Horizontal);
    place(40);
    QTest::keyClick(&bar, Qt::Key_Down);
    QTest::keyClick(&bar, Qt::Key_Left);
    EXPECT_EQ(steps.back(), 48);
}

TEST_F(SplitterBarTest, ADoubleClickAsksForTheUsualPlace) {
    const QSignalSpy wanted(&bar, &SplitterBar::usualPlaceWanted);
    QTest::mouseDClick(&bar, Qt::LeftButton, {}, {2, 50});
    EXPECT_EQ(wanted.count(), 1);
    move({200, 50});
    EXPECT_TRUE(steps.empty());
}

TEST_F(SplitterBarTest, ABarThatIsHiddenUnderTheHandIsDropped) {
    press({102, 50});
    bar.hide();
    bar.show();
    move({200, 50});
    EXPECT_TRUE(steps.empty());
}

TEST_F(SplitterBarTest, TheFocusIsSeen) {
    const auto middle = [this] { return bar.grab().toImage().pixelColor(1, 150); };
    bar.clearFocus();
    const QColor before = middle();
    bar.setFocus();
    EXPECT_EQ(middle(), look::accentColour(look::themeOf(bar.palette())));
    EXPECT_NE(before, middle());
    bar.clearFocus();
    EXPECT_EQ(middle(), before);
}

TEST_F(SplitterBarTest, ABarWithoutRoomStaysAtTheBeginning) {
    window.resize(3, 3);
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_End);
    EXPECT_EQ(bar.x(), 0);
}

} // namespace velm
