#include "platform/widgets/look/plaintext.h"

#include <QFontMetrics>
#include <QLabel>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolTip>
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

/// Without what parts lines and words.
QString unbroken(QString text) {
    return text.remove(u'\n').remove(u' ').remove(QChar(QChar::Nbsp));
}

int widest(const QString& tip) {
    int most = 0;
    for (const QString& line : read(tip).split(u'\n'))
        most = std::max(most, QFontMetrics(QToolTip::font()).horizontalAdvance(line));
    return most;
}

} // namespace

TEST(PlainTip, IsReadAsItStands) {
    for (const QString& text :
         {u"Code de commerce"_s, u"<img src=\"/dev/zero\">"_s, u"<b>gras</b> & co"_s, u"a < b && c > d"_s,
          u"&lt;img src=x&gt;"_s, u"Deux\nlignes <i>x</i>"_s, u"<img src=\"/dev/zero\"> "_s + QString(300, u'x')}) {
        EXPECT_EQ(unbroken(read(plainTip(text))), unbroken(text)) << text.toStdString();
        EXPECT_FALSE(QTextDocumentFragment::fromHtml(plainTip(text)).toPlainText().contains(QChar(0xFFFC)));
    }
}

TEST(PlainTip, IsDressedOnlyWhereItMustBe) {
    EXPECT_EQ(plainTip(u"Imprimer & éjecter (Ctrl+P)"_s), u"Imprimer & éjecter (Ctrl+P)"_s);
    EXPECT_EQ(plainTip(QString()), QString());
    EXPECT_EQ(plainTip(u"<b>x</b>"_s), u"<p style=\"white-space:pre\">&lt;b&gt;x&lt;/b&gt;</p>"_s);
}

TEST(PlainTip, TakesOneLineAsFarAsItGoesAndBreaksBetweenWords) {
    const QString title = u"Code de la consommation, article L. 211-7 du code"_s;
    EXPECT_EQ(plainTip(title), title);
    const QString tip = plainTip(u"Code de la consommation "_s.repeated(20));
    EXPECT_GT(tip.count(u'\n'), 1);
    EXPECT_LE(widest(tip), 480);
    EXPECT_GT(widest(tip), 300) << "no line is cut short";
    for (const QString& line : tip.split(u'\n')) {
        EXPECT_TRUE(line.startsWith(u"Code") || line.startsWith(u"de") || line.startsWith(u"la") ||
                    line.startsWith(u"consommation"))
            << line.toStdString();
        EXPECT_FALSE(line.endsWith(u' '));
    }
    EXPECT_LE(widest(plainTip(QString(200, u'x'))), 480) << "a word that is too long is broken";
    EXPECT_LE(widest(plainTip(u"<i>"_s + QString(200, u'x'))), 480);
    EXPECT_EQ(plainTip(u"un\ndeux"_s), u"un\ndeux");
}

TEST(EntryTip, IsThereForWhatWasCutOrCouldBeTakenForMarkup) {
    EXPECT_EQ(entryTip(u"Article 2"_s, u"Article 2"_s), QString());
    EXPECT_EQ(entryTip(u"Article 2"_s, u"Arti\u2026"_s), u"Article 2"_s);
    EXPECT_EQ(entryTip(u"<b>x</b>"_s, u"<b>x</b>"_s), u"<p style=\"white-space:pre\">&lt;b&gt;x&lt;/b&gt;</p>"_s);
}

TEST(PlainLabel, NeverTakesItsTextForMarkup) {
    QWidget parent;
    QLabel* label = plainLabel(u"<b>x</b>"_s, &parent);
    EXPECT_EQ(label->parentWidget(), &parent);
    EXPECT_EQ(label->text(), u"<b>x</b>"_s);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}
