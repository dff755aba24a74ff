// What is carried, where it gets no move before it is dropped, and where others want the mouse too.
#include "platform/widgets/look/carrier.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Counts the moves that reach a control.
class Moves : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseMove)
            ++count;
        return false;
    }
    int count = 0;
};

class CarrierEdges : public QuietTest {
protected:
    CarrierEdges() {
        window.resize(400, 300);
        button.setGeometry(20, 20, 120, 30);
        field.setGeometry(20, 100, 120, 30);
        field.installEventFilter(&moves);
        test::showInFront(window);
        QObject::connect(&carrier, &Carrier::over, &window, [this](QWidget* under) {
            below = under;
            carrier.setAllowed(everywhere || under == &button);
        });
        QObject::connect(&carrier, &Carrier::dropped, &window, [this](QWidget* under) { drops.append(under); });
        QObject::connect(&carrier, &Carrier::cancelled, &window, [this] { ++cancels; });
    }
    void carry(Carrier::Mode mode) { carrier.carry(&window, QIcon(), u"Article 12"_s, mode); }
    static void send(QEvent::Type type, QWidget& to, const QPoint& at, Qt::MouseButtons held) {
        const bool move = type == QEvent::MouseMove;
        QMouseEvent event(type, at, to.mapToGlobal(at), move ? Qt::NoButton : Qt::LeftButton, held, {});
        QApplication::sendEvent(&to, &event);
    }
    static void send(QEvent::Type type, QWidget& to, Qt::MouseButtons held) {
        send(type, to, to.rect().center(), held);
    }

    QDialog window;
    QPushButton button{u"Ici"_s, &window};
    QLineEdit field{&window};
    Moves moves;
    Carrier carrier;
    QWidget* below = nullptr;
    QList<QWidget*> drops;
    int cancels = 0;
    bool everywhere = false;
};

} // namespace

TEST_F(CarrierEdges, EscapeLeavesTheDialogOpen) {
    carry(Carrier::Mode::UntilClick);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(CarrierEdges, OutsideOfTheWindowNothingIsBelowAndNothingIsDropped) {
    everywhere = true;
    carry(Carrier::Mode::UntilRelease);
    send(QEvent::MouseMove, button, Qt::LeftButton);
    EXPECT_EQ(below, &button);
    send(QEvent::MouseMove, button, {-200, 5}, Qt::LeftButton);
    EXPECT_EQ(below, nullptr);
    EXPECT_FALSE(carrier.picture()->isVisible());
    send(QEvent::MouseButtonRelease, button, {-200, 5}, Qt::NoButton);
    EXPECT_EQ(drops, QList<QWidget*>());
    EXPECT_EQ(cancels, 1);
}

TEST_F(CarrierEdges, APressOrAReleaseNeedsNoMoveBefore) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseButtonPress, button, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, button, Qt::NoButton);
    carry(Carrier::Mode::UntilRelease);
    send(QEvent::MouseButtonRelease, button, Qt::NoButton);
    EXPECT_EQ(drops, (QList<QWidget*>{&button, &button}));
    EXPECT_EQ(cancels, 0);
}

TEST_F(CarrierEdges, AReleaseWhosePressWasBeforeDropsNothingThatWaitsForAClick) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseMove, button, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, button, Qt::NoButton);
    EXPECT_TRUE(carrier.carries());
    carrier.finish();
}

TEST_F(CarrierEdges, AControlThatHasThePressHasTheMovesToo) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseMove, field, Qt::NoButton);
    EXPECT_EQ(moves.count, 0);
    send(QEvent::MouseButtonPress, field, Qt::LeftButton);
    send(QEvent::MouseMove, field, Qt::LeftButton);
    EXPECT_EQ(moves.count, 1);
    QWidget other;
    test::showInFront(other);
    test::showInFront(window);
    send(QEvent::MouseMove, field, Qt::NoButton);
    EXPECT_EQ(moves.count, 1) << "the press ended unseen, while another window was in front";
    carrier.finish();
}

TEST_F(CarrierEdges, AnotherWindowHasItsMouse) {
    QPushButton other(u"Autre"_s);
    other.setAttribute(Qt::WA_ShowWithoutActivating);
    other.show();
    const QSignalSpy clicked(&other, &QPushButton::clicked);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    everywhere = true;
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseButtonPress, other, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, other, Qt::NoButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(carrier.carries());
    carrier.finish();
}

TEST_F(CarrierEdges, ThePictureIsNeverWhatLiesBelow) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseMove, window, {200, 200}, Qt::NoButton);
    ASSERT_TRUE(carrier.picture()->isVisible());
    send(QEvent::MouseMove, window, carrier.picture()->geometry().center(), Qt::NoButton);
    EXPECT_EQ(below, &window);
    carrier.finish();
}

} // namespace velm
