// The printer, which is a file here.
#include "platform/paper/pagepainter.h"
#include "platform/system/ui/qtimprimante.h"

#include <QFile>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ImprimanteQtTest : public testing::Test {
protected:
    static JobPages liste(int lignes) {
        PaperTable t{u"Impression"_s, {u"Titre"_s, u"Mot clé"_s}, {3000, 1000}, {}};
        for (int i = 1; i <= lignes; ++i)
            t.rows += (i > 1 ? u"\r"_s : QString()) + u"Un titre, numéro %1\tvente"_s.arg(i);
        return tablePages(sheetA4, t);
    }
    QByteArray octets() const {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }

    QTemporaryDir dossier;
    QString chemin = dossier.filePath(u"travail.pdf"_s);
    QPrinter imprimante{QPrinter::HighResolution};

    void SetUp() override {
        imprimante.setOutputFormat(QPrinter::PdfFormat);
        imprimante.setOutputFileName(chemin);
    }
};

} // namespace

TEST_F(ImprimanteQtTest, AFileIsWrittenWholeWithEachPageTold) {
    const JobPages pages = liste(500);
    ASSERT_GT(pages.pages.size(), 3U);
    QList<int> entendues;
    imprimesur(imprimante, pages, u"Liste"_s, u"fr"_s, [&](int page) {
        entendues << page;
        return true;
    });
    EXPECT_TRUE(octets().startsWith("%PDF"));
    EXPECT_EQ(entendues.size(), static_cast<qsizetype>(pages.pages.size()));
    EXPECT_EQ(imprimante.docName(), u"Liste");
}

TEST_F(ImprimanteQtTest, StoppedNothingComesOut) {
    EXPECT_THROW(imprimesur(imprimante, liste(500), {}, {}, [](int page) { return page < 2; }), PrintFailure);
    EXPECT_FALSE(QFile::exists(chemin));
}

TEST_F(ImprimanteQtTest, AFileThatCannotBeWrittenIsAFailure) {
    imprimante.setOutputFileName(dossier.path());
    EXPECT_THROW(imprimesur(imprimante, liste(3), {}, {}, {}), PrintFailure);
}

TEST_F(ImprimanteQtTest, TheNextJobTakesNoFilesPlace) {
    const QString second = dossier.filePath(u"travail (2).pdf"_s);
    EXPECT_EQ(fichiersuivant(chemin), second);
    QFile fichier(second);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    EXPECT_EQ(fichiersuivant(chemin), dossier.filePath(u"travail (3).pdf"_s));
    EXPECT_EQ(fichiersuivant(second), dossier.filePath(u"travail (3).pdf"_s));
}

TEST_F(ImprimanteQtTest, ThePaperIsToldInTwips) {
    imprimante.setPageSize(QPageSize(QPageSize::A4));
    const PrintDevice::Sheet droite = feuillede(imprimante);
    EXPECT_NEAR(droite.width, sheetA4.width, 10);
    EXPECT_NEAR(droite.height, sheetA4.height, 10);
    EXPECT_EQ(droite.offsetX, 0);
    imprimante.setPageOrientation(QPageLayout::Landscape);
    EXPECT_EQ(feuillede(imprimante).width, droite.height);
    EXPECT_EQ(feuillede(imprimante).height, droite.width);
}

TEST_F(ImprimanteQtTest, PagesArePaintedInTheSizeOfThePaperBehindWhatCannotBePrinted) {
    JobPages une;
    une.offsetX = 720; // half an inch
    une.offsetY = 1440;
    une.pages.emplace_back();
    une.pages[0].fills.push_back({{1440, 1440, 1440, 1440}, 0xFF000000, false});
    QImage papier(500, 500, QImage::Format_RGB32);
    papier.setDotsPerMeterX(3937); // 100 to the inch
    papier.setDotsPerMeterY(3937);
    papier.fill(Qt::white);
    {
        QPainter peintre(&papier);
        entwips(peintre, papier, une);
        PagePainter(une).paint(peintre, 0);
    }
    const auto noir = [&](int x, int y) { return qGray(papier.pixel(x, y)) < 128; };
    EXPECT_TRUE(noir(155, 205) && noir(245, 295));
    EXPECT_FALSE(noir(145, 205) || noir(155, 195) || noir(255, 295) || noir(245, 305));
}

TEST_F(ImprimanteQtTest, WithoutAPrinterAJobIsAFailureAndAListComesToNothing) {
    QtImprimante celle;
    if (QPrinter(QPrinter::HighResolution).outputFormat() != QPrinter::PdfFormat)
        GTEST_SKIP() << "this machine has a printer";
    EXPECT_THROW(celle.imprimepages(liste(3), {}, {}), PrintFailure);
    EXPECT_FALSE(celle.imprime({u"t"_s, {u"a"_s}, {1}, u"x"_s}));
    EXPECT_GT(celle.feuille().width, 0);
}
