#include "platform/widgets/look/carrier.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"
#include "tests/support/show_in_front.h"

#include <QAction>
#include <QIcon>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class CarrierTest : public QuietTest {
protected:
    CarrierTest() {
        window.resize(400, 300);
        button.setGeometry(20, 20, 120, 30);
        field.setGeometry(20, 100, 120, 30);
        test::showInFront(window);
        field.setFocus();
        QObject::connect(&button, &QPushButton::clicked, &window, [this] { ++clicks; });
        QObject::connect(&carrier, &Carrier::over, &window, [this](QWidget* under) {
            below = under;
            carrier.setAllowed(under == &button);
        });
        QObject::connect(&carrier, &Carrier::dropped, &window, [this](QWidget* under) {
            EXPECT_FALSE(carrier.carries());
            drops.append(under);
        });
        QObject::connect(&carrier, &Carrier::cancelled, &window, [this] { ++cancels; });
    }
    ~CarrierTest() override { EXPECT_TRUE(carrier.carries() || !QApplication::overrideCursor()); }

    void carry(Carrier::Mode mode) { carrier.carry(&window, QIcon(), u"Article 12"_s, mode); }
    static void send(QEvent::Type type, QWidget& to, Qt::MouseButtons held) {
        const QPoint at = to.rect().center();
        const bool move = type == QEvent::MouseMove;
        QMouseEvent event(type, at, to.mapToGlobal(at), move ? Qt::NoButton : Qt::LeftButton, held, {});
        QApplication::sendEvent(&to, &event);
    }

    QWidget window;
    QPushButton button{u"Ici"_s, &window};
    QLineEdit field{&window};
    Carrier carrier;
    QPointer<QWidget> below;
    QList<QWidget*> drops;
    int clicks = 0;
    int cancels = 0;
};

} // namespace

TEST_F(CarrierTest, AClickDropsAndTheControlBelowGetsNone) {
    carry(Carrier::Mode::UntilClick);
    QTest::mouseMove(&button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(drops, QList<QWidget*>{&button});
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(cancels, 0);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1) << "nothing is carried any more";
}

TEST_F(CarrierTest, AClickWhereNothingMayBeDroppedIsTheControls) {
    QPushButton close(u"Fermer"_s, &window);
    close.setGeometry(200, 20, 120, 30);
    close.show();
    const QSignalSpy clicked(&close, &QPushButton::clicked);
    carry(Carrier::Mode::UntilClick);
    QTest::mouseClick(&close, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(carrier.carries());
    carrier.cancel();
}

TEST_F(CarrierTest, TheReleaseDropsOrCancels) {
    carry(Carrier::Mode::UntilRelease);
    send(QEvent::MouseMove, button, Qt::LeftButton);
    EXPECT_EQ(below, &button);
    send(QEvent::MouseButtonRelease, button, Qt::NoButton);
    EXPECT_EQ(drops, QList<QWidget*>{&button});
    carry(Carrier::Mode::UntilRelease);
    send(QEvent::MouseMove, field, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, field, Qt::NoButton);
    EXPECT_EQ(drops.size(), 1);
    EXPECT_EQ(cancels, 1);
}

TEST_F(CarrierTest, EscapeCancelsAndClosesNothing) {
    int escapes = 0;
    QAction action(&window);
    action.setShortcut(Qt::Key_Escape);
    window.addAction(&action);
    QObject::connect(&action, &QAction::triggered, &window, [&] { ++escapes; });
    carry(Carrier::Mode::UntilClick);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
    EXPECT_EQ(escapes, 0);
    EXPECT_FALSE(carrier.carries());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(escapes, 1);
}

TEST_F(CarrierTest, OtherKeysGoWhereTheFocusIs) {
    carry(Carrier::Mode::UntilClick);
    QTest::keyClicks(&field, u"abc"_s);
    EXPECT_EQ(field.text(), u"abc"_s);
    EXPECT_TRUE(carrier.carries());
    carrier.finish();
    EXPECT_EQ(cancels, 0);
}

TEST_F(CarrierTest, ItsPictureFollowsAndIsNeverBelowThePointer) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseMove, button, Qt::NoButton);
    ASSERT_TRUE(carrier.picture());
    EXPECT_TRUE(carrier.picture()->isVisible());
    EXPECT_FALSE(carrier.picture()->isWindow());
    const QPoint first = carrier.picture()->pos();
    send(QEvent::MouseMove, field, Qt::NoButton);
    EXPECT_NE(carrier.picture()->pos(), first);
    EXPECT_EQ(below, &field);
    const QPoint corner(398, 298);
    QMouseEvent move(QEvent::MouseMove, corner, window.mapToGlobal(corner), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&window, &move);
    EXPECT_TRUE(window.rect().contains(carrier.picture()->geometry()));
    const QPointer<QWidget> picture(carrier.picture());
    carrier.cancel();
    EVENTUALLY(!picture);
}

TEST_F(CarrierTest, TheRestingPointerIsToldAgain) {
    carry(Carrier::Mode::UntilClick);
    const QSignalSpy over(&carrier, &Carrier::over);
    EVENTUALLY(over.count() >= 3);
}

TEST_F(CarrierTest, ThePointerTellsWhereADropIsPossible) {
    carry(Carrier::Mode::UntilRelease);
    send(QEvent::MouseMove, field, Qt::LeftButton);
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ForbiddenCursor);
    send(QEvent::MouseMove, button, Qt::LeftButton);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::DragCopyCursor);
    carrier.cancel();
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(CarrierTest, AWindowThatGoesTakesItAlong) {
    carry(Carrier::Mode::UntilClick);
    window.hide();
    EXPECT_EQ(cancels, 1);
    auto* other = new QWidget;
    test::showInFront(*other);
    carrier.carry(other, QIcon(), u"x"_s, Carrier::Mode::UntilClick);
    delete other;
    EXPECT_EQ(cancels, 2);
    EXPECT_FALSE(carrier.carries());
}

TEST_F(CarrierTest, WhatWasCarriedBeforeIsGivenBack) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseMove, button, Qt::NoButton);
    EXPECT_TRUE(carrier.allowed());
    const QPointer<QWidget> first(carrier.picture());
    carry(Carrier::Mode::UntilRelease);
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(carrier.allowed()) << "nothing may be dropped until it is allowed";
    EXPECT_TRUE(QApplication::overrideCursor()) << "the pointer tells so at once";
    EVENTUALLY(!first);
    carrier.cancel();
    carrier.carry(nullptr, QIcon(), u"x"_s, Carrier::Mode::UntilClick);
    EXPECT_FALSE(carrier.carries());
    EXPECT_EQ(cancels, 2);
}

TEST_F(CarrierTest, AWindowThatGoesUnseenTakesItAlongToo) {
    const QPointer<QWidget> unseen(new QWidget);
    carrier.carry(unseen, QIcon(), u"x"_s, Carrier::Mode::UntilClick);
    delete unseen.data();
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(CarrierTest, WhatWaitsForAClickWaitsWhileAnotherWindowIsInFront) {
    carry(Carrier::Mode::UntilClick);
    send(QEvent::MouseMove, button, Qt::NoButton);
    EXPECT_TRUE(carrier.allowed());
    QLineEdit other;
    test::showInFront(other);
    EXPECT_TRUE(carrier.carries());
    EXPECT_FALSE(carrier.picture()->isVisible());
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_FALSE(carrier.allowed());
    const QSignalSpy over(&carrier, &Carrier::over);
    send(QEvent::MouseMove, button, Qt::NoButton);
    QTest::qWait(120);
    EXPECT_EQ(over.count(), 0);
    EXPECT_FALSE(QApplication::overrideCursor());
    QTest::keyClick(&other, Qt::Key_Escape);
    EXPECT_TRUE(carrier.carries());
    test::showInFront(window);
    EVENTUALLY(over.count() >= 2);
    EXPECT_TRUE(QApplication::overrideCursor());
    send(QEvent::MouseMove, button, Qt::NoButton);
    EXPECT_TRUE(carrier.picture()->isVisible());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(drops, QList<QWidget*>{&button});
    EXPECT_EQ(cancels, 0);
}

TEST_F(CarrierTest, WhatIsHeldEndsWhenAnotherWindowComesInFront) {
    carry(Carrier::Mode::UntilRelease);
    QWidget other;
    test::showInFront(other);
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(carrier.carries());
}

TEST_F(CarrierTest, CarriersSurviveWhateverHappens) {
    QRandomGenerator random(15);
    QPointer<QWidget> host;
    QPointer<Carrier> one;
    for (int step = 0; step < 4000; ++step) {
        if (!host) {
            host = new QWidget;
            (new QLineEdit(host))->setGeometry(10, 10, 80, 30);
            host->show();
        }
        if (!one) {
            one = new Carrier;
            QObject::connect(one, &Carrier::over, one, [one](QWidget* under) {
                if (under && qobject_cast<QLineEdit*>(under))
                    one->setAllowed(true);
            });
            QObject::connect(one, &Carrier::dropped, &window, [&, one](QWidget* under) {
                if (random.bounded(2) == 0)
                    delete under;
                else
                    delete one.data();
            });
        }
        QWidget* const child = host->findChild<QLineEdit*>();
        switch (random.bounded(8)) {
        case 0:
            if (random.bounded(10) == 0)
                delete host;
            break;
        case 1:
            if (random.bounded(10) == 0)
                delete one;
            break;
        case 2:
            QCoreApplication::processEvents();
            break;
        case 3:
            QTest::keyClick(host, random.bounded(2) == 0 ? Qt::Key_Escape : Qt::Key_A);
            break;
        case 4:
            host->setVisible(random.bounded(4) != 0);
            break;
        case 5:
            send(random.bounded(2) == 0 ? QEvent::MouseMove : QEvent::MouseButtonPress, child ? *child : *host,
                 Qt::LeftButton);
            break;
        case 6:
            send(QEvent::MouseButtonRelease, child ? *child : *host, Qt::NoButton);
            break;
        default:
            one->carry(host, QIcon(), u"x"_s,
                       random.bounded(2) == 0 ? Carrier::Mode::UntilClick : Carrier::Mode::UntilRelease);
        }
    }
    delete one;
    delete host;
    EXPECT_FALSE(QApplication::overrideCursor());
}

} // namespace velm
