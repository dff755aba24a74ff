#include "platform/typeset/documentfill.h"
#include "tests/platform/typeset/sampletext.h"

#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The blocks with their pieces and formats, as a text.
QString contentOf(const QTextDocument& document) {
    QString content;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        content += u"[%1 %2]"_s.arg(block.position()).arg(block.charFormat().fontPointSize());
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            content += piece.fragment().text() + u'<' + format.foreground().color().name() + u' ' +
                       QString::number(format.fontPointSize()) + u'>';
        }
    }
    return content;
}

QString filledBy(qsizetype characters, const RichText& rich) {
    QTextDocument document;
    const ShownText shown(rich);
    DocumentFill fill(document);
    fill.begin(shown, rich);
    int blocks = 0;
    while (!fill.step(characters)) {
        EXPECT_LE(blocks, fill.blocks());
        blocks = fill.blocks();
        EXPECT_LT(blocks, shown.count());
        EXPECT_EQ(document.blockCount(), blocks + 1) << "the last one may want a part of its text";
    }
    EXPECT_EQ(fill.blocks(), shown.count());
    EXPECT_EQ(document.toRawText().size(), shown.documentLength());
    return contentOf(document);
}

RichText emptyParagraphsOfSizes() {
    RichText rich;
    const FormatId paragraph = rich.intern(ParaFormat{});
    for (const std::int32_t size : {20, 60, 20, 40, 40, 90}) {
        CharFormat format;
        format.size = size;
        rich.append(size == 40 ? u"mot\r\n"_s : u"\r\n"_s, rich.intern(format), paragraph);
    }
    return rich;
}

} // namespace

TEST(DocumentFill, GivesTheSameDocumentInStepsOfAnySize) {
    for (const RichText& rich : {sample::lawArticle(), emptyParagraphsOfSizes(), sample::plain({u""_s, u"un"_s})}) {
        const QString whole = filledBy(1'000'000, rich);
        for (const qsizetype characters : {1, 7, 150, 1000})
            EXPECT_EQ(filledBy(characters, rich), whole) << characters;
    }
}

TEST(DocumentFill, TakesInNoMoreThanAskedFor) {
    const RichText rich = sample::plain(QStringList(10'000, u"mot"_s));
    QTextDocument document;
    const ShownText shown(rich);
    DocumentFill fill(document);
    fill.begin(shown, rich);
    EXPECT_FALSE(fill.step(20'000));
    EXPECT_GT(document.blockCount(), 50);
    EXPECT_LT(document.blockCount(), 200);
}

TEST(DocumentFill, BeginsAnewAtAnyTime) {
    const RichText rich = sample::lawArticle();
    const RichText other = sample::plain({u"un"_s, u"deux"_s});
    QTextDocument document;
    const ShownText shown(rich);
    const ShownText then(other);
    DocumentFill fill(document);
    EXPECT_TRUE(fill.isDone());
    fill.begin(shown, rich);
    EXPECT_FALSE(fill.step(300));
    fill.begin(then, other);
    EXPECT_TRUE(fill.step(10'000));
    EXPECT_EQ(document.toPlainText(), u"un\ndeux"_s);
}

TEST(DocumentFill, AnEmptyTextIsOneBlockOfItsFormat) {
    RichText rich;
    CharFormat format;
    format.size = 80;
    rich.setTail(rich.intern(format), rich.intern(ParaFormat{}));
    QTextDocument document;
    const ShownText shown(rich);
    DocumentFill fill(document);
    fill.begin(shown, rich);
    EXPECT_TRUE(fill.isDone());
    EXPECT_EQ(fill.blocks(), 1);
    EXPECT_EQ(document.firstBlock().charFormat().fontPointSize(), 40);
}

} // namespace velm
