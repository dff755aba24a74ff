// Everything that is read, and everything that tells a state, can be told from what lies around it: in both palettes,
// by the palette and by the pictures that the style draws.
#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/look/boxpaint.h"
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"
#include "tests/support/contrast.h"

#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;
using test::contrast;
using test::luminance;
using test::states;
using test::words;

namespace {

class Contrast : public testing::TestWithParam<look::Theme> {
protected:
    QColor colour(QPalette::ColorRole role) const { return palette.color(role); }
    QColor window() const { return colour(QPalette::Window); }

    /// What `draw` leaves on a ground, in the middle row; the corners of boxes are round.
    QImage drawn(const QColor& ground, const QSize& size, const std::function<void(QPainter&)>& draw) const {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(ground);
        QPainter painter(&picture);
        draw(painter);
        painter.end();
        return picture;
    }
    QImage middleRow(const QImage& picture) const { return picture.copy(0, picture.height() / 2, picture.width(), 1); }

    QStyleOptionButton button(QStyle::State state, QStyleOptionButton::ButtonFeatures features = {}) const {
        QStyleOptionButton option;
        option.rect = QRect(0, 0, 96, 28);
        option.palette = palette;
        option.state = state | QStyle::State_Enabled;
        option.features = features;
        option.text = u"Rechercher"_s;
        return option;
    }
    QImage pushed(const QStyleOptionButton& option) const {
        return drawn(window(), option.rect.size(),
                     [&](QPainter& painter) { style.drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter); });
    }
    QImage primitive(QStyle::PrimitiveElement element, QStyle::State state, const QColor& ground,
                     const QSize& size = {16, 16}) const {
        QStyleOption option;
        option.rect = QRect(QPoint(), size);
        option.palette = palette;
        option.state = state | QStyle::State_Enabled;
        return drawn(ground, size, [&](QPainter& painter) { style.drawPrimitive(element, &option, &painter); });
    }
    QImage onBar(QStyle::State state) const {
        QStyleOptionToolButton option;
        option.rect = QRect(0, 0, 36, 36);
        option.palette = palette;
        option.state = state | QStyle::State_Enabled | QStyle::State_AutoRaise;
        option.subControls = QStyle::SC_ToolButton;
        return drawn(window(), option.rect.size(),
                     [&](QPainter& painter) { style.drawComplexControl(QStyle::CC_ToolButton, &option, &painter); });
    }

    QPalette palette = look::palette(GetParam());
    FrameStyle style{QStyleFactory::create(u"Fusion"_s)};
};

} // namespace

TEST_P(Contrast, AllWordsAreLegibleOnAllGrounds) {
    const QList<QColor> grounds{window(), colour(QPalette::Base), colour(QPalette::AlternateBase),
                                colour(QPalette::Button), look::ground(GetParam())};
    for (const QColor& ground : grounds) {
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText,
                                QPalette::Link, QPalette::LinkVisited})
            EXPECT_GE(contrast(colour(role), ground), words) << role << " on " << ground.name().toStdString();
        EXPECT_GE(contrast(look::accentColour(GetParam()), ground), words) << ground.name().toStdString();
        EXPECT_GE(contrast(look::warningColour(GetParam()), ground), words) << ground.name().toStdString();
    }
    EXPECT_GE(contrast(colour(QPalette::ToolTipText), colour(QPalette::ToolTipBase)), words);
    EXPECT_GE(contrast(colour(QPalette::HighlightedText), colour(QPalette::Highlight)), words);
}

TEST_P(Contrast, TheGroundIsDarkerThanTheWindows) {
    EXPECT_LT(luminance(look::ground(GetParam())), luminance(window()));
    EXPECT_GE(contrast(look::ground(GetParam()), window()), 1.1);
}

TEST_P(Contrast, ASelectionIsToldWithAndWithoutTheFocus) {
    const QColor base = colour(QPalette::Base);
    EXPECT_GE(contrast(colour(QPalette::Highlight), base), states);
    const QPalette quiet = gridlook::unfocused(palette);
    EXPECT_GE(contrast(quiet.color(QPalette::HighlightedText), quiet.color(QPalette::Highlight)), words);
    EXPECT_GE(contrast(colour(QPalette::PlaceholderText), quiet.color(QPalette::Highlight)), words);
    const QImage row = drawn(base, {40, 24}, [&](QPainter& painter) {
        painter.fillRect(0, 0, 40, 24, quiet.color(QPalette::Highlight));
        gridlook::paintUnfocused(painter, QRect(0, 0, 40, 24), quiet);
    });
    for (const int y : {0, 23})
        EXPECT_GE(contrast(row.pixelColor(20, y), base), states) << y;
}

TEST_P(Contrast, APressedButtonIsToldFromOneThatIsNot) {
    for (const auto state : {QStyle::State_On, QStyle::State_Sunken}) {
        EXPECT_GE(contrast(onBar(state), window()), states) << state;
        EXPECT_GT(contrast(onBar(state).pixelColor(18, 4), window()), 1.05) << state;
        EXPECT_GE(contrast(middleRow(pushed(button(state))), window()), states) << state;
    }
    EXPECT_LT(contrast(onBar({}), window()), 1.01) << "an idle one is flat";
    const QColor hovered = onBar(QStyle::State_MouseOver).pixelColor(18, 18);
    EXPECT_GT(contrast(hovered, window()), 1.05);
    EXPECT_GE(contrast(colour(QPalette::WindowText), onBar(QStyle::State_On).pixelColor(18, 18)), words);
    EXPECT_GE(contrast(look::accentColour(GetParam()), onBar(QStyle::State_On).pixelColor(18, 18)), states);
}

/// Many of them are down all day: they are told by a line below their picture, and lie on no box.
TEST_P(Contrast, APressedButtonOfABarIsQuiet) {
    const QImage on = onBar(QStyle::State_On);
    EXPECT_LT(contrast(on.copy(0, 0, 36, 30), window()), 1.5);
    EXPECT_GE(contrast(on.pixelColor(18, 33), window()), states);
    EXPECT_LT(contrast(on.pixelColor(4, 33), window()), 1.5) << "the line is short";
    EXPECT_NE(onBar(QStyle::State_On | QStyle::State_MouseOver), on);
}

TEST_P(Contrast, TheDefaultButtonIsFilledAndItsWordsAreWhite) {
    for (const auto state : {QStyle::State_None, QStyle::State_MouseOver, QStyle::State_Sunken}) {
        const QStyleOptionButton option = button(state, QStyleOptionButton::DefaultButton);
        const QImage picture = pushed(option);
        EXPECT_GE(contrast(middleRow(picture), window()), states) << state;
        EXPECT_GE(contrast(Qt::white, picture.pixelColor(48, 14)), words) << state;
        const QImage label = drawn(picture.pixelColor(48, 14), option.rect.size(), [&](QPainter& painter) {
            style.drawControl(QStyle::CE_PushButtonLabel, &option, &painter);
        });
        EXPECT_GE(contrast(label, picture.pixelColor(48, 14)), words) << state;
    }
    EXPECT_GE(contrast(pushed(button({})).pixelColor(48, 14),
                       pushed(button({}, QStyleOptionButton::DefaultButton)).pixelColor(48, 14)),
              2.5)
        << "it is told from the others";
    QStyleOptionButton off = button({}, QStyleOptionButton::DefaultButton);
    off.state &= ~QStyle::State_Enabled;
    EXPECT_LT(contrast(pushed(off).pixelColor(48, 14), window()), 1.5) << "one that is off is not filled";
}

TEST_P(Contrast, EdgesOfFieldsAndBoxesAreSeen) {
    const QColor base = colour(QPalette::Base);
    for (const QColor& ground : {window(), base}) {
        EXPECT_GE(contrast(middleRow(primitive(QStyle::PE_FrameLineEdit, {}, ground, {80, 28})), ground), states);
        for (const auto box : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
            for (const auto state : {QStyle::State_Off, QStyle::State_On, QStyle::State_NoChange})
                EXPECT_GE(contrast(middleRow(primitive(box, state, ground)), ground), states) << box << ' ' << state;
        }
    }
    EXPECT_GE(contrast(middleRow(pushed(button({}))), window()), states);
    EXPECT_GE(contrast(primitive(QStyle::PE_IndicatorArrowDown, {}, window()), window()), states);
}

TEST_P(Contrast, AMarkIsSeenInItsBox) {
    for (const auto box : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
        const QImage on = primitive(box, QStyle::State_On, window());
        EXPECT_GE(contrast(on.copy(4, 4, 8, 8), look::defaultButton(GetParam())), words) << box;
    }
}

TEST_P(Contrast, SeparatorsOfBarsAreSeen) {
    for (const auto lying : {QStyle::State_Horizontal, QStyle::State_None})
        EXPECT_GE(contrast(primitive(QStyle::PE_IndicatorToolBarSeparator, lying, window(), {9, 9}), window()), states);
    const QImage upright = primitive(QStyle::PE_IndicatorToolBarSeparator, QStyle::State_Horizontal, window(), {9, 40});
    int high = 0;
    for (int y = 0; y < 40; ++y)
        high += contrast(upright.pixelColor(4, y), window()) > 1.5 ? 1 : 0;
    EXPECT_EQ(high, 24);
}

TEST_P(Contrast, TheThumbOfAScrollBarIsSeenOnAllThatItLiesOn) {
    QStyleOptionSlider bar;
    bar.rect = QRect(0, 0, 12, 200);
    bar.palette = palette;
    bar.orientation = Qt::Vertical;
    bar.state = QStyle::State_Enabled;
    bar.maximum = 100;
    bar.pageStep = 50;
    bar.subControls = QStyle::SC_All;
    const look::Sheet sheet = look::sheet(Qt::white, palette);
    for (const QColor& ground : {window(), colour(QPalette::Base), sheet.surface}) {
        bar.palette.setColor(QPalette::Window, ground);
        const auto thumb = [&] {
            return drawn(ground, bar.rect.size(),
                         [&](QPainter& painter) { style.drawComplexControl(QStyle::CC_ScrollBar, &bar, &painter); });
        };
        bar.sliderPosition = 0;
        const QImage above = thumb();
        EXPECT_GE(contrast(above.pixelColor(6, 20), ground), states) << ground.name().toStdString();
        EXPECT_LT(contrast(above.pixelColor(6, 190), ground), 1.01) << "no track, no arrow";
        bar.sliderPosition = 100;
        EXPECT_GE(contrast(thumb().pixelColor(6, 180), ground), states);
        EXPECT_LT(contrast(thumb().pixelColor(6, 10), ground), 1.01);
    }
}

TEST_P(Contrast, TheThumbOfAScrollBarIsThinUntilItIsWanted) {
    QStyleOptionSlider bar;
    bar.rect = QRect(0, 0, 12, 200);
    bar.palette = palette;
    bar.orientation = Qt::Vertical;
    bar.maximum = 100;
    bar.pageStep = 50;
    bar.subControls = QStyle::SC_All;
    const auto width = [&](QStyle::State state) {
        bar.state = state | QStyle::State_Enabled;
        bar.activeSubControls = QStyle::SC_ScrollBarSlider;
        const QImage picture = drawn(window(), bar.rect.size(), [&](QPainter& painter) {
            style.drawComplexControl(QStyle::CC_ScrollBar, &bar, &painter);
        });
        int wide = 0;
        for (int x = 0; x < 12; ++x)
            wide += contrast(picture.pixelColor(x, 40), window()) >= states ? 1 : 0;
        return wide;
    };
    EXPECT_EQ(width({}), 6);
    EXPECT_EQ(width(QStyle::State_MouseOver), 10);
    EXPECT_EQ(width(QStyle::State_Sunken), 10);
}

TEST_P(Contrast, TheChosenTabAndTheFocusAreSeen) {
    QStyleOptionTab tab;
    tab.rect = QRect(0, 0, 80, 30);
    tab.palette = palette;
    tab.state = QStyle::State_Enabled | QStyle::State_Selected;
    const auto shape = [&] {
        return drawn(window(), tab.rect.size(),
                     [&](QPainter& painter) { style.drawControl(QStyle::CE_TabBarTabShape, &tab, &painter); });
    };
    EXPECT_GE(contrast(shape(), window()), states);
    tab.state = QStyle::State_Enabled;
    EXPECT_LT(contrast(shape(), window()), 1.01);
    for (const QColor& ground : {window(), colour(QPalette::Base), look::ground(GetParam())})
        EXPECT_GE(contrast(look::focusColour(GetParam()), ground), states) << ground.name().toStdString();
}

TEST_P(Contrast, NothingButTheRingTellsTheFocus) {
    constexpr auto focus = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    EXPECT_EQ(pushed(button(focus)), pushed(button({})));
    EXPECT_EQ(onBar(focus), onBar({}));
    for (const auto element : {QStyle::PE_FrameLineEdit, QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton,
                               QStyle::PE_Frame, QStyle::PE_FrameFocusRect})
        EXPECT_EQ(primitive(element, focus, window()), primitive(element, {}, window())) << element;
    QStyleOptionFocusRect frame;
    frame.rect = QRect(0, 0, 40, 20);
    frame.palette = palette;
    frame.state = focus | QStyle::State_Enabled;
    const QImage framed = drawn(window(), frame.rect.size(), [&](QPainter& painter) {
        style.drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter);
    });
    EXPECT_LT(contrast(framed, window()), 1.01);
}

TEST_P(Contrast, PicturesOfTheCollectionsAreSeen) {
    for (int slot = 0; slot < 12; ++slot) {
        for (const QColor& ground : {window(), colour(QPalette::Base), look::ground(GetParam())})
            EXPECT_GE(contrast(look::hue(slot, GetParam()), ground), states) << slot;
    }
}

// ---- what was found in a text

namespace {

/// A sheet as it looks where something was found: the ground lies over paper and words.
class Found : public Contrast {
protected:
    QColor over(const look::Sheet& sheet, const QColor& under, const QColor& ground) const {
        return drawn(under, {1, 1},
                     [&](QPainter& painter) {
                         painter.setCompositionMode(sheet.lightPaper ? QPainter::CompositionMode_Multiply
                                                                     : QPainter::CompositionMode_Screen);
                         painter.fillRect(0, 0, 1, 1, ground);
                     })
            .pixelColor(0, 0);
    }
    QList<look::Sheet> sheets() const {
        QList<look::Sheet> all;
        for (const QRgb paper : {0xFFFFFFFF, 0xFFFFFFE1, 0xFFEAF3FA, 0xFFF3EAE0, 0xFF1E2125})
            all << look::sheet(QColor::fromRgb(paper), palette);
        return all << look::sheet(look::softPaper(Qt::white), palette);
    }
};

} // namespace

TEST_P(Found, WordsAreLegibleOnTheGroundsOfMarks) {
    constexpr QColor marked(0x5C, 0x2E, 0x00); // as the publisher's settings have it
    for (const look::Sheet& sheet : sheets()) {
        QList<QColor> inks{sheet.ink, sheet.link};
        if (sheet.lightPaper)
            inks << QColor::fromRgb(look::accent) << marked;
        for (const QColor& ground : {sheet.found, sheet.foundCurrent}) {
            for (const QColor& ink : std::as_const(inks))
                EXPECT_GE(contrast(over(sheet, ink, ground), over(sheet, sheet.paper, ground)), words)
                    << ink.name().toStdString() << " on " << sheet.paper.name().toStdString();
        }
    }
}

TEST_P(Found, TheCurrentMarkIsToldFromTheOthers) {
    for (const look::Sheet& sheet : sheets()) {
        const QColor others = over(sheet, sheet.paper, sheet.found);
        const QColor current = over(sheet, sheet.paper, sheet.foundCurrent);
        EXPECT_GT(contrast(others, sheet.paper), 1.15) << sheet.paper.name().toStdString();
        EXPECT_GT(contrast(current, others), 1.3) << sheet.paper.name().toStdString();
        for (const QColor& beside : {sheet.paper, others})
            EXPECT_GE(contrast(sheet.foundRing, beside), states) << sheet.paper.name().toStdString();
    }
}

TEST_P(Found, TicksBesideAScrollBarAreSeen) {
    for (const QColor& ground : {look::sheet(Qt::white, palette).surface, window()}) {
        EXPECT_GE(contrast(look::foundTick(ground, false), ground), states) << ground.name().toStdString();
        EXPECT_GE(contrast(look::foundTick(ground, true), ground), states) << ground.name().toStdString();
        EXPECT_GT(contrast(look::foundTick(ground, true), look::foundTick(ground, false)), 1.5);
    }
}

INSTANTIATE_TEST_SUITE_P(Themes, Found, testing::Values(look::Theme::Light, look::Theme::Dark));

INSTANTIATE_TEST_SUITE_P(Themes, Contrast, testing::Values(look::Theme::Light, look::Theme::Dark));

} // namespace velm
