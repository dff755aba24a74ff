#include "platform/base/twips.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/look/plaintext.h"
#include "tests/support/eventually.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class StatusBarTest : public testing::Test {
protected:
    StatusBarTest() {
        bar.addPanel(u"état"_s, 1);
        bar.addPanel(u"nombre"_s, 0, twipsFromPixels(60));
        bar.resize(400, bar.sizeHint().height());
        bar.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&bar));
    }

    QWidget* panel(const QString& key) const { return bar.findChild<QWidget*>(key); }
    /// The line of a panel: what stands in it, and the tool tip of what does not fit.
    QWidget* line(const QString& key) const {
        return panel(key)->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QString shown(const QString& key) const { return line(key)->accessibleName(); }

    StatusBar bar;
};

} // namespace

TEST_F(StatusBarTest, PanelsAreFoundByTheirKeys) {
    bar.setPanelText(u"état"_s, u"Prêt"_s);
    bar.setPanelText(u"nombre"_s, u"12 documents"_s);
    EXPECT_EQ(bar.panelText(u"état"_s), u"Prêt");
    EXPECT_EQ(bar.panelText(u"nombre"_s), u"12 documents");
    EXPECT_EQ(shown(u"état"_s), u"Prêt");
}

TEST_F(StatusBarTest, PanelsStandFromLeftToRightInTheirOrder) {
    EVENTUALLY(panel(u"nombre"_s)->x() >= panel(u"état"_s)->geometry().right());
    EXPECT_GE(line(u"nombre"_s)->width(), 60);
}

TEST_F(StatusBarTest, ARuleStandsBetweenPanelsAndNoneBeforeTheFirst) {
    EVENTUALLY(panel(u"nombre"_s)->x() >= panel(u"état"_s)->geometry().right());
    const auto ruled = [this](const QString& key) {
        const QImage picture = panel(key)->grab().toImage();
        const auto at = [&](int x) { return picture.pixelColor(x, picture.height() / 2); };
        return at(0) != at(3);
    };
    EXPECT_TRUE(ruled(u"nombre"_s));
    EXPECT_FALSE(ruled(u"état"_s));
}

TEST_F(StatusBarTest, APanelWithoutStretchIsAsWideAsItsText) {
    bar.setPanelText(u"nombre"_s, QString(30, u'0'));
    const int text = line(u"nombre"_s)->fontMetrics().horizontalAdvance(QString(30, u'0'));
    EVENTUALLY(line(u"nombre"_s)->width() >= text);
    EXPECT_TRUE(line(u"nombre"_s)->toolTip().isEmpty());
    bar.setPanelText(u"nombre"_s, u"1"_s);
    EVENTUALLY(line(u"nombre"_s)->width() == 60);
}

TEST_F(StatusBarTest, BlanksOfEveryWidthHaveTheirRoom) {
    bar.setPanelText(u"nombre"_s, u"26\u00A0/\u00A013\u202F041 documents \u2003 en tout"_s);
    EVENTUALLY(line(u"nombre"_s)->width() > 60);
    EXPECT_TRUE(line(u"nombre"_s)->toolTip().isEmpty()) << "nothing is cut";
}

TEST_F(StatusBarTest, WhatDoesNotFitIsElidedAndToldWhole) {
    const QString title = QString(u"Un titre <long> & "_s).repeated(40);
    const int width = bar.minimumSizeHint().width();
    bar.setPanelText(u"état"_s, title);
    EXPECT_EQ(line(u"état"_s)->toolTip(), plainTip(title));
    EXPECT_EQ(bar.panelText(u"état"_s), title);
    EXPECT_EQ(bar.minimumSizeHint().width(), width);
    bar.setPanelText(u"état"_s, u"Court"_s);
    EXPECT_TRUE(line(u"état"_s)->toolTip().isEmpty());
}

TEST_F(StatusBarTest, APanelThatGrowsTooNarrowTellsItsTextWhole) {
    bar.setPanelText(u"état"_s, u"Une phrase qui tient dans une fenêtre"_s);
    EVENTUALLY(line(u"état"_s)->width() > 200);
    EXPECT_TRUE(line(u"état"_s)->toolTip().isEmpty());
    bar.resize(160, bar.height());
    EVENTUALLY(!line(u"état"_s)->toolTip().isEmpty());
}

TEST_F(StatusBarTest, APassingTextStandsInPlaceUntilItIsEmptied) {
    bar.setPanelText(u"état"_s, u"Prêt"_s);
    bar.setPassing(u"état"_s, u"CO000002"_s);
    EXPECT_EQ(shown(u"état"_s), u"CO000002");
    EXPECT_EQ(bar.panelText(u"état"_s), u"Prêt");
    bar.setPanelText(u"état"_s, u"Recherche"_s);
    EXPECT_EQ(shown(u"état"_s), u"CO000002");
    bar.setPassing(u"état"_s, QString());
    EXPECT_EQ(shown(u"état"_s), u"Recherche");
}

TEST_F(StatusBarTest, APanelThatIsSilentWhenEmptyLeavesItsRoom) {
    EXPECT_TRUE(panel(u"nombre"_s)->isVisible());
    bar.hideWhenEmpty(u"nombre"_s);
    EXPECT_FALSE(panel(u"nombre"_s)->isVisible());
    bar.setPanelText(u"nombre"_s, u"12 documents"_s);
    EXPECT_TRUE(panel(u"nombre"_s)->isVisible());
    bar.setPanelText(u"nombre"_s, QString());
    EXPECT_FALSE(panel(u"nombre"_s)->isVisible());
    bar.setPassing(u"nombre"_s, u"en passant"_s);
    EXPECT_TRUE(panel(u"nombre"_s)->isVisible());
}

TEST_F(StatusBarTest, ATipTellsWhatATextIsUnlessTheTextIsCut) {
    bar.setPanelTip(u"nombre"_s, u"Nombre de documents"_s);
    bar.setPanelText(u"nombre"_s, u"12"_s);
    EXPECT_EQ(line(u"nombre"_s)->toolTip(), u"Nombre de documents");
    const QString title = QString(u"Un titre long "_s).repeated(40);
    bar.setPanelTip(u"état"_s, u"Titre"_s);
    bar.setPanelText(u"état"_s, title);
    EXPECT_TRUE(line(u"état"_s)->toolTip().contains(u"Un titre long"));
}

TEST_F(StatusBarTest, ALeftPressOnAPanelIsToldByItsKey) {
    const QSignalSpy pressed(&bar, &StatusBar::panelPressed);
    bar.setPanelText(u"nombre"_s, u"100 %"_s);
    QTest::mouseClick(line(u"nombre"_s), Qt::LeftButton);
    ASSERT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed.first().first().toString(), u"nombre");
    QTest::mouseClick(line(u"nombre"_s), Qt::RightButton);
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_TRUE(bar.window()->rect().contains(bar.panelPlace(u"nombre"_s)));
}

TEST_F(StatusBarTest, WhatDoesNotFitIsSaidShorterAndNoWordIsCut) {
    const QString whole = u"Code de la consommation › Livre III › Chapitre II"_s;
    const QStringList shorter{u"… › Livre III › Chapitre II"_s, u"… › Chapitre II du livre"_s};
    const auto width = [this](const QString& text) {
        return line(u"état"_s)->fontMetrics().horizontalAdvance(text) + 1;
    };
    const auto drawn = [this](int wide) {
        line(u"état"_s)->resize(wide, line(u"état"_s)->height());
        return line(u"état"_s)->grab().toImage();
    };
    const auto looksLike = [&](const QString& text, int wide) {
        bar.setPanelText(u"état"_s, whole, shorter);
        const QImage said = drawn(wide);
        bar.setPanelText(u"état"_s, text);
        return said == drawn(wide);
    };
    EXPECT_TRUE(looksLike(whole, width(whole)));
    EXPECT_TRUE(looksLike(shorter[0], width(shorter[0])));
    EXPECT_TRUE(looksLike(shorter[0], width(whole) - 3)) << "the longest that fits";
    EXPECT_TRUE(looksLike(shorter[1], width(shorter[1])));
    EXPECT_TRUE(looksLike(u"… › Chapitre II…"_s, width(u"… › Chapitre II du…"_s) - 3));
    EXPECT_TRUE(looksLike(u"… › Chapitre II du…"_s, width(u"… › Chapitre II du…"_s)));
    bar.setPanelText(u"état"_s, whole, shorter);
    drawn(width(shorter[0]));
    EXPECT_EQ(line(u"état"_s)->toolTip(), plainTip(whole));
    EXPECT_EQ(shown(u"état"_s), whole);
}

TEST_F(StatusBarTest, APassingTextIsNotSaidShorter) {
    bar.setPanelText(u"état"_s, u"Un long chemin"_s, {u"… chemin"_s});
    bar.setPassing(u"état"_s, u"Un titre en passant"_s);
    line(u"état"_s)->resize(60, line(u"état"_s)->height());
    const QImage passing = line(u"état"_s)->grab().toImage();
    bar.setPassing(u"état"_s, QString());
    EXPECT_NE(line(u"état"_s)->grab().toImage(), passing);
    bar.setPanelText(u"état"_s, u"Un titre en passant"_s);
    EXPECT_EQ(line(u"état"_s)->grab().toImage(), passing);
}

TEST_F(StatusBarTest, TextsOnSeveralLinesStandOnOne) {
    const int height = bar.sizeHint().height();
    bar.setPanelText(u"état"_s, u"un\r\ndeux"_s);
    EXPECT_EQ(bar.sizeHint().height(), height);
    EXPECT_EQ(bar.panelText(u"état"_s), u"un\r\ndeux");
}

} // namespace velm
