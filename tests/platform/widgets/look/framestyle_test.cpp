#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"
#include "tests/support/contrast.h"
#include "tests/support/styleofprogram.h"

#include <QComboBox>
#include <QListView>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Of all pixels against the corner.
double contrast(const QImage& picture) {
    return test::contrast(picture, picture.pixelColor(0, 0));
}

/// A title bar as child windows have it.
QImage titleBar(const QStyle& style, look::Theme theme, bool active, QStyle::SubControl part) {
    QStyleOptionTitleBar option;
    option.rect = QRect(0, 0, 400, 24);
    option.palette = look::palette(theme);
    option.text = u"Code de la consommation"_s;
    option.subControls = QStyle::SC_All;
    option.titleBarFlags = Qt::SubWindow | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint;
    option.titleBarState = active ? int(QStyle::State_Active) : 0;
    QImage picture(400, 24, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QPainter painter(&picture);
    style.drawComplexControl(QStyle::CC_TitleBar, &option, &painter);
    painter.end();
    return picture.copy(style.subControlRect(QStyle::CC_TitleBar, &option, part).adjusted(2, 2, -2, -2));
}

class FrameStyleTest : public testing::TestWithParam<look::Theme> {
protected:
    FrameStyle style{QStyleFactory::create(u"Fusion"_s)};
};

} // namespace

TEST_P(FrameStyleTest, TitlesAndTheirButtonsAreLegible) {
    for (const bool active : {true, false}) {
        for (const auto part : {QStyle::SC_TitleBarLabel, QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarMaxButton,
                                QStyle::SC_TitleBarCloseButton})
            EXPECT_GE(contrast(titleBar(style, GetParam(), active, part)), 4.5) << part << ' ' << active;
    }
}

/// What a frame surrounds begins one pixel of the layout inside it, wherever that comes to lie on the screen.
TEST_P(FrameStyleTest, AFrameIsSeenOnAllFourSidesAtOneAndAHalfTimesTheSize) {
    for (int shift = 0; shift < 4; ++shift) {
        QImage screen(120, 90, QImage::Format_RGB32);
        screen.setDevicePixelRatio(1.5);
        screen.fill(Qt::magenta);
        QStyleOptionFrame option;
        option.palette = look::palette(GetParam());
        option.rect = QRect(10 + shift, 10 + shift, 50, 30);
        option.lineWidth = 1;
        QPainter painter(&screen);
        style.drawPrimitive(QStyle::PE_Frame, &option, &painter);
        painter.fillRect(option.rect.adjusted(1, 1, -1, -1), Qt::white);
        painter.end();
        const QRgb line = quietLine(option.palette).rgb();
        const QPoint centre =
            QRectF(QPointF(option.rect.topLeft()) * 1.5, QSizeF(option.rect.size()) * 1.5).center().toPoint();
        const auto isSeen = [&](const QPoint& step) {
            QPoint here = centre;
            while (screen.pixel(here) == QColor(Qt::white).rgb())
                here += step;
            return screen.pixel(here) == line;
        };
        for (const QPoint step : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
            EXPECT_TRUE(isSeen(step)) << shift << ' ' << step.x() << ' ' << step.y();
    }
}

TEST_P(FrameStyleTest, TheActiveTitleIsToldFromTheOthers) {
    EXPECT_NE(titleBar(style, GetParam(), true, QStyle::SC_TitleBarLabel).pixelColor(0, 0),
              titleBar(style, GetParam(), false, QStyle::SC_TitleBarLabel).pixelColor(0, 0));
}

TEST_P(FrameStyleTest, WhatABoxOffersIsAListOfAFewRows) {
    QWidget window;
    QComboBox box(&window);
    box.setStyle(&style);
    for (int row = 0; row < 60; ++row)
        box.addItem(QString::number(row));
    window.show();
    box.showPopup();
    EXPECT_GT(box.view()->window()->height(), 3 * box.view()->sizeHintForRow(0));
    EXPECT_LT(box.view()->window()->height(), 20 * box.view()->sizeHintForRow(0));
    box.hidePopup();
}

/// Where the screen is low, above a field and below it.
TEST_P(FrameStyleTest, NoRowOfWhatABoxOffersIsCut) {
    const test::StyleOfProgram ofProgram(GetParam());
    QWidget window;
    QComboBox box(&window);
    box.setItemDelegate(new QStyledItemDelegate(&box));
    QFont large = box.font();
    large.setPixelSize(60);
    box.setFont(large);
    for (int row = 0; row < 60; ++row)
        box.addItem(QString::number(row));
    const int screen = window.screen()->availableGeometry().height();
    for (const int top : {20, screen / 2 - 20, screen - 200}) {
        window.setGeometry(0, top, 400, 100);
        window.show();
        box.showPopup();
        const int row = box.view()->sizeHintForRow(0);
        const QRect offered = box.view()->window()->geometry();
        EXPECT_EQ(box.view()->viewport()->height() % row, 0) << top;
        EXPECT_GE(box.view()->viewport()->height(), row) << top;
        EXPECT_GE(row, box.view()->fontMetrics().height() + 8) << "as rows of lists are";
        EXPECT_LE(offered.bottom(), screen);
        EXPECT_GE(offered.top(), 0);
        box.hidePopup();
    }
}

TEST_P(FrameStyleTest, WhatCannotBeHadIsDrawnOnce) {
    EXPECT_EQ(style.styleHint(QStyle::SH_EtchDisabledText), 0);
}

TEST_P(FrameStyleTest, ThinLinesAreSeen) {
    const QPalette palette = look::palette(GetParam());
    QImage picture(2, 1, QImage::Format_RGB32);
    picture.setPixelColor(0, 0, palette.color(QPalette::Window));
    picture.setPixelColor(1, 0, quietLine(palette));
    EXPECT_GE(contrast(picture), 1.3);
}

TEST_P(FrameStyleTest, TheLinesBetweenMenuEntriesAreSeen) {
    QStyleOptionMenuItem option;
    option.rect = QRect(0, 0, 100, 7);
    option.palette = look::palette(GetParam());
    option.menuItemType = QStyleOptionMenuItem::Separator;
    QImage picture(100, 7, QImage::Format_RGB32);
    picture.fill(option.palette.color(QPalette::Base));
    QPainter painter(&picture);
    style.drawControl(QStyle::CE_MenuItem, &option, &painter);
    painter.end();
    EXPECT_GE(contrast(picture), 1.3);
}

TEST_P(FrameStyleTest, WordsOfButtonsHaveRoomAndFieldsAreAsHighAsButtons) {
    QStyleOptionButton button;
    button.text = u"Tout désélectionner"_s;
    const auto size = [this](QStyle::ContentsType type, const QStyleOption& option, const QSize& contents) {
        return style.sizeFromContents(type, &option, contents, nullptr);
    };
    EXPECT_EQ(size(QStyle::CT_PushButton, button, {120, 16}), QSize(144, 28));
    EXPECT_EQ(size(QStyle::CT_PushButton, button, {20, 16}), QSize(80, 28)) << "OK";
    EXPECT_EQ(size(QStyle::CT_PushButton, button, {120, 30}), QSize(144, 40)) << "large type";
    button.text.clear();
    EXPECT_EQ(size(QStyle::CT_PushButton, button, {16, 16}).width(), 40) << "a picture";
    EXPECT_EQ(size(QStyle::CT_LineEdit, QStyleOptionFrame(), {100, 16}).height(), 28);
    EXPECT_EQ(size(QStyle::CT_ComboBox, QStyleOptionComboBox(), {100, 16}).height(), 28);
    EXPECT_EQ(size(QStyle::CT_LineEdit, QStyleOptionFrame(), {100, 32}).height(), 40);
    QStyleOptionMenuItem entry;
    entry.text = u"Quitter"_s;
    EXPECT_GE(size(QStyle::CT_MenuItem, entry, {100, 16}).height(), 26);
}

TEST_P(FrameStyleTest, AScrollBarIsAllGrooveAndItsThumbCanBeCaught) {
    QStyleOptionSlider bar;
    bar.rect = QRect(0, 0, 12, 200);
    bar.orientation = Qt::Vertical;
    bar.maximum = 100'000'000;
    bar.pageStep = 10;
    bar.sliderPosition = 50'000'000;
    const auto part = [&](QStyle::SubControl control) {
        return style.subControlRect(QStyle::CC_ScrollBar, &bar, control);
    };
    EXPECT_EQ(part(QStyle::SC_ScrollBarGroove), bar.rect);
    EXPECT_TRUE(part(QStyle::SC_ScrollBarAddLine).isEmpty());
    EXPECT_TRUE(part(QStyle::SC_ScrollBarSubLine).isEmpty());
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, 86, 12, 28));
    EXPECT_EQ(part(QStyle::SC_ScrollBarSubPage), QRect(0, 0, 12, 86));
    EXPECT_EQ(part(QStyle::SC_ScrollBarAddPage), QRect(0, 114, 12, 86));
    bar.maximum = 30;
    bar.sliderPosition = 30;
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), QRect(0, 150, 12, 50)) << "as much of it as is seen";
    bar.rect = QRect(7, 0, 12, 20);
    EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), bar.rect) << "no longer than the bar";
}

TEST_P(FrameStyleTest, TheBarsOfAListStandOnTheListsGround) {
    QListView list;
    QTextEdit text;
    for (QAbstractScrollArea* area : std::initializer_list<QAbstractScrollArea*>{&list, &text}) {
        style.polish(area->verticalScrollBar());
        EXPECT_FALSE(area->verticalScrollBar()->testAttribute(Qt::WA_OpaquePaintEvent));
        EXPECT_EQ(area->verticalScrollBar()->backgroundRole() == QPalette::Base, area == &list);
    }
    EXPECT_EQ(style.pixelMetric(QStyle::PM_ScrollBarExtent), 12);
}

INSTANTIATE_TEST_SUITE_P(Themes, FrameStyleTest, testing::Values(look::Theme::Light, look::Theme::Dark));

} // namespace velm
