#include "platform/widgets/text/richhtml.h"
#include "tests/platform/typeset/sampletext.h"

#include <QTextCursor>
#include <QTextDocument>

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
    format.family = u"x'\\\"><script>"_s;
    rich.append(u"a", rich.intern(format), rich.intern(ParaFormat{}));
    const QString html = richHtml(rich, 0, 1);
    EXPECT_FALSE(html.contains(u"<script>"_s));
    EXPECT_TRUE(html.contains(u"font-family:'x\\'\\\\&quot;&gt;&lt;script&gt;';"_s));
}

TEST(RichHtml, AFamilysNameIsReadBackAsItIs) {
    for (const QString& family : {u"Times New Roman"_s, u"L'Atelier"_s, u"Fine & \"Co\"; <b>"_s}) {
        RichText rich;
        CharFormat format;
        format.family = family;
        rich.append(u"a", rich.intern(format), rich.intern(ParaFormat{}));
        QTextDocument read;
        read.setHtml(richHtml(rich, 0, 1));
        QTextCursor cursor(&read);
        cursor.setPosition(1);
        EXPECT_EQ(cursor.charFormat().fontFamilies().toStringList(), QStringList{family});
        EXPECT_EQ(read.toPlainText().trimmed(), u"a"_s);
    }
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

} // namespace velm
