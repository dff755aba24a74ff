// The judge of the Tab key's way.
#include "tests/vues/clavier.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Keeps the key for itself.
class Trap final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    bool event(QEvent* event) override {
        const bool tab = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab;
        return tab || QLineEdit::event(event);
    }
};

/// Shows nothing of the focus.
class Blank final : public QWidget {
public:
    explicit Blank(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }
};

class Clavier : public testing::Test {
protected:
    void SetUp() override {
        for (QLineEdit* const field : {&first, &second, &third})
            field->setParent(&window);
        first.setGeometry(0, 0, 100, 30);
        second.setGeometry(120, 0, 100, 30);
        third.setGeometry(0, 40, 100, 30);
    }
    void show() {
        window.resize(400, 300);
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        first.setFocus();
    }

    QWidget window;
    QLineEdit first;
    QLineEdit second;
    QLineEdit third;
};

} // namespace

TEST_F(Clavier, AWayInTheOrderOfReadingHasNoFault) {
    ASSERT_NO_FATAL_FAILURE(show());
    EXPECT_EQ(reachable(window).size(), 3);
    EXPECT_EQ(tabFaults(window), QStringList());
    EXPECT_EQ(QApplication::focusWidget(), &first);
}

TEST_F(Clavier, OneColumnIsReadAfterTheOther) {
    QWidget::setTabOrder(&first, &third);
    QWidget::setTabOrder(&third, &second);
    ASSERT_NO_FATAL_FAILURE(show());
    EXPECT_EQ(tabFaults(window), QStringList());
}

TEST_F(Clavier, AWayBackwardsIsFound) {
    second.move(0, 100);
    ASSERT_NO_FATAL_FAILURE(show());
    const QStringList found = tabFaults(window);
    ASSERT_EQ(found.size(), 1) << found.join(u'\n').toStdString();
    EXPECT_TRUE(found.first().startsWith(u"Tab goes back")) << found.first().toStdString();
}

TEST_F(Clavier, TheDefaultButtonComesBeforeTheOthersOfItsLine) {
    third.hide();
    second.hide();
    QPushButton other(u"Suivante"_s, &window);
    other.setGeometry(0, 100, 80, 30);
    QPushButton closing(u"Fermer"_s, &window);
    closing.setGeometry(120, 100, 80, 30);
    QPushButton help(u"Aide"_s, &window);
    help.setGeometry(60, 60, 80, 30);
    QWidget::setTabOrder(&first, &help);
    QWidget::setTabOrder(&help, &closing);
    QWidget::setTabOrder(&closing, &other);
    ASSERT_NO_FATAL_FAILURE(show());
    EXPECT_EQ(tabFaults(window).size(), 1);
    closing.setDefault(true);
    EXPECT_EQ(tabFaults(window), QStringList());
}

TEST_F(Clavier, AControlThatKeepsTheKeyIsFound) {
    Trap trap(&window);
    trap.setGeometry(120, 40, 100, 30);
    QWidget::setTabOrder(&third, &trap);
    ASSERT_NO_FATAL_FAILURE(show());
    EXPECT_FALSE(tabFaults(window).isEmpty());
}

TEST_F(Clavier, AWayThatLeavesTheWindowIsFound) {
    QWidget part(&window);
    QLineEdit within(&part);
    part.setGeometry(0, 100, 200, 100);
    ASSERT_NO_FATAL_FAILURE(show());
    const QStringList found = tabFaults(part);
    ASSERT_FALSE(found.isEmpty());
    EXPECT_TRUE(found.first().startsWith(u"Tab leaves the window")) << found.first().toStdString();
}

TEST_F(Clavier, AControlWithoutARingIsFound) {
    Blank blank(&window);
    blank.setGeometry(0, 100, 100, 30);
    ASSERT_NO_FATAL_FAILURE(show());
    const QStringList found = withoutRing(window);
    ASSERT_EQ(found.size(), 1) << found.join(u'\n').toStdString();
    EXPECT_TRUE(found.first().contains(u"QWidget")) << found.first().toStdString();
}

} // namespace velm::vues
