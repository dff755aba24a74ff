// Pictures inside RTF.
#include "platform/richtext/rtf_picture.h"
#include "tests/platform/richtext/rtf_support.h"

using namespace Qt::Literals::StringLiterals;
using velm::RichObject;
using velm::RichText;
using velm::test::richBody;

namespace {

RichObject pictureOf(const QByteArray& inside) {
    const RichText text = richBody("{\\pict" + inside + "}");
    EXPECT_EQ(text.text(), u"\uFFFC"_s);
    if (text.objects().size() != 1)
        return {};
    EXPECT_EQ(text.charFormatAt(0).object, 0);
    return text.objects().front();
}

/// The beginning of a PNG of 10 by 20 pixels.
const QByteArray png = QByteArray::fromHex("89504e470d0a1a0a0000000d494844520000000a00000014");

} // namespace

TEST(RtfPictures, KindsAndBytes) {
    const QByteArray bytes = QByteArray::fromHex("00ff10");
    struct Case {
        const char* word;
        RichObject::Kind kind;
    };
    for (const Case c : {Case{"\\pngblip", RichObject::Kind::Png}, Case{"\\jpegblip", RichObject::Kind::Jpeg},
                         Case{"\\dibitmap0", RichObject::Kind::Dib}, Case{"\\wmetafile8", RichObject::Kind::Wmf},
                         Case{"\\emfblip", RichObject::Kind::Emf}, Case{"\\macpict", RichObject::Kind::Unknown}}) {
        const RichObject object = pictureOf(c.word + " 00F\r\nf 10"_ba);
        EXPECT_EQ(object.kind, c.kind) << c.word;
        EXPECT_EQ(object.data, bytes) << c.word;
    }
}

TEST(RtfPictures, BinaryBytes) {
    const RichObject object = pictureOf("\\pngblip\\bin5 a}{\\b"_ba);
    EXPECT_EQ(object.data, "a}{\\b"_ba);
    EXPECT_EQ(pictureOf("\\pngblip\\bin-5 61").data, "a"_ba);
}

TEST(RtfPictures, PropertiesInsideAreNoBytes) {
    const RichObject object = pictureOf("{\\*\\picprop{\\sp{\\sn ab}{\\sv 12}}}\\pngblip{\\*\\blipuid 00ff} 6162");
    EXPECT_EQ(object.data, "ab"_ba);
}

TEST(RtfPictures, TheShownSize) {
    const RichObject byGoal = pictureOf("\\pngblip\\picw10\\pich20\\picwgoal1000\\pichgoal2000\\picscalex50 00");
    EXPECT_EQ(byGoal.width, 500);
    EXPECT_EQ(byGoal.height, 2000);
    const RichObject byPixels = pictureOf("\\pngblip\\picw10\\pich20 00");
    EXPECT_EQ(byPixels.width, 150);
    EXPECT_EQ(byPixels.height, 300);
    const RichObject byHimetric = pictureOf("\\wmetafile8\\picw2540\\pich5080 00");
    EXPECT_EQ(byHimetric.width, 1440);
    EXPECT_EQ(byHimetric.height, 2880);
    const RichObject huge = pictureOf("\\pngblip\\picwgoal99999999999\\pichgoal-4\\picscalex2000000000 00");
    EXPECT_EQ(huge.width, 100'000);
    EXPECT_EQ(huge.height, 0);
}

TEST(RtfPictures, TheSizeThatThePictureTellsItself) {
    const RichObject object = pictureOf("\\pngblip " + png.toHex());
    EXPECT_EQ(object.width, 150);
    EXPECT_EQ(object.height, 300);
    const auto size = [](RichObject::Kind kind, const char* hex) {
        return velm::rtf::naturalSize(kind, QByteArray::fromHex(hex));
    };
    const auto jpeg = size(RichObject::Kind::Jpeg, "ffd8ffe000040000ffc0000b080014000a0101");
    EXPECT_EQ(jpeg.width, 150);
    EXPECT_EQ(jpeg.height, 300);
    const auto dib = size(RichObject::Kind::Dib, "280000000a000000ecffffff");
    EXPECT_EQ(dib.width, 150);
    EXPECT_EQ(dib.height, 300);
    const auto emf = size(RichObject::Kind::Emf, "010000000000000000000000000000000000000000000000"
                                                 "0000000000000000ec090000d8130000");
    EXPECT_EQ(emf.width, 1440);
    EXPECT_EQ(emf.height, 2880);
}

TEST(RtfPictures, BrokenPicturesHaveNoSize) {
    for (const auto kind : {RichObject::Kind::Png, RichObject::Kind::Jpeg, RichObject::Kind::Dib, RichObject::Kind::Emf,
                            RichObject::Kind::Wmf, RichObject::Kind::Unknown}) {
        for (const char* hex : {"", "ff", "ffd8ff", "ffd8ffe0000000000000000000", "ffffffffffffffffffffffffff"}) {
            const auto size = velm::rtf::naturalSize(kind, QByteArray::fromHex(hex));
            EXPECT_GE(size.width, 0);
            EXPECT_LE(size.width, 100'000);
        }
    }
}

TEST(RtfPictures, EachPictureIsItsOwn) {
    const RichText text = richBody("a{\\b{\\pict\\pngblip 00}}b{\\pict\\jpegblip 01}{\\pict}");
    EXPECT_EQ(text.text(), u"a\uFFFCb\uFFFC\uFFFC"_s);
    EXPECT_EQ(text.objects().size(), 3U);
    EXPECT_TRUE(text.charFormatAt(1).bold);
    EXPECT_EQ(text.charFormatAt(2).object, -1);
    EXPECT_EQ(text.charFormatAt(3).object, 1);
    EXPECT_EQ(text.charFormatAt(4).object, 2);
}
