#include "platform/widgets/look/plaintext.h"

#include <QLabel>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QWidget>

#include <gtest/gtest.h>
#include <memory>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// What the eye reads of a tip, and whether it is taken for markup at all.
QString read(const QString& tip) {
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
}

} // namespace

TEST(PlainTip, IsReadAsItStands) {
    for (const QString& text :
         {u"Code de commerce"_s, u"<img src=\"/dev/zero\">"_s, u"<b>gras</b> & co"_s, u"a < b && c > d"_s,
          u"&lt;img src=x&gt;"_s, u"Deux\nlignes <i>x</i>"_s, u"<img src=\"/dev/zero\"> "_s + QString(300, u'x')}) {
        EXPECT_EQ(read(plainTip(text)), text.trimmed()) << text.toStdString();
        EXPECT_FALSE(QTextDocumentFragment::fromHtml(plainTip(text)).toPlainText().contains(QChar(0xFFFC)));
    }
}

TEST(PlainTip, IsDressedOnlyWhereItMustBe) {
    EXPECT_EQ(plainTip(u"Imprimer & éjecter (Ctrl+P)"_s), u"Imprimer & éjecter (Ctrl+P)"_s);
    EXPECT_EQ(plainTip(QString()), QString());
    EXPECT_EQ(plainTip(u"<b>x</b>"_s), u"<p>&lt;b&gt;x&lt;/b&gt;</p>"_s);
    EXPECT_TRUE(Qt::mightBeRichText(plainTip(QString(200, u'x')))) << "only then its lines wrap";
}

TEST(PlainTip, CutsWhatNobodyReads) {
    const QString tip = read(plainTip(u"début "_s + QString(1'000'000, u'x')));
    EXPECT_LE(tip.size(), 2000);
    EXPECT_TRUE(tip.startsWith(u"début x"_s));
    EXPECT_TRUE(tip.endsWith(u'\u2026'));
}

TEST(EntryTip, IsThereForWhatWasCutOrCouldBeTakenForMarkup) {
    EXPECT_EQ(entryTip(u"Article 2"_s, u"Article 2"_s), QString());
    EXPECT_EQ(entryTip(u"Article 2"_s, u"Arti\u2026"_s), u"Article 2"_s);
    EXPECT_EQ(entryTip(u"<b>x</b>"_s, u"<b>x</b>"_s), u"<p>&lt;b&gt;x&lt;/b&gt;</p>"_s);
}

TEST(PlainLabel, NeverTakesItsTextForMarkup) {
    QWidget parent;
    QLabel* label = plainLabel(u"<b>x</b>"_s, &parent);
    EXPECT_EQ(label->parentWidget(), &parent);
    EXPECT_EQ(label->text(), u"<b>x</b>"_s);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}
