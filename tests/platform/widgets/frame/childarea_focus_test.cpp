// Which control of a child has the focus when the child comes back.
#include "childareafixture.h"

#include <QComboBox>

namespace velm {

namespace {

class ChildFocusTest : public ChildAreaTest {
protected:
    Form* addForm() {
        auto* form = new Form;
        area->add(form);
        area->place(form, ChildArea::Normal, 0, 0, 0, 0);
        area->activate(form);
        return form;
    }
    void clickTitle(const QWidget* child) const {
        QMdiSubWindow* window = area->around(child);
        QTest::mouseClick(window, Qt::LeftButton, {}, {window->width() / 2, 8});
    }
    static void click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }
};

} // namespace

TEST_F(ChildFocusTest, AFirstTimeTheChildItselfChooses) {
    showFrame();
    Form* form = addForm();
    EXPECT_TRUE(form->fields[1]->hasFocus());
}

TEST_F(ChildFocusTest, WalkingTheWindowsGivesItBackToTheControlThatHadIt) {
    for (const bool filling : {false, true}) {
        showFrame();
        Form* one = addForm();
        Form* two = addForm();
        if (filling)
            area->around(two)->showMaximized();
        two->fields[0]->setFocus();
        key(Qt::Key_Tab);
        one->fields[2]->setFocus();
        for (int turn = 0; turn < 3; ++turn) {
            key(Qt::Key_Tab);
            EXPECT_TRUE(two->fields[0]->hasFocus()) << filling << turn;
            key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
            EXPECT_TRUE(one->fields[2]->hasFocus()) << filling << turn;
        }
        area->around(one)->close();
        area->around(two)->close();
    }
}

TEST_F(ChildFocusTest, ClosingOrHidingTheOneInFrontGivesItBackToTheNextOnes) {
    showFrame();
    Form* one = addForm();
    one->fields[0]->setFocus();
    Form* two = addForm();
    two->fields[2]->setFocus();
    Form* three = addForm();
    area->hideChild(three);
    EXPECT_TRUE(two->fields[2]->hasFocus());
    area->around(two)->close();
    EXPECT_TRUE(one->fields[0]->hasFocus());
}

TEST_F(ChildFocusTest, AWindowHiddenAloneHasItAgainWhenItIsShown) {
    showFrame();
    Form* form = addForm();
    form->fields[2]->setFocus();
    area->hideChild(form);
    EXPECT_FALSE(form->isAncestorOf(QApplication::focusWidget()));
    area->activate(form);
    EXPECT_TRUE(form->fields[2]->hasFocus());
}

TEST_F(ChildFocusTest, ItStaysWhereItIsThroughAllStates) {
    showFrame();
    Form* form = addForm();
    QMdiSubWindow* window = area->around(form);
    form->fields[2]->setFocus();
    window->showMaximized();
    EXPECT_TRUE(form->fields[2]->hasFocus());
    window->showNormal();
    EXPECT_TRUE(form->fields[2]->hasFocus());
    window->showMinimized();
    EXPECT_FALSE(form->fields[2]->hasFocus());
    window->showNormal();
    EXPECT_TRUE(form->fields[2]->hasFocus());
    window->showMinimized();
    area->activate(form);
    EXPECT_TRUE(form->fields[2]->hasFocus());
}

TEST_F(ChildFocusTest, AClickOnTheTitleGivesItBackAndOneOnAControlGivesItToThatOne) {
    showFrame();
    Form* one = addForm();
    one->fields[0]->setFocus();
    Form* two = addForm();
    two->fields[0]->setFocus();
    area->arrange(ChildArea::Arrangement::TileHorizontal);
    clickTitle(one);
    EXPECT_EQ(area->activeChild(), one);
    EXPECT_TRUE(one->fields[0]->hasFocus());
    // What had it before the click is forgotten, also when the window changes its state later.
    click(two->fields[2]);
    EXPECT_EQ(area->activeChild(), two);
    EXPECT_TRUE(two->fields[2]->hasFocus());
    area->around(two)->showMaximized();
    EXPECT_TRUE(two->fields[2]->hasFocus());
    area->around(two)->showNormal();
    two->fields[1]->setFocus();
    clickTitle(one);
    clickTitle(two);
    EXPECT_TRUE(two->fields[1]->hasFocus());
}

TEST_F(ChildFocusTest, AControlThatCannotTakeItAnyMoreLeavesTheChoiceToTheChild) {
    showFrame();
    Form* one = addForm();
    for (const auto go : {+[](QWidget* field) { field->hide(); }, +[](QWidget* field) { field->setEnabled(false); },
                          +[](QWidget* field) { delete field; }}) {
        one->fields[0]->show();
        one->fields[0]->setEnabled(true);
        one->fields[0]->setFocus();
        Form* two = addForm();
        go(one->fields[0]);
        area->activate(one);
        EXPECT_TRUE(one->fields[1]->hasFocus());
        area->around(two)->close();
    }
}

TEST_F(ChildFocusTest, AClickIntoTheEmptySpaceOfAChildGivesItBack) {
    showFrame();
    Form* form = addForm();
    form->fields[2]->setFocus();
    QLineEdit outside(&frame);
    outside.show();
    outside.setFocus();
    ASSERT_TRUE(outside.hasFocus());
    QTest::mouseClick(form, Qt::LeftButton, {}, {2, 2});
    EXPECT_TRUE(form->fields[2]->hasFocus());
}

TEST_F(ChildFocusTest, WhatTakesItWhileTheWindowIsInFrontKeepsIt) {
    showFrame();
    Form* form = addForm();
    form->fields[2]->setFocus();
    QLineEdit outside(&frame);
    outside.show();
    outside.setFocus();
    form->fields[0]->setFocus();
    EXPECT_TRUE(form->fields[0]->hasFocus());
    area->activate(form);
    EXPECT_TRUE(form->fields[0]->hasFocus());
}

TEST_F(ChildFocusTest, NothingInsideAnIconHasTheFocus) {
    showFrame();
    Form* icon = addForm();
    Form* front = addForm();
    QMdiSubWindow* around = area->around(icon);
    around->showMinimized();
    area->activate(front);
    // One that begins anew each time that it becomes the active one.
    QObject::connect(area, &ChildArea::childActivated, icon, [icon](const QWidget* active) {
        if (active == icon)
            icon->fields[0]->setFocus();
    });
    key(Qt::Key_Tab);
    EXPECT_EQ(area->activeChild(), icon);
    EXPECT_EQ(QApplication::focusWidget(), around);
    area->activate(front);
    clickTitle(icon);
    EXPECT_EQ(area->activeChild(), icon);
    EXPECT_EQ(QApplication::focusWidget(), around);
    around->showNormal();
    EXPECT_TRUE(icon->fields[1]->hasFocus());
}

TEST_F(ChildFocusTest, AnIconThatWasUsedLastStaysBehindTheWindowsWhenOneCloses) {
    showFrame();
    Form* kept = addForm();
    Form* icon = addForm();
    Form* front = addForm();
    area->activate(icon);
    area->around(icon)->showMinimized();
    area->activate(front);
    area->setActiveSubWindow(area->around(icon)); // as a click on it does
    area->setActiveSubWindow(area->around(front));
    area->around(front)->close();
    EXPECT_EQ(area->activeChild(), kept);
    EXPECT_TRUE(kept->fields[1]->hasFocus());
    EXPECT_EQ(area->stateOf(icon), ChildArea::Minimised);
}

} // namespace velm
