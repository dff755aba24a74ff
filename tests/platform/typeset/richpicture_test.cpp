#include "platform/typeset/richpicture.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace velm {

namespace {

QByteArray encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QImage sampleImage() {
    QImage image(16, 12, QImage::Format_RGB32);
    image.fill(Qt::blue);
    image.setPixelColor(1, 2, Qt::yellow);
    return image;
}

/// A number as so many bytes, the low one first.
QByteArray number(quint32 value, int bytes) {
    QByteArray out(bytes, '\0');
    for (int i = 0; i < bytes; ++i)
        out[i] = static_cast<char>(value >> (8 * i));
    return out;
}

/// A metafile's record.
QByteArray record(quint32 function, const QByteArray& parameters) {
    QByteArray padded = parameters;
    padded.append(padded.size() % 2, '\0');
    return number(static_cast<quint32>(6 + padded.size()) / 2, 4) + number(function, 2) + padded;
}

} // namespace

TEST(RichPicture, PngAndBareBitmapsAreRead) {
    const QImage image = sampleImage();
    const QImage png = pictureOf({RichObject::Kind::Png, encoded(image, "PNG"), 0, 0});
    ASSERT_EQ(png.size(), image.size());
    EXPECT_EQ(png.pixelColor(1, 2), QColor(Qt::yellow));
    // A bitmap in a text lacks the file's header of fourteen bytes.
    const QImage dib = pictureOf({RichObject::Kind::Dib, encoded(image, "BMP").mid(14), 0, 0});
    ASSERT_EQ(dib.size(), image.size());
    EXPECT_EQ(dib.pixelColor(1, 2), QColor(Qt::yellow));
    const QImage indexed = image.convertToFormat(QImage::Format_Indexed8);
    const QImage eight = pictureOf({RichObject::Kind::Dib, encoded(indexed, "BMP").mid(14), 0, 0});
    ASSERT_EQ(eight.size(), image.size());
    EXPECT_EQ(eight.pixelColor(1, 2), QColor(Qt::yellow));
}

TEST(RichPicture, TheBitmapInsideAMetafileIsShown) {
    const QByteArray dib = encoded(sampleImage(), "BMP").mid(14);
    const QByteArray header(18, '\1');
    const QByteArray origin = record(0x020B, QByteArray(4, '\0'));
    for (const auto& [function, before] : {std::pair{0x0F43U, 22}, {0x0B41U, 20}, {0x0940U, 16}, {0x0D33U, 18}}) {
        const QByteArray drawing = record(function, QByteArray(before, '\0') + dib);
        const QByteArray placeable = number(0x9AC6CDD7U, 4) + QByteArray(18, '\0');
        for (const QByteArray& metafile : {header + origin + drawing, placeable + header + origin + drawing}) {
            const QImage image = pictureOf({RichObject::Kind::Wmf, metafile, 0, 0});
            ASSERT_EQ(image.size(), sampleImage().size()) << function;
            EXPECT_EQ(image.pixelColor(1, 2), QColor(Qt::yellow));
        }
        for (qsizetype cut = 0; cut < header.size() + origin.size() + drawing.size(); ++cut)
            pictureOf({RichObject::Kind::Wmf, (header + origin + drawing).left(cut), 0, 0});
    }
}

TEST(RichPicture, TheBitmapInsideAnEnhancedMetafileIsShown) {
    const QByteArray dib = encoded(sampleImage(), "BMP").mid(14);
    for (const auto& [type, place] : {std::pair{81U, 48}, {80U, 48}, {76U, 84}, {77U, 84}}) {
        QByteArray record = number(type, 4) + QByteArray(4, '\0') + QByteArray(place - 8, '\0');
        record += number(static_cast<quint32>(place) + 16, 4) + number(40, 4);
        record += number(static_cast<quint32>(place) + 16 + 40, 4) + number(static_cast<quint32>(dib.size()) - 40, 4);
        record += dib;
        record.replace(4, 4, number(static_cast<quint32>(record.size()), 4));
        const QByteArray metafile = number(1, 4) + number(40, 4) + QByteArray(32, '\0') + record;
        for (qsizetype cut = 0; cut < metafile.size(); ++cut)
            pictureOf({RichObject::Kind::Emf, metafile.left(cut), 0, 0});
        const bool isMost = dib.size() * 2 > metafile.size();
        const QImage image = pictureOf({RichObject::Kind::Emf, metafile, 0, 0});
        ASSERT_EQ(image.isNull(), !isMost) << type;
        if (isMost) {
            EXPECT_EQ(image.pixelColor(1, 2), QColor(Qt::yellow));
        }
    }
}

TEST(RichPicture, ASmallBitmapAmongLinesDoesNotStandForTheDrawing) {
    const QByteArray dib = encoded(sampleImage(), "BMP").mid(14);
    QByteArray metafile(18, '\1');
    metafile += record(0x0F43, QByteArray(22, '\0') + dib);
    EXPECT_FALSE(pictureOf({RichObject::Kind::Wmf, metafile, 0, 0}).isNull());
    for (int i = 0; i < 100; ++i)
        metafile += record(0x0213, QByteArray(4, '\0'));
    EXPECT_TRUE(pictureOf({RichObject::Kind::Wmf, metafile, 0, 0}).isNull());
}

TEST(RichPicture, DamagedDataGiveNoPicture) {
    const QByteArray png = encoded(sampleImage(), "PNG");
    EXPECT_TRUE(pictureOf({RichObject::Kind::Png, png.left(20), 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Jpeg, "nothing", 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Wmf, png, 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Dib, QByteArray(3, '\x28'), 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Dib, QByteArray(60, '\xFF'), 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Png, {}, 0, 0}).isNull());
    EXPECT_EQ(pictureSize({RichObject::Kind::Png, {}, 0, 0}), QSize(1440, 1440));
    EXPECT_TRUE(pictureOf({}).isNull());
}

TEST(RichPicture, SizeIsAsStoredElseThePicturesOwn) {
    const QByteArray png = encoded(sampleImage(), "PNG");
    EXPECT_EQ(pictureSize({RichObject::Kind::Png, png, 300, 200}), QSize(300, 200));
    EXPECT_EQ(pictureSize({RichObject::Kind::Png, png, 0, 200}), QSize(240, 180));
    EXPECT_EQ(pictureSize({RichObject::Kind::Wmf, {}, 0, 0}), QSize(1440, 1440));
}

} // namespace velm
