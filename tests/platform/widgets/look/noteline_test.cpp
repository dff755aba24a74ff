#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class NoteLineTest : public QuietTest {
protected:
    NoteLineTest() {
        line.resize(600, 40);
        line.say(u"50 premiers documents sur 545"_s, NoteLine::Tone::Quiet, u"Tout afficher"_s);
        line.show();
    }
    QLabel& label() const { return *line.findChild<QLabel*>(); }

    NoteLine line;
};

} // namespace

TEST_F(NoteLineTest, WithNothingToSayItTakesNoRoom) {
    EXPECT_GT(line.heightForWidth(600), 0);
    line.say({});
    EXPECT_FALSE(line.isVisible());
    EXPECT_EQ(line.heightForWidth(600), 0);
    line.say(u"1 document"_s);
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.text(), u"1 document"_s);
    EXPECT_FALSE(line.link()->isVisible());
}

TEST_F(NoteLineTest, TheLinkStandsBehindTheTextOrBelowItWhereItIsNarrow) {
    EXPECT_GE(line.link()->x(), label().geometry().right());
    EXPECT_LT(line.link()->x(), label().geometry().right() + 30);
    EXPECT_LT(line.link()->y(), label().geometry().bottom());
    const int wide = line.heightForWidth(600);
    EXPECT_GT(line.heightForWidth(160), wide);
    line.resize(160, line.heightForWidth(160));
    EXPECT_GE(line.link()->y(), label().geometry().bottom());
    EXPECT_LE(line.link()->geometry().bottom(), line.height());
    EXPECT_GE(label().height(), label().heightForWidth(label().width()));
}

TEST_F(NoteLineTest, WhereItIsTooLowItsEndIsCutAndItsTipTellsTheWhole) {
    const QString said = u"Aucun document ne contient « zzzqq » dans cette collection."_s;
    const int row = line.fontMetrics().height();
    for (const bool more : {false, true}) {
        line.say(said, NoteLine::Tone::Warning, more ? u"Tout afficher"_s : QString());
        for (const int width : {120, 200, 300}) {
            for (const int rows : {1, 2, 3}) {
                line.resize(width, std::max(rows * row + rows, more ? line.link()->sizeHint().height() : 0));
                EXPECT_EQ(line.text(), said);
                const bool whole = label().text() == said;
                EXPECT_EQ(whole, line.heightForWidth(width) <= line.height()) << width << ' ' << rows;
                EXPECT_EQ(label().toolTip().isEmpty(), whole);
                EXPECT_EQ(label().accessibleName(), said);
                EXPECT_TRUE(whole || label().text().endsWith(u'…')) << label().text().toStdString();
                EXPECT_TRUE(line.rect().contains(label().geometry())) << width << ' ' << rows << ' ' << more;
                EXPECT_GE(label().height(), label().heightForWidth(label().width())) << width << ' ' << rows;
                EXPECT_TRUE(!more || !line.link()->geometry().intersects(label().geometry()));
            }
        }
    }
    line.say(said);
    line.resize(120, 2 * row);
    EXPECT_GT(label().text().size(), 20) << "as much as there is room for";
    line.resize(600, 40);
    EXPECT_EQ(label().text(), said);
}

TEST_F(NoteLineTest, TheLinkIsPressedByHandAndByKey) {
    QSignalSpy pressed(&line, &NoteLine::linkClicked);
    QTest::mouseClick(line.link(), Qt::LeftButton);
    line.link()->setFocus();
    QTest::keyClick(line.link(), Qt::Key_Space);
    EXPECT_EQ(pressed.size(), 2);
    EXPECT_EQ(line.link()->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(NoteLineTest, ATextStandsAsItIsAndAWarningHasItsColour) {
    const QColor quiet = label().palette().color(QPalette::WindowText);
    line.say(u"Aucun document ne contient « <b>x</b> »"_s, NoteLine::Tone::Warning);
    EXPECT_EQ(label().textFormat(), Qt::PlainText);
    EXPECT_EQ(label().palette().color(QPalette::WindowText), look::warningColour(look::themeOf(line.palette())));
    line.setPalette(look::palette(look::Theme::Dark));
    EXPECT_EQ(label().palette().color(QPalette::WindowText), look::warningColour(look::Theme::Dark));
    line.say(u"1 document"_s);
    EXPECT_NE(label().palette().color(QPalette::WindowText), quiet) << "of the other palette";
}

} // namespace velm
