// Where a bar stands, and how the keyboard walks it.
#include "tests/platform/widgets/frame/toolbar_support.h"

#include <QContextMenuEvent>
#include <QSignalSpy>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using ToolbarTest = test::ToolbarTest;

} // namespace

TEST_F(ToolbarTest, ABarDocksAtAnEdgeByItsNumber) {
    showFrame();
    const std::vector<std::pair<int, Qt::ToolBarArea>> edges{
        {2, Qt::BottomToolBarArea}, {3, Qt::LeftToolBarArea}, {4, Qt::RightToolBarArea}, {1, Qt::TopToolBarArea}};
    for (const auto& [position, edge] : edges) {
        bar->dock(frame, position);
        EXPECT_EQ(frame.toolBarArea(bar), edge);
        EXPECT_EQ(bar->dockedAt(), position);
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->orientation(), position > 2 ? Qt::Vertical : Qt::Horizontal);
    }
}

TEST_F(ToolbarTest, AHiddenBarKeepsItsEdge) {
    showFrame();
    bar->dock(frame, 3);
    bar->dock(frame, 0);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(bar->dockedAt(), 0);
    EXPECT_EQ(frame.toolBarArea(bar), Qt::LeftToolBarArea);
    bar->dock(frame, 5);
    bar->dock(frame, -1);
    EXPECT_EQ(bar->dockedAt(), 0);
    bar->dock(frame, 1);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(frame.toolBarArea(bar), Qt::TopToolBarArea);
}

TEST_F(ToolbarTest, TheUserCannotDragABarAway) {
    EXPECT_FALSE(bar->isMovable());
    EXPECT_FALSE(bar->isFloatable());
}

TEST_F(ToolbarTest, ARightClickIsToldAndTheFramesOwnMenuStaysAway) {
    showFrame();
    const QSignalSpy told(bar, &Toolbar::rightClicked);
    for (QWidget* target : {static_cast<QWidget*>(bar->widget(u"Imprimer"_s)), static_cast<QWidget*>(bar)}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, target->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(target, &event);
        EXPECT_TRUE(event.isAccepted());
    }
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(ToolbarTest, WhatDoesNotFitStaysReachable) {
    frame.resize(130, 200);
    showFrame();
    EXPECT_FALSE(bar->widget(u"barreverti"_s)->isVisible());
    auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    ASSERT_NE(more, nullptr);
    EXPECT_TRUE(more->isVisible());
}

TEST_F(ToolbarTest, TheTabKeyReachesABarOnceAndTheArrowsWalkIt) {
    showFrame();
    bar->widget(u"Précédent"_s)->setFocus();
    const auto focused = [] { return QApplication::focusWidget()->objectName(); };
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(focused(), u"Imprimer");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    EXPECT_EQ(focused(), u"barreverti");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(focused(), u"barreverti");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_EQ(focused(), u"barrehoriz");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), field);
    QTest::keyClick(field, Qt::Key_Backtab);
    EXPECT_EQ(focused(), u"barrehoriz");
    bar->setButtonEnabled(u"barrehoriz"_s, false);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Backtab);
    EXPECT_EQ(focused(), u"Précédent");
}

TEST_F(ToolbarTest, BarsAreEquallyHighWhateverTheirButtons) {
    auto* other = new Toolbar(&frame);
    other->addButton(u"seul"_s, Toolbar::Kind::Plain, u"bleu"_s);
    other->dock(frame, 2);
    showFrame();
    EXPECT_EQ(other->height(), bar->height());
    EXPECT_EQ(other->widget(u"seul"_s)->height(), bar->widget(u"Précédent"_s)->height());
}

TEST_F(ToolbarTest, PicturesOfAnUprightBarStandInOneColumn) {
    showFrame();
    const auto picture = [this](const QString& key) {
        QToolButton* button = bar->widget(key);
        const QImage seen = button->grab().toImage();
        int first = seen.width();
        int last = -1;
        for (int x = 0; x < seen.width(); ++x) {
            const QColor colour = seen.pixelColor(x, seen.height() / 2);
            if (colour == Qt::red || colour == Qt::blue) {
                first = std::min(first, x);
                last = x;
            }
        }
        return std::pair(button->x() + first, last - first + 1);
    };
    for (const int edge : {3, 4}) {
        bar->dock(frame, edge);
        EVENTUALLY(bar->orientation() == Qt::Vertical && bar->height() > bar->width());
        EXPECT_EQ(picture(u"Précédent"_s).second, 24);
        EXPECT_EQ(picture(u"Précédent"_s), picture(u"Imprimer"_s)) << edge;
    }
    bar->dock(frame, 1);
    EVENTUALLY(bar->width() > bar->height());
    EXPECT_EQ(bar->widget(u"Précédent"_s)->y(), bar->widget(u"Imprimer"_s)->y());
}

} // namespace velm
