// A job as a PDF, judged by the tools that others read it with.
#include "platform/paper/pdffile.h"
#include "platform/paper/printjob.h"
#include "platform/richtext/richtext.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
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

    /// A picture that stands in a text, of so many twips.
    static RichText picture(const RichObject& object) {
        RichText rich = text(u"avant "_s);
        CharFormat format = serif();
        format.object = rich.addObject(object);
        rich.append(QString(QChar::ObjectReplacementCharacter), rich.intern(format), rich.intern(ParaFormat{}));
        rich.append(u" après"_s, rich.intern(serif()), rich.intern(ParaFormat{}));
        return rich;
    }
    static RichObject png(QImage::Format form, int width, int height) {
        QImage image(8, 8, form);
        image.fill(QColor(200, 0, 0, 128));
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        return {RichObject::Kind::Png, bytes, width, height};
    }
    /// The words of its objects, readable.
    static QString opened(const QString& path) {
        return said(u"qpdf"_s, {u"--qdf"_s, u"--object-streams=disable"_s, path, u"-"_s});
    }
    /// A sheet as it looks.
    QImage seen(const QString& path) {
        const QString to = folder.filePath(u"vue"_s);
        said(u"pdftoppm"_s, {u"-r"_s, u"72"_s, u"-png"_s, u"-singlefile"_s, path, to});
        return QImage(to + u".png"_s).convertToFormat(QImage::Format_RGB32);
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

TEST_F(PdfTest, WordsEndWhereTheLineWasSetForThem) {
    print(text(u"mot "_s.repeated(20) + u"mot"_s));
    const JobRun& run = job.pages().pages[0].runs.at(0);
    const QString boxes = said(u"pdftotext"_s, {u"-bbox"_s, written(), u"-"_s});
    double right = 0;
    for (const auto& match : QRegularExpression(u"xMax=\"([0-9.]+)\""_s).globalMatch(boxes))
        right = std::max(right, match.captured(1).toDouble());
    EXPECT_NEAR(right, double(run.x + run.width) / 20.0, 0.1);
}

TEST_F(PdfTest, LettersThatTheFontLacksComeFromAnother) {
    print(text(u"a → 漢 b"_s));
    EXPECT_TRUE(said(u"pdftotext"_s, {written(), u"-"_s}).contains(u"→"_s));
}

TEST_F(PdfTest, EachLetterKeepsItsCode) {
    const QString words = u"fi ffi fl Œuvre 12\u00A0000\u202F€ n\u00B0 e\u0301t\u00E9 \U0001D538 \u2610 \u0416"_s;
    print(text(words));
    const QString path = written();
    const QString read = said(u"pdftotext"_s, {path, u"-"_s}).normalized(QString::NormalizationForm_C);
    for (const QString& word : words.normalized(QString::NormalizationForm_C)
                                   .split(QRegularExpression(u"\\s"_s, QRegularExpression::UseUnicodePropertiesOption)))
        EXPECT_TRUE(read.contains(word)) << word.toStdString() << " in " << read.toStdString();
    // Blanks are all alike to that tool; the file tells one that does not break from others.
    const QString objects = opened(path);
    QStringList codes; // of the page
    for (const auto& line : QRegularExpression(u"\\[(<[^\\]]*>)\\]TJ"_s).globalMatch(objects))
        for (const auto& some : QRegularExpression(u"<([0-9a-f]*)>"_s).globalMatch(line.captured(1)))
            for (qsizetype at = 0; at < some.captured(1).size(); at += 4)
                codes << some.captured(1).mid(at, 4);
    EXPECT_GT(codes.size(), 20);
    // One glyph, twice: as a letter with its accent, and as the accented letter.
    for (const QString& letters : {u"00a0"_s, u"0020"_s, u"00650301"_s, u"00e9"_s}) {
        const auto code = QRegularExpression(u"<([0-9a-f]{4})> <%1>"_s.arg(letters)).match(objects);
        ASSERT_TRUE(code.hasMatch()) << letters.toStdString();
        EXPECT_TRUE(codes.contains(code.captured(1))) << letters.toStdString();
    }
    said(u"qpdf"_s, {u"--check"_s, path});
}

TEST_F(PdfTest, LinksLeadToTheWebAndToMail) {
    job.setLinks({{0, 7, u"https://exemple.fr/?a=(b)&c=d"_s}, {11, 18, u"mailto:avis@exemple.fr"_s}});
    print(text(u"Le site ou courriel"_s));
    const QString path = written();
    const QString words = opened(path);
    EXPECT_TRUE(words.contains(u"mailto:avis@exemple.fr"_s));
    EXPECT_TRUE(words.contains(u"https://exemple.fr/?a="_s));
    EXPECT_EQ(words.count(u"/Subtype /Link"_s), 2);
    const auto place =
        QRegularExpression(u"/Rect \\[\\s*([0-9.]+)\\s+([0-9.]+)\\s+([0-9.]+)\\s+([0-9.]+)"_s).match(words);
    ASSERT_TRUE(place.hasMatch());
    EXPECT_NEAR(place.captured(1).toDouble(), 1134 / 20.0, 1) << "at the text's left edge";
    EXPECT_LT(place.captured(4).toDouble(), (16838 - 1134) / 20.0 + 1);
    EXPECT_GT(place.captured(2).toDouble(), (16838 - 1134) / 20.0 - 30) << "on the first line";
    said(u"qpdf"_s, {u"--check"_s, path});
}

TEST_F(PdfTest, PicturesShowThroughWhereTheyAreClear) {
    print(picture(png(QImage::Format_ARGB32, 2000, 2000)));
    const QString path = written();
    const QString list = said(u"pdfimages"_s, {u"-list"_s, path});
    EXPECT_TRUE(list.contains(u"smask"_s)) << list.toStdString();
    int clear = 0;
    const QImage sheet = seen(path);
    for (int y = 0; y < sheet.height(); ++y)
        for (int x = 0; x < sheet.width(); ++x) {
            const QRgb colour = sheet.pixel(x, y);
            clear += qRed(colour) > 210 && qRed(colour) < 245 && qGreen(colour) > 110 && qGreen(colour) < 145 ? 1 : 0;
        }
    EXPECT_NEAR(clear, 100 * 100, 600) << "half red on white paper";
    EXPECT_EQ(said(u"pdftotext"_s, {path, u"-"_s}).simplified(), u"avant après"_s);
}

TEST_F(PdfTest, AFrameStandsForABrokenPicture) {
    print(picture({RichObject::Kind::Png, "garbage", 2000, 2000}));
    const QString path = written();
    said(u"qpdf"_s, {u"--check"_s, path});
    int inked = 0;
    const QImage sheet = seen(path);
    for (int y = 0; y < sheet.height(); ++y)
        for (int x = 0; x < sheet.width(); ++x)
            inked += qRed(sheet.pixel(x, y)) < 220 ? 1 : 0;
    EXPECT_GT(inked, 200) << "a frame";
    EXPECT_LT(inked, 3000) << "and nothing in it";
}

TEST_F(PdfTest, APictureTallerThanTheSheetIsShrunkToIt) {
    print(picture(png(QImage::Format_RGB32, 3000, 40'000)));
    const QString path = written();
    said(u"qpdf"_s, {u"--check"_s, path});
    const QString read = said(u"pdftotext"_s, {path, u"-"_s});
    EXPECT_TRUE(read.contains(u"avant"_s) && read.contains(u"après"_s)) << "and takes no text with it";
}

TEST_F(PdfTest, LinesStandUnderAndInTheLetters) {
    const auto rules = [this](bool under, bool struck) {
        job.discard();
        CharFormat format = serif();
        format.underline = under;
        format.strike = struck;
        print(text(u"mmmm"_s, format));
        return opened(written()).count(QRegularExpression(u" re f\\b"_s));
    };
    EXPECT_EQ(rules(false, false), 0);
    EXPECT_EQ(rules(true, false), 1);
    EXPECT_EQ(rules(true, true), 2);
}

TEST_F(PdfTest, ThousandsOfSheetsAreSound) {
    const RichText rich = text(u"Une ligne.\r\n"_s.repeated(60));
    for (int i = 0; i < 1500; ++i) {
        if (i > 0)
            job.newPage();
        print(rich, u"Texte %1"_s.arg(i));
    }
    const QString path = written();
    const QString info = said(u"pdfinfo"_s, {path});
    EXPECT_TRUE(info.contains(QRegularExpression(u"Pages: +%1\\b"_s.arg(job.pages().pages.size()))))
        << info.toStdString();
    EXPECT_GT(job.pages().pages.size(), 2000U);
    said(u"qpdf"_s, {u"--check"_s, path});
}

TEST_F(PdfTest, AnEmptySheetIsAFileToo) {
    job.blank();
    const QString path = written({});
    said(u"qpdf"_s, {u"--check"_s, path});
    EXPECT_TRUE(said(u"pdfinfo"_s, {path}).contains(QRegularExpression(u"Pages: +1\\b"_s)));
}

TEST_F(PdfTest, WhateverFailsIsAFailureOfThePrint) {
    print(text(u"x"_s));
    EXPECT_THROW(pdfOf(job.pages(), {}, [](std::size_t) -> bool { throw PrintFailure("gone"); }), PrintFailure);
    EXPECT_THROW(pdfOf(job.pages(), {}, [](std::size_t) -> bool { throw std::runtime_error("no"); }), PrintFailure);
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
