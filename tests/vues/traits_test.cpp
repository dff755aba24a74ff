#include "tests/vues/traits.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace velm::vues {

namespace {

QImage stroke(double at) {
    QImage picture(24, 24, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(at, 4, 2, 16), Qt::black);
    return picture;
}

} // namespace

TEST(Traits, AStrokeOnWholePixelsHasNoHalfTones) {
    EXPECT_EQ(halfTones(stroke(4)), 0);
    EXPECT_NEAR(halfTones(stroke(4.5)), 2. / 3, 0.01);
    QImage empty(8, 8, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    EXPECT_EQ(halfTones(empty), 0);
}

} // namespace velm::vues
