// A job as a PDF, judged by the tools that others read it with.
#include "platform/paper/pdffile.h"
#include "platform/paper/printjob.h"
#include "platform/richtext/richtext.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class PdfTest : public testing::Test {
protected:
    PrintJob job{{11906, 16838, 11906, 16838, 0, 0}, [](const JobPages&) {}};

    static RichText text(const QString& words, const CharFormat& format = serif(), const ParaFormat& paragraph = {}) {
        RichText rich;
        rich.append(words, rich.intern(format), rich.intern(paragraph));
        return rich;
    }
    static CharFormat serif() {
        CharFormat format;
        format.family = u"Liberation Serif"_s;
        format.size = 22;
        return format;
    }
    void print(const RichText& rich, const QString& title = {}) {
        job.setTitle(title);
        for (qsizetype at = 0;;) {
            const auto done = job.format(rich, at, -1, {1134, 1134, 9638, 14570});
            if (done.next >= rich.length())
                break;
            at = done.next;
            job.newPage();
        }
        job.release();
    }
    QString written(const PdfProperties& properties = {u"Titre"_s, u"fr"_s, {}}) {
        const QString path = folder.filePath(u"essai.pdf"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(pdfOf(job.pages(), properties));
        return path;
    }
    /// What a tool says; its failure is one of the test.
    static QString said(const QString& tool, const QStringList& words) {
        QProcess process;
        process.start(tool, words);
        EXPECT_TRUE(process.waitForFinished(60'000)) << tool.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(PdfTest, ItsTextIsReadAsItWasWritten) {
    const QString words = u"Le consommateur a fixé l’office à 1 250,00 € : « efficacité », cœur, fluide, affluent."_s;
    print(text(words));
    const QString path = written();
    EXPECT_EQ(said(u"pdftotext"_s, {path, u"-"_s}).simplified(), words.simplified());
    said(u"qpdf"_s, {u"--check"_s, path});
}

TEST_F(PdfTest, EveryFontIsEmbeddedAsAPart) {
    CharFormat bold = serif();
    bold.bold = true;
    RichText rich = text(u"Droit "_s);
    rich.append(u"gras"_s, rich.intern(bold), rich.intern(ParaFormat{}));
    print(rich);
    const QStringList lines = said(u"pdffonts"_s, {written()}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    ASSERT_EQ(lines.size(), 2);
    for (const QString& line : lines)
        EXPECT_TRUE(line.contains(QRegularExpression(u"^[A-Z]{6}\\+LiberationSerif.*yes +yes +yes"_s)))
            << line.toStdString();
}

TEST_F(PdfTest, TitleLanguageAndMomentAreToldAndNoAuthor) {
    print(text(u"x"_s));
    const QString path =
        written({u"Bail d’été"_s, u"fr"_s, QDateTime::fromString(u"2026-11-23T10:00:00Z"_s, Qt::ISODate)});
    const QString info = said(u"pdfinfo"_s, {u"-isodates"_s, path});
    EXPECT_TRUE(info.contains(QRegularExpression(u"Title: +Bail d’été"_s))) << info.toStdString();
    EXPECT_TRUE(info.contains(u"2026-11-23T10:00:00Z"_s)) << info.toStdString();
    EXPECT_FALSE(info.contains(u"Author"_s));
    EXPECT_TRUE(info.contains(u"595.3 x 841.9"_s)) << info.toStdString();
    EXPECT_TRUE(said(u"qpdf"_s, {u"--qdf"_s, u"--object-streams=disable"_s, path, u"-"_s}).contains(u"/Lang (fr)"_s));
}

TEST_F(PdfTest, EachTitledTextHasAnEntryInTheOutline) {
    print(text(u"Un"_s), u"Premier"_s);
    job.newPage();
    print(text(u"Deux"_s), u"Second, été"_s);
    const QString json = said(u"qpdf"_s, {u"--json"_s, u"--json-key=outlines"_s, written()});
    EXPECT_TRUE(json.contains(u"\"title\": \"Premier\""_s)) << json.toStdString();
    EXPECT_TRUE(json.contains(u"Second, "_s));
    EXPECT_TRUE(json.contains(u"\"destpageposfrom1\": 2"_s)) << json.toStdString();
}

TEST_F(PdfTest, AStretchedLineReachesItsEdge) {
    ParaFormat justified;
    justified.alignment = Alignment::Justify;
    print(text(u"mot "_s.repeated(200), serif(), justified));
    const QString boxes = said(u"pdftotext"_s, {u"-bbox"_s, written(), u"-"_s});
    double right = 0;
    for (const auto& match : QRegularExpression(u"xMax=\"([0-9.]+)\""_s).globalMatch(boxes))
        right = std::max(right, match.captured(1).toDouble());
    EXPECT_NEAR(right, (1134 + 9638) / 20.0, 1.5);
}

TEST_F(PdfTest, LettersThatTheFontLacksComeFromAnother) {
    print(text(u"a → 漢 b"_s));
    EXPECT_TRUE(said(u"pdftotext"_s, {written(), u"-"_s}).contains(u"→"_s));
}

TEST_F(PdfTest, AStopGivesNothing) {
    print(text(u"ligne\r\n"_s.repeated(500)));
    std::size_t told = 0;
    const QByteArray bytes = pdfOf(job.pages(), {}, [&](std::size_t page) {
        told = page;
        return page < 2;
    });
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_EQ(told, 2U);
}

} // namespace velm
