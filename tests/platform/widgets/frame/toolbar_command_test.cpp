// Buttons that stand for an action which others show, too.
#include "tests/platform/widgets/frame/toolbar_support.h"

#include <QAction>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class ToolbarCommandTest : public test::ToolbarTest {
protected:
    ToolbarCommandTest() {
        command.setCheckable(true);
        command.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
        bar->addCommand(u"commande"_s, Toolbar::Kind::Check, command);
        showFrame();
    }
    static QIcon picture(Qt::GlobalColor colour) {
        QPixmap pixels(20, 20);
        pixels.fill(colour);
        return pixels;
    }
    QColor colour() const { return button().icon().pixmap(20).toImage().pixelColor(10, 10); }
    QToolButton& button() const { return *bar->widget(u"commande"_s); }

    QAction command{picture(Qt::green), u"&Commande"_s};
};

} // namespace

TEST_F(ToolbarCommandTest, AButtonIsAsItsActionIs) {
    EXPECT_EQ(colour(), QColor(Qt::green));
    for (const bool yes : {false, true}) {
        command.setEnabled(yes);
        command.setChecked(yes);
        EXPECT_EQ(button().isEnabled(), yes);
        EXPECT_EQ(button().isChecked(), yes);
        EXPECT_EQ(bar->isButtonEnabled(u"commande"_s), yes);
        EXPECT_EQ(bar->value(u"commande"_s), yes);
    }
    command.setIcon(picture(Qt::yellow));
    EXPECT_EQ(colour(), QColor(Qt::yellow));
    bar->setImages([](const QString&) { return picture(Qt::black); });
    EXPECT_EQ(colour(), QColor(Qt::yellow));
}

TEST_F(ToolbarCommandTest, WhatIsSetOnTheButtonIsSetOnTheAction) {
    bar->setValue(u"commande"_s, true);
    EXPECT_TRUE(command.isChecked());
    bar->setButtonEnabled(u"commande"_s, false);
    EXPECT_FALSE(command.isEnabled());
}

TEST_F(ToolbarCommandTest, APressTriggersTheActionAndTheLookFollowsWhatCameOfIt) {
    const QSignalSpy triggered(&command, &QAction::triggered);
    click(u"commande"_s);
    EXPECT_EQ(triggered.count(), 1);
    EXPECT_TRUE(button().isChecked());
    // Whoever does the deed may leave the mark as it was.
    QObject::connect(&command, &QAction::triggered, &command, [this] { command.setChecked(!command.isChecked()); });
    click(u"commande"_s);
    EXPECT_EQ(triggered.count(), 2);
    EXPECT_TRUE(command.isChecked());
    EXPECT_TRUE(button().isChecked());
}

TEST_F(ToolbarCommandTest, ARefusedPressLeavesTheLook) {
    command.setCheckable(false);
    EXPECT_FALSE(button().isChecked());
    click(u"commande"_s);
    EXPECT_FALSE(button().isChecked());
}

TEST_F(ToolbarCommandTest, ItsTipShowsTheKeyOfTheActionWhichAloneHasIt) {
    bar->setToolTip(u"commande"_s, u"Ce qu’elle fait"_s);
    EXPECT_TRUE(button().toolTip().contains(u"Ctrl+B"_s)) << button().toolTip().toStdString();
    EXPECT_EQ(bar->toolTip(u"commande"_s), u"Ce qu’elle fait");
    EXPECT_EQ(command.toolTip(), u"Commande") << "a menu shows none of it";
    EXPECT_TRUE(button().defaultAction()->shortcut().isEmpty());
}

TEST_F(ToolbarCommandTest, TheBarAloneDecidesWhetherItIsSeen) {
    bar->setButtonVisible(u"commande"_s, false);
    EVENTUALLY(!button().isVisible());
    EXPECT_TRUE(command.isVisible());
    EXPECT_TRUE(command.isEnabled());
}

TEST_F(ToolbarCommandTest, ItOutlivesItsAction) {
    auto* passing = new QAction(&frame);
    bar->addCommand(u"passagère"_s, Toolbar::Kind::Plain, *passing);
    delete passing;
    click(u"passagère"_s);
    EXPECT_TRUE(bar->isButtonEnabled(u"passagère"_s));
    EXPECT_FALSE(bar->value(u"passagère"_s));
}

} // namespace velm
