#include "platform/widgets/look/look.h"
#include "tests/support/contrast.h"

#include <gtest/gtest.h>
#include <set>

namespace velm {

using test::contrast;
using test::luminance;

TEST(Look, TextContrastsWithItsGround) {
    for (const auto theme : {look::Theme::Light, look::Theme::Dark}) {
        const QPalette palette = look::palette(theme);
        EXPECT_EQ(look::themeOf(palette), theme);
        EXPECT_GT(contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), 7);
        EXPECT_GT(contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), 7);
        EXPECT_GT(contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), 7);
        EXPECT_GT(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 4.5);
        EXPECT_GT(contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)), 7);
        EXPECT_GT(contrast(look::accentColour(theme), palette.color(QPalette::Window)), 4.5);
        EXPECT_GT(contrast(look::warningColour(theme), palette.color(QPalette::Window)), 4.5);
    }
}

TEST(Look, WhatLiesOnTheSheetContrastsWithIt) {
    for (const auto theme : {look::Theme::Light, look::Theme::Dark}) {
        for (const QColor paper : {QColor(Qt::white), QColor(255, 255, 192), QColor(20, 20, 30)}) {
            const look::Sheet sheet = look::sheet(paper, look::palette(theme));
            EXPECT_EQ(sheet.paper, paper);
            EXPECT_GT(contrast(sheet.ink, paper), 7);
            EXPECT_GT(contrast(sheet.link, paper), 4.5);
        }
    }
}

TEST(Look, WhatWasFoundCanBeReadAndSeen) {
    const auto multiplied = [](const QColor& a, const QColor& b) {
        return QColor::fromRgbF(a.redF() * b.redF(), a.greenF() * b.greenF(), a.blueF() * b.blueF());
    };
    for (const auto theme : {look::Theme::Light, look::Theme::Dark}) {
        for (const QColor& paper : {QColor(Qt::white), look::softPaper(Qt::white), QColor(255, 255, 192)}) {
            const look::Sheet sheet = look::sheet(paper, look::palette(theme));
            EXPECT_GT(contrast(sheet.link, paper), 4.5);
            for (const QColor& ground : {sheet.found, sheet.foundCurrent}) {
                EXPECT_GT(contrast(multiplied(sheet.ink, ground), multiplied(paper, ground)), 4.5);
                EXPECT_GT(contrast(multiplied(sheet.link, ground), multiplied(paper, ground)), 4.5);
            }
            EXPECT_GT(contrast(sheet.foundRing, paper), 3);
            EXPECT_GT(contrast(sheet.foundRing, multiplied(paper, sheet.foundCurrent)), 3);
            EXPECT_GT(contrast(look::foundTick(paper, false), paper), 3);
            EXPECT_GT(contrast(look::foundTick(paper, true), paper), 3);
            EXPECT_GT(contrast(look::foundTick(sheet.surface, false), sheet.surface), 3);
            EXPECT_GT(contrast(look::foundTick(sheet.surface, true), sheet.surface), 3);
        }
    }
}

TEST(Look, ASoftPaperIsGreyerAndDarkPaperStays) {
    EXPECT_EQ(look::softPaper(Qt::white), QColor(0xE8, 0xEA, 0xED));
    const QColor yellow = look::softPaper(QColor(255, 255, 192));
    EXPECT_EQ(yellow.red(), 0xE8);
    EXPECT_LT(yellow.blue(), 192);
    EXPECT_EQ(look::softPaper(QColor(20, 20, 30)), QColor(20, 20, 30));
}

TEST(Look, TheCollectionsHuesDifferAndWeighTheSame) {
    for (const auto theme : {look::Theme::Light, look::Theme::Dark}) {
        std::set<QRgb> seen;
        const QColor ground = look::palette(theme).color(QPalette::Window);
        for (int slot = 0; slot < 12; ++slot) {
            const QColor hue = look::hue(slot, theme);
            seen.insert(hue.rgb());
            EXPECT_GT(contrast(hue, ground), 3.5) << slot;
            EXPECT_NEAR(luminance(hue), luminance(look::hue(0, theme)), theme == look::Theme::Light ? 0.04 : 0.08)
                << slot;
        }
        EXPECT_EQ(seen.size(), 12U);
        EXPECT_EQ(look::hue(-1, theme), look::hue(0, theme));
        EXPECT_EQ(look::hue(40, theme), look::hue(11, theme));
    }
}

} // namespace velm
