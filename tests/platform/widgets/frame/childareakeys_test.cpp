#include "platform/widgets/frame/childareakeys.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace velm {
namespace {

ChildAreaKey of(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    return childAreaKey(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

constexpr Qt::KeyboardModifiers controlShift = Qt::ControlModifier | Qt::ShiftModifier;

} // namespace

TEST(ChildAreaKey, WalksForwardAndWithShiftBackward) {
    EXPECT_EQ(of(Qt::Key_Tab, Qt::ControlModifier), ChildAreaKey::Next);
    EXPECT_EQ(of(Qt::Key_F6, Qt::ControlModifier), ChildAreaKey::Next);
    // Shift makes another key of the first one.
    EXPECT_EQ(of(Qt::Key_Backtab, controlShift), ChildAreaKey::Previous);
    EXPECT_EQ(of(Qt::Key_Tab, controlShift), ChildAreaKey::Previous);
    EXPECT_EQ(of(Qt::Key_F6, controlShift), ChildAreaKey::Previous);
}

TEST(ChildAreaKey, ClosesWithoutShiftOnly) {
    EXPECT_EQ(of(Qt::Key_F4, Qt::ControlModifier), ChildAreaKey::Close);
    EXPECT_EQ(of(Qt::Key_W, Qt::ControlModifier), ChildAreaKey::Close);
    EXPECT_EQ(of(Qt::Key_F4, controlShift), ChildAreaKey::None);
    EXPECT_EQ(of(Qt::Key_W, controlShift), ChildAreaKey::None);
}

TEST(ChildAreaKey, OtherKeysAndModifiersAreNotItsOwn) {
    EXPECT_EQ(of(Qt::Key_Tab, Qt::NoModifier), ChildAreaKey::None);
    EXPECT_EQ(of(Qt::Key_F6, Qt::ControlModifier | Qt::AltModifier), ChildAreaKey::None);
    EXPECT_EQ(of(Qt::Key_F5, Qt::ControlModifier), ChildAreaKey::None);
}

} // namespace velm
