#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// The greatest contrast of a picture's pixels against its corner.
double contrast(const QImage& picture) {
    const double ground = luminance(picture.pixelColor(0, 0));
    double most = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double ink = luminance(picture.pixelColor(x, y));
            most = std::max(most, (std::max(ink, ground) + 0.05) / (std::min(ink, ground) + 0.05));
        }
    }
    return most;
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

TEST_P(FrameStyleTest, TheActiveTitleIsToldFromTheOthers) {
    EXPECT_NE(titleBar(style, GetParam(), true, QStyle::SC_TitleBarLabel).pixelColor(0, 0),
              titleBar(style, GetParam(), false, QStyle::SC_TitleBarLabel).pixelColor(0, 0));
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

INSTANTIATE_TEST_SUITE_P(Themes, FrameStyleTest, testing::Values(look::Theme::Light, look::Theme::Dark));

} // namespace velm
