// The pictures behind the windows, and the ground of the frame.
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/look/look.h"
#include "shell/fonds.h"
#include "tests/shell/ecran_support.h"
#include "tests/support/contrast.h"

#include <QPainter>

using namespace velm;

namespace {

using FondTest = test::EcranTest;

} // namespace

TEST(Fonds, TheColoursAreThoseOfTheFrame) {
    const long couleurs[] = {12648447, 11394047, 14414327, 14805484, 16777215};
    for (int n = 0; n < nombredefonds; ++n) {
        const long c = couleurs[n];
        EXPECT_EQ(couleurdefond(n), QColor(int(c & 0xFF), int(c >> 8 & 0xFF), int(c >> 16 & 0xFF))) << n;
    }
    EXPECT_FALSE(couleurdefond(-1).isValid());
    EXPECT_FALSE(couleurdefond(nombredefonds).isValid());
}

namespace {

QColor couleurlaplusfrequente(const QImage& image) {
    QHash<QRgb, int> nombres;
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4)
            ++nombres[image.pixel(x, y)];
    }
    QRgb frequente = 0;
    int plus = 0;
    for (auto ici = nombres.cbegin(); ici != nombres.cend(); ++ici) {
        if (ici.value() > plus) {
            plus = ici.value();
            frequente = ici.key();
        }
    }
    return QColor::fromRgb(frequente);
}

} // namespace

TEST(Fonds, ThePicturesAreQuiet) {
    for (const look::Theme theme : {look::Theme::Light, look::Theme::Dark}) {
        for (int n = 0; n < nombredefonds; ++n) {
            const QPixmap dessin = imagedefond(n, QSize(800, 600), 1, theme);
            const QColor couleur = theme == look::Theme::Light ? couleurdefond(n) : look::ground(theme);
            QImage image(800, 600, QImage::Format_RGB32);
            image.fill(couleur);
            QPainter(&image).drawPixmap(0, 0, dessin);
            const QColor fond = couleurlaplusfrequente(image); // the veil changes the ground itself
            int traits = 0;
            int forts = 0;
            for (int y = 0; y < image.height(); y += 2) {
                for (int x = 0; x < image.width(); x += 2) {
                    const double contraste = test::contrast(fond, image.pixelColor(x, y));
                    ASSERT_LT(contraste, 3) << n << ": " << x << ',' << y;
                    traits += contraste > 1.02 ? 1 : 0;
                    forts += contraste > 2 ? 1 : 0;
                }
            }
            // Where lines meet they may be stronger, nowhere else.
            EXPECT_LT(forts, 120) << n;
            EXPECT_GT(traits, 400) << n;
            EXPECT_LT(traits, 60000) << n;
        }
    }
}

TEST(Fonds, ThePicturesAreDrawnForTheirDensityAndDiffer) {
    for (int n = 0; n < nombredefonds; ++n) {
        const QPixmap dense = imagedefond(n, QSize(200, 100), 2, look::Theme::Light);
        EXPECT_EQ(dense.size(), QSize(400, 200));
        EXPECT_EQ(dense.deviceIndependentSize(), QSizeF(200, 100));
        for (int autre = 0; autre < n; ++autre)
            EXPECT_NE(dense.toImage(), imagedefond(autre, QSize(200, 100), 2, look::Theme::Light).toImage());
    }
    EXPECT_TRUE(imagedefond(-1, QSize(10, 10), 1, look::Theme::Light).isNull());
    EXPECT_TRUE(imagedefond(5, QSize(10, 10), 1, look::Theme::Light).isNull());
    EXPECT_TRUE(imagedefond(0, QSize(), 1, look::Theme::Light).isNull());
    EXPECT_FALSE(imagedefond(1, QSize(1, 1), 1, look::Theme::Light).isNull());
}

// ---- The ground of the frame

TEST_F(FondTest, NobodysGroundIsPlainAndSetsTheWindowsOff) {
    for (const look::Theme theme : {look::Theme::Light, look::Theme::Dark}) {
        const QPalette avant = QApplication::palette();
        QApplication::setPalette(look::palette(theme));
        demarre(QString());
        EXPECT_EQ(aire().backColour(), look::ground(theme));
        EXPECT_TRUE(aire().backPicture().isNull());
        programme.reset();
        QApplication::setPalette(avant);
    }
}

TEST_F(FondTest, NoGroundOfADarkDeskIsLighterThanItsWindows) {
    const QPalette avant = QApplication::palette();
    QApplication::setPalette(look::palette(look::Theme::Dark));
    demarre(QString());
    const double fenetres = test::luminance(QApplication::palette().color(QPalette::Window));
    for (int numero = -1; numero <= 4; ++numero) {
        ecran().placefond(*fondecran(numero, 0));
        EXPECT_LT(test::luminance(aire().backColour()), fenetres) << numero;
    }
    programme.reset();
    QApplication::setPalette(avant);
}

TEST_F(FondTest, BackgroundMinusOneToFiveSetPictureAndColour) {
    demarre(QString());
    const std::array<QColor, 5> couleurs{QColor(0xFF, 0xFF, 0xC0), QColor(0xFF, 0xDB, 0xAD), QColor(0xF7, 0xF1, 0xDB),
                                         QColor(0xEC, 0xE9, 0xE1), QColor(0xFF, 0xFF, 0xFF)};
    for (int numero = 0; numero <= 4; ++numero) {
        ecran().placefond(*fondecran(numero, 0x0000FF));
        EXPECT_FALSE(aire().backPicture().isNull()) << numero;
        EXPECT_EQ(aire().backColour(), couleurs.at(static_cast<std::size_t>(numero))) << numero;
    }
    ecran().placefond(*fondecran(2, 0x0000FF));
    ecran().placefond(*fondecran(-1, 0x0000FF));
    EXPECT_TRUE(aire().backPicture().isNull());
    EXPECT_EQ(aire().backColour(), couleurs[2]) << "the colour stays as it was";
}

TEST_F(FondTest, ThePlainBackgroundTakesTheChosenColour) {
    regle(u"GENERALITES", u"FOND", QStringLiteral("1"));
    demarre(QString());
    EXPECT_FALSE(aire().backPicture().isNull());
    ecran().placefond(*fondecran(5, 0x0000FF));
    EXPECT_TRUE(aire().backPicture().isNull());
    EXPECT_EQ(aire().backColour(), QColor(0xFF, 0, 0));
}

TEST_F(FondTest, Background6DoesNothing) {
    EXPECT_FALSE(fondecran(6, 0x0000FF));
    regle(u"GENERALITES", u"FOND", QStringLiteral("1"));
    regle(u"GENERALITES", u"FONDNO", QStringLiteral("6"));
    regle(u"GENERALITES", u"FONDCOULEUR", QStringLiteral("255"));
    demarre(QString());
    EXPECT_TRUE(aire().backPicture().isNull());
    EXPECT_NE(aire().backColour(), QColor(Qt::red));
}

TEST_F(FondTest, APictureIsThereForWhoeverWantsOne) {
    demarre(QString());
    EXPECT_TRUE(aire().backPicture().isNull()) << "nobody has chosen one";
    programme.reset();
    regle(u"GENERALITES", u"FOND", QStringLiteral("1"));
    demarre(QString());
    EXPECT_FALSE(aire().backPicture().isNull());
}

TEST_F(FondTest, TheGroundAndTheButtonsHavePointersOfTheirOwn) {
    demarre(QStringLiteral("CO1"));
    const auto dessin = [](const QWidget& widget) { return widget.cursor().pixmap().toImage(); };
    const QImage fleche = dessin(*aire().viewport());
    const QImage bouton = dessin(*barrecommande().widget(QStringLiteral("Copier")));
    EXPECT_FALSE(fleche.isNull());
    EXPECT_EQ(bouton, fleche) << "the hand belongs to links";
    EXPECT_EQ(dessin(*barreecran().widget(QStringLiteral("CO"))), bouton);
    EXPECT_EQ(programme->fenetre(0)->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(dessin(*programme->fenetre(0)).isNull());
}
