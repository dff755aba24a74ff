#include "platform/widgets/richhtml.h"
#include "platform/widgets/richpicture.h"
#include "sampletext.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

TEST(RichHtml, ParagraphsAndCharactersKeepTheirLooks) {
    RichText rich;
    CharFormat bold;
    bold.bold = true;
    bold.colour = 0x0000FF;
    bold.family = u"Arial"_s;
    ParaFormat centred;
    centred.alignment = Alignment::Centre;
    rich.append(u"un\r\n", rich.intern(bold), rich.intern(centred));
    rich.append(u"deux", rich.intern(CharFormat{}), rich.intern(ParaFormat{}));
    const QString html = richHtml(rich, 0, rich.length());
    EXPECT_TRUE(html.contains(u"text-align:center"_s));
    EXPECT_TRUE(html.contains(u"font-family:'Arial'"_s));
    EXPECT_TRUE(html.contains(u"font-weight:bold"_s));
    EXPECT_TRUE(html.contains(u"color:#ff0000"_s));
    EXPECT_EQ(html.count(u"<p "_s), 2);
    EXPECT_EQ(html.count(u"</p>"_s), 2);
}

TEST(RichHtml, WhatIsSpecialInHtmlIsEscaped) {
    const QString html = richHtml(sample::plain({u"a < b & \"c\""_s}), 0, 100);
    EXPECT_TRUE(html.contains(u"a &lt; b &amp; &quot;c&quot;"_s));
}

TEST(RichHtml, AFamilysNameCannotBreakOut) {
    RichText rich;
    CharFormat format;
    format.family = u"x'\"><script>"_s;
    rich.append(u"a", rich.intern(format), rich.intern(ParaFormat{}));
    const QString html = richHtml(rich, 0, 1);
    EXPECT_FALSE(html.contains(u"<script>"_s));
    EXPECT_FALSE(html.contains(u"x'\""_s));
}

TEST(RichHtml, APartIsCutAtItsEnds) {
    const RichText rich = sample::plain({u"abc"_s, u"def"_s});
    EXPECT_TRUE(richHtml(rich, 1, 1).contains(u">b<"_s));
    EXPECT_FALSE(richHtml(rich, 1, 1).contains(u"c"_s + u"<"_s));
    EXPECT_EQ(richPlain(rich, 2, 4).remove(u'\r'), u"c\nd"_s);
    EXPECT_EQ(richPlain(rich, 99, 4), QString());
    EXPECT_EQ(richPlain(rich, -5, 2), u"ab"_s);
}

TEST(RichHtml, HiddenTextAndPicturesAreNoPlainText) {
    RichText rich;
    CharFormat hidden;
    hidden.hidden = true;
    CharFormat picture;
    picture.object = rich.addObject({RichObject::Kind::Png, "daten", 150, 300});
    const FormatId paragraph = rich.intern(ParaFormat{});
    rich.append(u"a", rich.intern(CharFormat{}), paragraph);
    rich.append(u"secret", rich.intern(hidden), paragraph);
    rich.append(u"\uFFFC", rich.intern(picture), paragraph);
    rich.append(u"b\vc", rich.intern(CharFormat{}), paragraph);
    EXPECT_EQ(richPlain(rich, 0, rich.length()).remove(u'\r'), u"ab\nc"_s);
    const QString html = richHtml(rich, 0, rich.length());
    EXPECT_FALSE(html.contains(u"secret"_s));
    EXPECT_TRUE(html.contains(u"data:image/png;base64,ZGF0ZW4="_s));
    EXPECT_TRUE(html.contains(u"width=\"10\" height=\"20\""_s));
    EXPECT_TRUE(html.contains(u"<br>"_s));
}

namespace {

QByteArray encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QImage sampleImage() {
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::blue);
    image.setPixelColor(1, 2, Qt::yellow);
    return image;
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
    const auto words = [](quint32 value, int bytes) {
        QByteArray out(bytes, '\0');
        for (int i = 0; i < bytes; ++i) {
            out[i] = static_cast<char>(value >> (8 * i));
        }
        return out;
    };
    const auto record = [&](quint32 function, const QByteArray& parameters) {
        QByteArray padded = parameters;
        padded.append(padded.size() % 2, '\0');
        return words(static_cast<quint32>(6 + padded.size()) / 2, 4) + words(function, 2) + padded;
    };
    const QByteArray header(18, '\1');
    const QByteArray origin = record(0x020B, QByteArray(4, '\0'));
    for (const auto& [function, before] : {std::pair{0x0F43U, 22}, {0x0B41U, 20}, {0x0940U, 16}, {0x0D33U, 18}}) {
        const QByteArray drawing = record(function, QByteArray(before, '\0') + dib);
        const QByteArray placeable = words(0x9AC6CDD7U, 4) + QByteArray(18, '\0');
        for (const QByteArray& metafile : {header + origin + drawing, placeable + header + origin + drawing}) {
            const QImage image = pictureOf({RichObject::Kind::Wmf, metafile, 0, 0});
            ASSERT_EQ(image.size(), sampleImage().size()) << function;
            EXPECT_EQ(image.pixelColor(1, 2), QColor(Qt::yellow));
        }
        for (qsizetype cut = 0; cut < header.size() + origin.size() + drawing.size(); ++cut) {
            pictureOf({RichObject::Kind::Wmf, (header + origin + drawing).left(cut), 0, 0});
        }
    }
}

TEST(RichPicture, DamagedDataGiveNoPicture) {
    const QByteArray png = encoded(sampleImage(), "PNG");
    EXPECT_TRUE(pictureOf({RichObject::Kind::Png, png.left(20), 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Jpeg, "nothing", 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Wmf, png, 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Dib, QByteArray(3, '\x28'), 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({RichObject::Kind::Dib, QByteArray(60, '\xFF'), 0, 0}).isNull());
    EXPECT_TRUE(pictureOf({}).isNull());
}

TEST(RichPicture, SizeIsAsStoredElseThePicturesOwn) {
    const QByteArray png = encoded(sampleImage(), "PNG");
    EXPECT_EQ(pictureSize({RichObject::Kind::Png, png, 300, 200}), QSize(300, 200));
    EXPECT_EQ(pictureSize({RichObject::Kind::Png, png, 0, 200}), QSize(90, 60));
    EXPECT_EQ(pictureSize({RichObject::Kind::Wmf, {}, 0, 0}), QSize(1440, 1440));
}

} // namespace velm
