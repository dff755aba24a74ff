#include "platform/widgets/frame/emptyground.h"
#include "tests/platform/widgets/frame/childareafixture.h"

namespace velm {
namespace {

class EmptyGroundTest : public ChildAreaTest {
protected:
    EmptyGroundTest() {
        beside = new QLineEdit(frame.menuBar());
        ground = new QLineEdit;
        new EmptyGround(*area, ground);
    }

    QLineEdit* beside;
    QLineEdit* ground;
};

} // namespace

TEST_F(EmptyGroundTest, ItFillsTheAreaWhileNoWindowIsThere) {
    showFrame();
    EVENTUALLY(ground->isVisible());
    EXPECT_EQ(ground->geometry(), inside());
    frame.resize(600, 500);
    EVENTUALLY(ground->geometry() == inside());
}

TEST_F(EmptyGroundTest, ItIsNotSeenWhereAWindowOpensWithTheFrame) {
    addShown(1);
    showFrame();
    QCoreApplication::processEvents();
    EXPECT_FALSE(ground->isVisible());
}

TEST_F(EmptyGroundTest, ItGoesUnderTheFirstWindowAndComesBackBehindTheLast) {
    showFrame();
    EVENTUALLY(ground->isVisible());
    const auto windows = addShown(2);
    EVENTUALLY(!ground->isVisible());
    area->around(windows[0])->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(ground->isVisible());
    area->around(windows[1])->close();
    EVENTUALLY(ground->isVisible());
}

TEST_F(EmptyGroundTest, AHiddenWindowIsNoneAndAnIconIsOne) {
    showFrame();
    const auto windows = addShown(1);
    EVENTUALLY(!ground->isVisible());
    area->hideChild(windows[0]);
    EVENTUALLY(ground->isVisible());
    area->activate(windows[0]);
    EVENTUALLY(!ground->isVisible());
    area->around(windows[0])->showMinimized();
    QCoreApplication::processEvents();
    EXPECT_FALSE(ground->isVisible());
}

TEST_F(EmptyGroundTest, TheFocusOfTheLastWindowGoesToIt) {
    showFrame();
    const auto windows = addShown(1);
    EVENTUALLY(windows[0]->hasFocus());
    area->around(windows[0])->close();
    EVENTUALLY(ground->hasFocus());
    const auto others = addShown(1);
    EVENTUALLY(others[0]->hasFocus());
    EVENTUALLY(!ground->isVisible());
}

TEST_F(EmptyGroundTest, AFocusElsewhereStaysWhereItIs) {
    beside->resize(80, 20);
    showFrame();
    const auto windows = addShown(1);
    EVENTUALLY(windows[0]->hasFocus());
    EVENTUALLY(!ground->isVisible());
    beside->setFocus();
    auto* other = new QLineEdit(frame.menuBar());
    other->show();
    other->setFocus();
    EVENTUALLY(other->hasFocus());
    area->around(windows[0])->close();
    EVENTUALLY(ground->isVisible());
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(EmptyGroundTest, AFocusThatTheUserMovedOutOfTheLastWindowStaysThere) {
    beside->resize(80, 20);
    showFrame();
    const auto windows = addShown(1);
    EVENTUALLY(windows[0]->hasFocus());
    EVENTUALLY(!ground->isVisible());
    QTest::mouseClick(beside, Qt::LeftButton);
    ASSERT_TRUE(beside->hasFocus());
    area->around(windows[0])->close();
    EVENTUALLY(ground->isVisible());
    EXPECT_TRUE(beside->hasFocus());
}

TEST_F(EmptyGroundTest, AFrameThatIsNotActiveHasItsFocusThereWhenItIsAgain) {
    showFrame();
    const auto windows = addShown(1);
    EVENTUALLY(windows[0]->hasFocus());
    QLineEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    area->hideChild(windows[0]);
    EVENTUALLY(ground->isVisible());
    EXPECT_EQ(frame.focusWidget(), ground);
}

TEST_F(EmptyGroundTest, WindowsThatWereThereBeforeCountToo) {
    auto* late = new QLineEdit;
    const auto windows = addShown(1);
    new EmptyGround(*area, late);
    showFrame();
    QCoreApplication::processEvents();
    EXPECT_FALSE(late->isVisible());
    area->around(windows[0])->close();
    EVENTUALLY(late->isVisible());
}

} // namespace velm
