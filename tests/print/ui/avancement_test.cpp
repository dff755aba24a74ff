// The box that shows how far a print has come.
#include "print/ui/avancementimpression.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class AvancementTest : public testing::Test {
protected:
    static QProgressDialog* boite() { return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()); }
    AvancementImpression avancement{[](Texte lequel) {
                                        return lequel == Texte::ApercuPage   ? u"Page %1 sur %2"_s
                                               : lequel == Texte::AvancePage ? u"Page %1"_s
                                                                             : u"mot"_s;
                                    },
                                    []() -> QWidget* { return nullptr; }};
};

} // namespace

TEST_F(AvancementTest, WhatIsDoneAtOnceShowsNoBox) {
    for (int page = 1; page < 1000; ++page)
        EXPECT_TRUE(avancement.page(page, 0));
    EXPECT_EQ(boite(), nullptr);
    avancement.finit();
}

TEST_F(AvancementTest, LongWorkShowsItsPagesAndIsStoppedByTheButton) {
    EXPECT_TRUE(avancement.page(1, 0));
    QTest::qSleep(450);
    EXPECT_TRUE(avancement.page(2, 0));
    ASSERT_NE(boite(), nullptr);
    EXPECT_EQ(boite()->labelText(), u"Page 2");
    QTest::qSleep(50);
    EXPECT_TRUE(avancement.page(3, 12));
    EXPECT_EQ(boite()->labelText(), u"Page 3 sur 12");
    EXPECT_EQ(boite()->value(), 3);
    QTest::mouseClick(boite()->findChild<QPushButton*>(), Qt::LeftButton);
    QTest::qSleep(50);
    EXPECT_FALSE(avancement.page(4, 12));
    avancement.finit();
    EXPECT_EQ(boite(), nullptr);
    // The next work begins anew.
    EXPECT_TRUE(avancement.page(1, 0));
    EXPECT_EQ(boite(), nullptr);
    avancement.finit();
}

} // namespace velm
