#include "petites_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class Astuce : public PetitesFenetres {
protected:
    Astuces astuces_{[this] {
        const double tire = tirages_.empty() ? 0.0 : tirages_.front();
        if (!tirages_.empty())
            tirages_.pop_front();
        return tire;
    }};
    std::deque<double> tirages_;
};

} // namespace

// ---- The tip

TEST_F(Astuce, IsShownFromTheFileWithItsCaptions) {
    tirages_ = {0.5};
    const frmTip fenetre(texte_, astuces_, ecrit(u"TIPS.FR"_s, "un\r\ndeux & <b>demi</b>\r\n"), {});
    EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).text(), u"deux & <b>demi</b>");
    EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).textFormat(), Qt::PlainText);
    EXPECT_EQ(fenetre.windowTitle(), texte_(Texte{3000}));
    EXPECT_EQ(dans<QLabel>(fenetre, u"Label1"_s).text(), texte_(Texte{3003}));
    EXPECT_EQ(dans<QPushButton>(fenetre, u"cmdok"_s).text(), texte_(Texte{4}));
    EXPECT_EQ(dans<QPushButton>(fenetre, u"cmdNextTip"_s).text(), texte_(Texte{3002}));
    EXPECT_EQ(dans<QCheckBox>(fenetre, u"chkLoadTipsAtStartup"_s).text(), texte_(Texte{3001}));
    EXPECT_FALSE(dans<QLabel>(fenetre, u"Image1"_s).pixmap().isNull());
    EXPECT_EQ(fenetre.windowModality(), Qt::ApplicationModal);
}

TEST_F(Astuce, AFileOfOneLineAlwaysShowsThatLine) {
    tirages_ = {0.9, 0.1, 0.7};
    const frmTip fenetre(texte_, astuces_, ecrit(u"TIPS.FR"_s, "seule\r\n"), {});
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).text(), u"seule");
        clique(fenetre, u"cmdNextTip"_s);
    }
}

TEST_F(Astuce, AnEmptyFileLeavesTheLabelEmpty) {
    const frmTip fenetre(texte_, astuces_, ecrit(u"TIPS.FR"_s, {}), {});
    EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).text(), QString());
    clique(fenetre, u"cmdNextTip"_s);
    EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).text(), QString());
}

TEST_F(Astuce, AMissingFileIsSaidAndTheWindowOpens) {
    frmTip fenetre(texte_, astuces_, dossier_.filePath(u"TIPS.XX"_s), {});
    fenetre.show();
    EXPECT_TRUE(fenetre.isVisible());
    EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).text(), texte_(Texte{3004}));
    clique(fenetre, u"cmdNextTip"_s);
    EXPECT_EQ(dans<QLabel>(fenetre, u"lblTipText"_s).text(), texte_(Texte{3004}));
}

TEST_F(Astuce, TheNextOneIsPickedAtRandomAndMayComeTwice) {
    tirages_ = {0.0, 0.99, 0.99, 0.4};
    const frmTip fenetre(texte_, astuces_, ecrit(u"TIPS.FR"_s, "a\r\nb\r\nc\r\n"), {});
    const QLabel& label = dans<QLabel>(fenetre, u"lblTipText"_s);
    QString vues = label.text();
    for (int i = 0; i < 3; ++i) {
        clique(fenetre, u"cmdNextTip"_s);
        vues += label.text();
    }
    EXPECT_EQ(vues, u"accb");
}

TEST_F(Astuce, AClickOnTheBoxIsToldAtOnce) {
    QList<bool> dits;
    const frmTip fenetre(texte_, astuces_, QString(), {true, [&](bool coche) { dits.append(coche); }});
    auto& boite = dans<QCheckBox>(fenetre, u"chkLoadTipsAtStartup"_s);
    EXPECT_TRUE(boite.isChecked());
    EXPECT_TRUE(dits.isEmpty());
    boite.click();
    EXPECT_EQ(dits, QList<bool>{false});
    boite.click();
    EXPECT_EQ(dits, (QList<bool>{false, true}));
}

TEST_F(Astuce, TheBoxIsEmptyWithTipsOff) {
    frmTip fenetre(texte_, astuces_, QString(), {false, {}});
    fenetre.show();
    EXPECT_TRUE(fenetre.isVisible());
    auto& boite = dans<QCheckBox>(fenetre, u"chkLoadTipsAtStartup"_s);
    EXPECT_FALSE(boite.isChecked());
    boite.click(); // nobody listens
}

TEST_F(Astuce, OkReturnAndEscapeCloseTheWindow) {
    const auto ouverte = [this] {
        auto fenetre = std::make_unique<frmTip>(texte_, astuces_, QString(), frmTip::Demarrage{});
        fenetre->show();
        return fenetre;
    };
    auto fenetre = ouverte();
    clique(*fenetre, u"cmdok"_s);
    EXPECT_FALSE(fenetre->isVisible());
    fenetre = ouverte();
    QTest::keyClick(fenetre.get(), Qt::Key_Return);
    EXPECT_FALSE(fenetre->isVisible());
    fenetre = ouverte();
    QTest::keyClick(fenetre.get(), Qt::Key_Escape);
    EXPECT_FALSE(fenetre->isVisible());
}

TEST_F(Astuce, ALongTipIsScrolledAndNotCut) {
    frmTip fenetre(texte_, astuces_, ecrit(u"TIPS.FR"_s, QByteArray("mot ").repeated(2000)), {});
    fenetre.show();
    EXPECT_LE(fenetre.height(), fenetre.screen()->availableSize().height());
    const QLabel& label = dans<QLabel>(fenetre, u"lblTipText"_s);
    EVENTUALLY(label.height() >= label.heightForWidth(label.width()));
    EXPECT_LT(fenetre.height(), label.height());
}

// ---- The partners' picture

TEST_F(PetitesFenetres, ThePartnersWindowTakesThePicturesSize) {
    QImage image(321, 123, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString fichier = dossier_.filePath(u"partners.bmp"_s);
    ASSERT_TRUE(image.save(fichier, "bmp"));
    sponsor fenetre(texte_, fichier);
    fenetre.show();
    EXPECT_EQ(fenetre.size(), image.size());
    EXPECT_EQ(fenetre.windowTitle(), texte_(Texte{162}));
    EXPECT_EQ(fenetre.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(dans<QLabel>(fenetre, u"Imagepartner"_s).pixmap().toImage().pixelColor(300, 100), QColor(Qt::red));
    QTest::keyClick(&fenetre, Qt::Key_Escape);
    EXPECT_FALSE(fenetre.isVisible());
}

TEST_F(PetitesFenetres, ARunLengthCodedPictureIsReadLikeABitmap) {
    // 4 by 2 pixels of 8 bits: each row one run, the lower row first.
    QByteArray bmp = QByteArray::fromHex("424d00000000000000003e000000"
                                         "2800000004000000020000000100080001000000000000000000000000000000"
                                         "0200000000000000"
                                         "0000ff0000ff0000"
                                         "0400000004010001");
    const sponsor fenetre(texte_, ecrit(u"partners.rle"_s, bmp));
    const QImage image = dans<QLabel>(fenetre, u"Imagepartner"_s).pixmap().toImage();
    ASSERT_EQ(image.size(), QSize(4, 2));
    EXPECT_EQ(image.pixelColor(0, 1), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(3, 0), QColor(0, 255, 0));
}

TEST_F(PetitesFenetres, APictureLargerThanTheScreenIsMadeSmaller) {
    QImage image(4000, 1000, QImage::Format_Grayscale8);
    image.fill(128);
    const QString fichier = dossier_.filePath(u"partners.bmp"_s);
    ASSERT_TRUE(image.save(fichier, "bmp"));
    sponsor fenetre(texte_, fichier);
    fenetre.show();
    const QSize libre = fenetre.screen()->availableSize();
    EXPECT_LT(fenetre.width(), libre.width());
    EXPECT_LT(fenetre.height(), libre.height());
    EXPECT_NEAR(double(fenetre.width()) / fenetre.height(), 4, 0.05);
}

TEST_F(PetitesFenetres, AnUnreadablePictureIsSaidInWords) {
    QImage image(300, 300, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString entier = dossier_.filePath(u"entier.bmp"_s);
    ASSERT_TRUE(image.save(entier, "bmp"));
    QFile source(entier);
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    const QByteArray entete = source.read(20);
    for (const QString& fichier : {dossier_.filePath(u"absent.bmp"_s), ecrit(u"vide.bmp"_s, {}),
                                   ecrit(u"faux.bmp"_s, "pas une image"), ecrit(u"coupe.bmp"_s, entete)}) {
        sponsor fenetre(texte_, fichier);
        fenetre.show();
        EXPECT_TRUE(fenetre.isVisible());
        EXPECT_EQ(dans<QLabel>(fenetre, u"Imagepartner"_s).text(), remplace(texte_(Texte{9420}), {fichier}));
    }
}

// ---- The splash

TEST_F(PetitesFenetres, TheSplashTellsNameVersionAndStep) {
    int montrees = 0;
    frmSplash accueil({texte_(Texte{8}), texte_(Texte{2}) + u" 1.0.0"_s, texte_(Texte{7})});
    accueil.estmontree = [&] { ++montrees; };
    EXPECT_EQ(dans<QLabel>(accueil, u"lblProductName"_s).text(), texte_(Texte{8}));
    EXPECT_EQ(dans<QLabel>(accueil, u"trademark"_s).text(), texte_(Texte{7}));
    EXPECT_EQ(dans<QLabel>(accueil, u"lblVersion"_s).text(), texte_(Texte{2}) + u" 1.0.0"_s);
    EXPECT_EQ(accueil.windowModality(), Qt::NonModal);
    EXPECT_NE(dans<QLabel>(accueil, u"Label1"_s).parentWidget(), nullptr);
    EXPECT_EQ(dans<Logo>(accueil, u"imgLogo"_s).parentWidget()->objectName(), u"Frame1");
    accueil.show();
    EXPECT_EQ(montrees, 1);
    accueil.changeetape(u"Une étape..."_s);
    EXPECT_EQ(dans<QLabel>(accueil, u"lblEtape"_s).text(), u"Une étape...");
}

TEST_F(PetitesFenetres, TheBarOfTheSplashIsHiddenUntilItIsUsed) {
    frmSplash accueil({texte_(Texte{8}), texte_(Texte{2}), texte_(Texte{7})});
    accueil.show();
    auto& barre = dans<QProgressBar>(accueil, u"ProgressBar1"_s);
    EXPECT_FALSE(barre.isVisible());
    const QSize avant = accueil.size();
    accueil.changeprogression(42.7);
    EXPECT_TRUE(barre.isVisible());
    EXPECT_EQ(barre.value(), 42);
    accueil.changeprogression(250);
    EXPECT_EQ(barre.value(), 100);
    EXPECT_EQ(accueil.size(), avant);
}
