// The about box.
#include "petites_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class APropos : public PetitesFenetres {
protected:
    DialoguesScript dialogues_;
    int lancements_ = 0;
    int montrees_ = 0;
    bool outil_ = true;
    frmAbout fenetre_{texte_,
                      u"1.2.3"_s,
                      u"Ma <b>collection</b>"_s,
                      {[this] {
                           ++lancements_;
                           return outil_;
                       },
                       [this] { ++montrees_; }},
                      dialogues_};
};

} // namespace

TEST_F(APropos, TheVersionHasThreeNumbers) {
    EXPECT_EQ(dans<QLabel>(fenetre_, u"lblVersion"_s).text(), texte_(Texte{2}) + u" 1.2.3"_s);
    EXPECT_EQ(versioncourte(u"4"_s), u"4.0.0");
    EXPECT_EQ(versioncourte(u"4.5.6.7-essai"_s), u"4.5.6");
    EXPECT_EQ(versioncourte(QString()), u"0.0.0");
}

TEST_F(APropos, TheTitleOfTheCollectionStandsThereAsItIs) {
    const QLabel& titre = dans<QLabel>(fenetre_, u"lblCollection"_s);
    EXPECT_EQ(titre.text(), remplace(texte_(Texte{9521}), {u"Ma <b>collection</b>"_s}));
    EXPECT_EQ(titre.textFormat(), Qt::PlainText);
    frmAbout sans(texte_, u"1.2.3"_s, QString(), {}, dialogues_);
    EXPECT_EQ(sans.findChild<QLabel*>(u"lblCollection"_s), nullptr);
}

TEST_F(APropos, ATitleOfAnyLengthLeavesTheBoxItsSize) {
    frmAbout longue(texte_, u"1.2.3"_s, QString(100'000, u'W'), {}, dialogues_);
    longue.show();
    fenetre_.show();
    EXPECT_EQ(longue.width(), fenetre_.width());
    EXPECT_LT(longue.height(), 2 * fenetre_.height());
    EXPECT_TRUE(dans<QLabel>(longue, u"lblCollection"_s).text().endsWith(u'…'));
}

TEST_F(APropos, JoinsFourSentencesWithBlanks) {
    EXPECT_EQ(dans<QLabel>(fenetre_, u"conditions"_s).text(),
              texte_(Texte{60}) + u' ' + texte_(Texte{61}) + u' ' + texte_(Texte{62}) + u' ' + texte_(Texte{63}));
    EXPECT_EQ(fenetre_.windowTitle(), texte_(Texte{161}));
    EXPECT_EQ(dans<QPushButton>(fenetre_, u"cmdok"_s).text(), texte_(Texte{4}));
    EXPECT_EQ(dans<QPushButton>(fenetre_, u"cmdSysInfo"_s).text(), texte_(Texte{5}));
    EXPECT_EQ(fenetre_.windowModality(), Qt::ApplicationModal);
}

TEST_F(APropos, ThePointerIsNormalOnceItShows) {
    EXPECT_EQ(montrees_, 0);
    fenetre_.show();
    EXPECT_EQ(montrees_, 1);
}

TEST_F(APropos, AClickOnTheLogoStopsAndStartsTheAnimation) {
    auto& minuterie = dans<QTimer>(fenetre_, u"Timer1"_s);
    auto& logo = dans<Logo>(fenetre_, u"Picture2"_s);
    EXPECT_FALSE(minuterie.isActive());
    fenetre_.show();
    EXPECT_TRUE(minuterie.isActive());
    EVENTUALLY(logo.image() >= 2);
    QTest::mouseClick(&logo, Qt::LeftButton);
    EXPECT_FALSE(minuterie.isActive());
    QTest::mouseClick(&logo, Qt::RightButton);
    EXPECT_FALSE(minuterie.isActive());
    QTest::mousePress(&logo, Qt::LeftButton);
    QTest::mouseRelease(&logo, Qt::LeftButton, {}, QPoint(logo.width() + 5, 5));
    EXPECT_FALSE(minuterie.isActive()) << "let go beside it";
    QTest::mouseClick(&logo, Qt::LeftButton);
    EXPECT_TRUE(minuterie.isActive());
    fenetre_.close();
    EXPECT_FALSE(minuterie.isActive());
}

TEST_F(APropos, ItsButtonStartsTheSystemTool) {
    clique(fenetre_, u"cmdSysInfo"_s);
    EXPECT_EQ(lancements_, 1);
    EXPECT_TRUE(dialogues_.messages.empty());
}

TEST_F(APropos, NoSystemToolShowsTheText) {
    outil_ = false;
    clique(fenetre_, u"cmdSysInfo"_s);
    EXPECT_EQ(lancements_, 1);
    EXPECT_EQ(dialogues_.texts(), QStringList{texte_(Texte{6})});
}

TEST_F(APropos, OkAndEscapeCloseTheWindow) {
    fenetre_.show();
    clique(fenetre_, u"cmdok"_s);
    EXPECT_FALSE(fenetre_.isVisible());
    fenetre_.show();
    QTest::keyClick(&fenetre_, Qt::Key_Escape);
    EXPECT_FALSE(fenetre_.isVisible());
}

TEST(LogoTest, ThePicturesDifferAndBeginAgain) {
    for (int i = 1; i < nombredimages; ++i)
        EXPECT_NE(imagelogo(i, 64, 1).toImage(), imagelogo(i - 1, 64, 1).toImage()) << i;
    EXPECT_EQ(imagelogo(nombredimages, 64, 1).toImage(), imagelogo(0, 64, 1).toImage());
    EXPECT_EQ(imagelogo(3, 64, 1.5).size(), QSize(96, 96));
    EXPECT_TRUE(imagelogo(-1, 64, 1).isNull());
    EXPECT_TRUE(imagelogo(0, 0, 1).isNull());
}
