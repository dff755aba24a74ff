#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"

#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList tools =
    u"Précédent Suivant Copier Imprimer imprimereject Rechercher chrono numéro motclé Barrefenêtre "
    "Barreoutils Cascade Horizontalement Verticalement Dossiers Haut Bas arbre tableau "
    "recherchedico barrehoriz barreverti propriétés abc motprécédent motsuivant marqueauto dossiers "
    "rangerdocument Index collectionstoutes collectionsaucune précédentrecherche suivantrecherche affichercritères "
    "regrouper "
    "ouvrircritères sauvercritères imprimercritères envoyercritères liens corrélats Liste "
    "LargesIcones SmallIcones historiqueprécédent historiquesuivant chevronfermé chevronouvert"_s.split(u' ');
const QStringList entries = u"quitter enregistrer envoyer texte piècejointe ranger sélectionnertout chercher "
                            "configurerimprimante majnet options astuce aideweb aide apropos boitearret boiteattention "
                            "boiteinformation boitequestion partenaires éditeur ouvrir "
                            "retirer outil éjecter abandonner fenêtresuivante toutfermer "
                            "aperçu pdf copierréférence premièrepage pageprécédente pagesuivante dernièrepage "
                            "agrandir réduire pageentière largeurpage"_s.split(u' ');
const QStringList nodes =
    u"collectionfermée collectionouverte livrefermé livreouvert chapitrefermé chapitreouvert document "
    "dossierfermé dossierouvert dossierdocument dossierextrait dossiernouveau dossiermodifié "
    "dossiersupprimé dossierfermésuppr dossierouvertsuppr dossier"_s.split(u' ');
const QStringList pointers{u"Curseur1"_s, u"Pointeur"_s};

QStringList collections() {
    QStringList names;
    for (int slot = 0; slot < 12; ++slot)
        names << u"collection"_s + QString::number(slot);
    return names;
}

QStringList listed() {
    return tools + entries + nodes + pointers + collections();
}

QImage drawn(const QString& name, int side = 24, QIcon::Mode mode = QIcon::Normal) {
    return icon(name).pixmap(QSize(side, side), 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Alpha values: their sum and their greatest.
std::pair<qint64, int> ink(const QImage& image) {
    qint64 sum = 0;
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            sum += alpha;
            most = std::max(most, alpha);
        }
    }
    return {sum, most};
}

bool hasColour(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == colour.rgb())
                return true;
        }
    }
    return false;
}

class Icons : public testing::Test {
protected:
    void SetUp() override { theme(look::Theme::Light); }
    void TearDown() override { QGuiApplication::setPalette(before_); }
    static void theme(look::Theme theme) { QGuiApplication::setPalette(look::palette(theme)); }

private:
    QPalette before_ = QGuiApplication::palette();
};

TEST_F(Icons, EveryNameHasAPicture) {
    const QStringList known = iconNames();
    for (const QString& name : listed()) {
        EXPECT_TRUE(hasIcon(name)) << name.toStdString();
        EXPECT_TRUE(known.contains(name)) << name.toStdString();
        EXPECT_EQ(icon(name).name(), name);
        for (const int side : {16, 20, 24, 32}) {
            const QImage image = drawn(name, side);
            EXPECT_EQ(image.size(), QSize(side, side));
            EXPECT_GT(ink(image).second, 200) << name.toStdString() << ' ' << side;
        }
    }
}

TEST_F(Icons, NoPictureIsForgottenInTheLists) {
    const QStringList names = listed();
    for (const QString& name : iconNames())
        EXPECT_TRUE(names.contains(name)) << name.toStdString();
}

TEST_F(Icons, UnknownNamesGiveANullIcon) {
    for (const QString& name : {u"inconnu"_s, QString(), u"../velmorante"_s, u"./document"_s, u"DOCUMENT"_s,
                                u"collection12"_s, u"document.svg"_s}) {
        EXPECT_TRUE(icon(name).isNull()) << name.toStdString();
        EXPECT_FALSE(hasIcon(name)) << name.toStdString();
    }
}

TEST_F(Icons, NoPictureIsCutAtItsEdges) {
    constexpr int side = 96;
    for (const QString& name : listed()) {
        const QImage image = drawn(name, side);
        for (int i = 0; i < side; ++i) {
            for (const QPoint at : {QPoint(i, 0), QPoint(i, side - 1), QPoint(0, i), QPoint(side - 1, i)})
                EXPECT_EQ(qAlpha(image.pixel(at)), 0) << name.toStdString();
        }
    }
}

TEST_F(Icons, PicturesOfABarHaveTheSameWeight) {
    for (const QString& name : tools) {
        const qint64 weight = ink(drawn(name)).first / 255;
        EXPECT_GT(weight, name.startsWith(u"chevron") ? 20 : 50) << name.toStdString();
        EXPECT_LT(weight, 260) << name.toStdString();
    }
}

TEST_F(Icons, DisabledPicturesAreFaintAndWithoutColour) {
    for (const QString& name : listed()) {
        const auto normal = ink(drawn(name));
        const QImage disabled = drawn(name, 24, QIcon::Disabled);
        EXPECT_LE(ink(disabled).second, 103) << name.toStdString();
        EXPECT_NEAR(double(ink(disabled).first), double(normal.first) * 0.4, double(normal.first) * 0.02)
            << name.toStdString();
    }
    const QImage disabled = drawn(u"retirer"_s, 96, QIcon::Disabled);
    for (int y = 0; y < disabled.height(); ++y) {
        for (int x = 0; x < disabled.width(); ++x) {
            const QColor colour = disabled.pixelColor(x, y);
            const bool solid = colour.alpha() > 90;
            EXPECT_FALSE(solid && colour.red() > colour.blue() + 8) << x << ',' << y;
        }
    }
}

TEST_F(Icons, ADarkPaletteGivesLightStrokes) {
    QHash<QString, QImage> light;
    for (const QString& name : listed())
        light.insert(name, drawn(name));
    theme(look::Theme::Dark);
    for (const QString& name : listed()) {
        const bool own = pointers.contains(name);
        EXPECT_EQ(drawn(name) == light.value(name), own) << name.toStdString();
    }
    EXPECT_TRUE(hasColour(drawn(u"Haut"_s, 96), QGuiApplication::palette().color(QPalette::WindowText)));
    EXPECT_TRUE(hasColour(drawn(u"retirer"_s, 96), look::warningColour(look::Theme::Dark)));
    EXPECT_TRUE(hasColour(drawn(u"imprimereject"_s, 96), look::accentColour(look::Theme::Dark)));
    theme(look::Theme::Light);
    EXPECT_EQ(drawn(u"Haut"_s), light.value(u"Haut"_s));
}

TEST_F(Icons, PicturesOnTheSelectionTakeItsTextColour) {
    const QColor selected = QGuiApplication::palette().color(QPalette::HighlightedText);
    EXPECT_TRUE(hasColour(drawn(u"document"_s, 96, QIcon::Selected), selected));
    EXPECT_TRUE(hasColour(drawn(u"collection3"_s, 96, QIcon::Selected), selected));
}

TEST_F(Icons, ANumberAtTheEndOfAPicturesNameIsThatOfItsHue) {
    for (const look::Theme current : {look::Theme::Light, look::Theme::Dark}) {
        theme(current);
        for (int slot = 0; slot < 12; ++slot) {
            const QImage image = icon(u"collection%1"_s.arg(slot)).pixmap(QSize(96, 96), 1.0).toImage();
            EXPECT_TRUE(hasColour(image, look::hue(slot, current))) << slot;
        }
    }
}

TEST_F(Icons, PicturesAreSharpAtEveryDensity) {
    for (const double density : {1.0, 1.5, 2.0}) {
        const QPixmap picture = icon(u"document"_s).pixmap(QSize(24, 24), density);
        EXPECT_EQ(picture.size(), (QSizeF(24, 24) * density).toSize());
        EXPECT_EQ(picture.devicePixelRatio(), density);

        QPixmap surface((QSizeF(40, 40) * density).toSize());
        surface.setDevicePixelRatio(density);
        surface.fill(Qt::transparent);
        QPainter painter(&surface);
        icon(u"document"_s).paint(&painter, QRect(0, 0, 24, 24));
        painter.end();
        // What is painted on a dense surface is the picture drawn for its pixels, not a stretched one.
        const QImage expected = picture.toImage().convertToFormat(QImage::Format_ARGB32);
        const QImage painted =
            surface.toImage().copy(QRect(QPoint(), picture.size())).convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < expected.height(); ++y) {
            for (int x = 0; x < expected.width(); ++x)
                EXPECT_EQ(painted.pixel(x, y), expected.pixel(x, y)) << density << ' ' << x << ',' << y;
        }
    }
}

TEST_F(Icons, LongLinesOfMenuPicturesLieOnOnePixel) {
    // The shaft of the arrow, in the row of its middle: one column of full ink.
    const QImage image = drawn(u"Haut"_s, 16);
    int full = 0;
    for (int x = 0; x < 16; ++x)
        full += qAlpha(image.pixel(x, 10)) > 200 ? 1 : 0;
    EXPECT_EQ(full, 1);
}

TEST_F(Icons, IconsOfOneNameShareTheirPixmaps) {
    QPixmapCache::clear();
    const QPixmap first = icon(u"Copier"_s).pixmap(QSize(24, 24), 2.0);
    const QPixmap second = icon(u"Copier"_s).pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(first.cacheKey(), second.cacheKey());
}

TEST_F(Icons, DrawingsHoldStrokesOfOneWidthAndColoursOfRoles) {
    const QRegularExpression colours(u"#[0-9A-Fa-f]{6}"_s);
    const QStringList roles{u"#1E2732"_s, u"#1F4E79"_s, u"#8A2432"_s, u"#5F6771"_s};
    for (const QString& name : listed()) {
        QFile file(u":/icones/"_s + name + u".svg"_s);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString svg = QString::fromUtf8(file.readAll());
        EXPECT_TRUE(svg.contains(u"viewBox=\"0 0 24 24\""_s)) << name.toStdString();
        EXPECT_TRUE(svg.contains(u"stroke-width=\"1.75\" stroke-linecap=\"round\" stroke-linejoin=\"round\""_s));
        EXPECT_FALSE(svg.contains(u"<text"_s)) << name.toStdString();
        if (pointers.contains(name))
            continue;
        for (auto found = colours.globalMatch(svg); found.hasNext();)
            EXPECT_TRUE(roles.contains(found.next().captured())) << name.toStdString();
    }
}

TEST_F(Icons, NoTwoMeaningsShareADrawing) {
    // Names that mean the same on two bars or in a menu stand for one drawing.
    const QStringList twins{u"dossiers"_s, u"ranger"_s,        u"enregistrer"_s, u"dossierfermésuppr"_s,
                            u"dossier"_s,  u"dossierouvert"_s, u"Pointeur"_s};
    QHash<QByteArray, QString> seen;
    for (const QString& name : listed()) {
        if (twins.contains(name))
            continue;
        QFile file(u":/icones/"_s + name + u".svg"_s);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray svg = file.readAll();
        EXPECT_FALSE(seen.contains(svg)) << name.toStdString() << " and " << seen.value(svg).toStdString();
        seen.insert(svg, name);
    }
}

TEST_F(Icons, PointersAreSharpAndPointWithTheirTip) {
    const QCursor hand = iconCursor(u"Pointeur"_s, 2.0);
    EXPECT_EQ(hand.pixmap().size(), QSize(48, 48));
    EXPECT_EQ(hand.pixmap().devicePixelRatio(), 2.0);
    const QImage image = hand.pixmap().toImage();
    EXPECT_GT(qAlpha(image.pixel(hand.hotSpot() * 2)), 0);
    EXPECT_EQ(iconCursor(u"Curseur1"_s, 1.0).pixmap().size(), QSize(24, 24));
    EXPECT_EQ(iconCursor(u"inconnu"_s, 1.0).shape(), Qt::ArrowCursor);
}

TEST_F(Icons, AFaintPictureIsThatOfADisabledOneWhateverItsMode) {
    const QIcon faint = faintIcon(icon(u"collection3"_s));
    const QImage expected = drawn(u"collection3"_s, 24, QIcon::Disabled);
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled}) {
        const QImage image = faint.pixmap(QSize(24, 24), 1.0, mode).toImage();
        EXPECT_EQ(image.convertToFormat(QImage::Format_ARGB32), expected) << mode;
    }
    EXPECT_EQ(faint.pixmap(QSize(24, 24), 2.0).size(), QSize(48, 48)) << "sharp on a dense screen";
    QPixmap surface(24, 24);
    surface.fill(Qt::transparent);
    QPainter painter(&surface);
    faint.paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    EXPECT_EQ(surface.toImage().convertToFormat(QImage::Format_ARGB32), expected);
    EXPECT_TRUE(faintIcon(QIcon()).isNull());
}

TEST_F(Icons, EmptySizesAreNoPicture) {
    EXPECT_TRUE(icon(u"document"_s).pixmap(QSize(0, 0), 1.0).isNull());
    QPixmap surface(4, 4);
    QPainter painter(&surface);
    icon(u"document"_s).paint(&painter, QRect(0, 0, 0, 0));
}

} // namespace
