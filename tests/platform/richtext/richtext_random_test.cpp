// Random changes against the oracle, with small texts full of line ends so that every seam is met.
#include "platform/richtext/richtext.h"
#include "richtext_naive.h"
#include "tests/support/rounds.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <random>

namespace velm {
namespace {

using test::NaiveText;

class Player {
public:
    explicit Player(unsigned seed) : random_(seed) {}

    void play(int rounds) {
        for (int i = 0; i < rounds; ++i) {
            const quint64 before = text_.revision();
            const int kind = step();
            const QString text = text_.text();
            ASSERT_EQ(text, naive_.text()) << "round " << i << " kind " << kind;
            ASSERT_TRUE(text == last_ ? text_.revision() >= before : text_.revision() > before);
            last_ = text;
            // A wrong format stays: looking for it now and then is enough.
            const QString differs = i % 4 == 0 ? test::difference(text_, naive_) : QString();
            ASSERT_TRUE(differs.isEmpty()) << "round " << i << " kind " << kind << ": " << differs.toStdString();
            if (i % 16 == 0)
                checkReading();
        }
    }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    qsizetype position() { return number(-2, static_cast<int>(text_.length()) + 2); }
    qsizetype span() { return number(0, 3) == 0 ? number(-1, 60) : number(0, 4); }

    QString words(bool clean) {
        static const QStringList raw = {QStringLiteral("a"),  QStringLiteral("b{"),   QStringLiteral("}é"),
                                        QStringLiteral("\t"), QStringLiteral("\r\n"), QStringLiteral("\r"),
                                        QStringLiteral("\n"), QStringLiteral("\f"),   QStringLiteral("{S=")};
        QString result;
        for (int i = number(0, 5); i > 0; --i)
            result += raw[number(0, static_cast<int>(raw.size()) - 1)];
        if (clean) {
            result.remove(u'\n');
            result.replace(u'\r', QStringLiteral("\r\n"));
        }
        return result;
    }

    CharFormat character() {
        CharFormat format;
        format.bold = number(0, 1) != 0;
        format.size = number(20, 22);
        format.colour = number(0, 2);
        return format;
    }

    ParaFormat paragraph() {
        ParaFormat format;
        format.startIndent = number(0, 3);
        format.bullet = number(0, 1) != 0;
        if (number(0, 1) != 0)
            format.tabs = {number(1, 5), number(6, 9)};
        return format;
    }

    /// A small text in both forms, sometimes with a picture.
    std::pair<RichText, NaiveText> other() {
        RichText rich;
        NaiveText naive;
        for (int i = number(0, 3); i > 0; --i)
            appendTo(rich, naive, words(true));
        if (number(0, 4) == 0) {
            const RichObject object{RichObject::Kind::Png, QByteArray::number(number(0, 9)), 1, 2};
            CharFormat format = character();
            format.object = rich.addObject(object);
            const ParaFormat para = paragraph();
            rich.append(u"\uFFFC", rich.intern(format), rich.intern(para));
            naive.append(QStringLiteral("\uFFFC"), format, para);
            naive.positions.back().object = object;
        }
        return {rich, naive};
    }

    void appendTo(RichText& rich, NaiveText& naive, const QString& text) {
        const CharFormat format = character();
        const ParaFormat para = paragraph();
        rich.append(text, rich.intern(format), rich.intern(para));
        naive.append(text, format, para);
        if (number(0, 3) == 0) {
            const CharFormat tail = character();
            rich.setTail(rich.intern(tail), rich.intern(para));
            naive.setTail(tail, para);
        }
    }

    void changeCharacters() {
        CharChange change{static_cast<unsigned>(number(0, 1023)), character()};
        const qsizetype at = position();
        const qsizetype length = span();
        text_.changeCharacters(at, length, change);
        naive_.changeCharacters(at, length, change);
    }

    void changeParagraphs() {
        ParaChange change{static_cast<unsigned>(number(0, 511)), paragraph()};
        const qsizetype at = position();
        const qsizetype length = span();
        text_.changeParagraphs(at, length, change);
        naive_.changeParagraphs(at, length, change);
    }

    int step() {
        const int kind = text_.length() > 120 ? number(0, 2) : number(0, 11);
        const qsizetype at = position();
        const qsizetype length = span();
        if (kind <= 1) {
            text_.remove(at, length);
            naive_.replace(at, length, QString());
        } else if (kind <= 4) {
            const QString added = words(false);
            const auto range = text_.changeRange(at, length);
            EXPECT_EQ(range, naive_.changeRange(at, length));
            const qsizetype count = text_.replace(at, length, added);
            EXPECT_EQ(count, naive_.replace(at, length, added));
        } else if (kind <= 6) {
            const auto [rich, naive] = other();
            EXPECT_EQ(text_.replace(at, length, rich), naive_.replace(at, length, naive));
        } else if (kind == 7) {
            changeCharacters();
        } else if (kind <= 9) {
            changeParagraphs();
        } else if (kind == 10) {
            const RichText part = text_.copy(at, length);
            const NaiveText naivePart = naive_.copy(at, length);
            EXPECT_EQ(test::difference(part, naivePart).toStdString(), "");
            const qsizetype to = position();
            text_.replace(to, 1, part);
            naive_.replace(to, 1, naivePart);
        } else {
            appendTo(text_, naive_, words(true));
        }
        return kind;
    }

    void checkReading() {
        const QString plain = text_.text();
        const qsizetype at = position();
        const qsizetype from = std::clamp<qsizetype>(at, 0, plain.size());
        for (const QString& needle : {QStringLiteral("{"), QStringLiteral("{S="), QStringLiteral("\r\n"),
                                      QStringLiteral("aa"), plain.mid(from, 7)}) {
            if (!needle.isEmpty()) {
                EXPECT_EQ(text_.indexOf(needle, at), plain.indexOf(needle, from));
            }
        }
        EXPECT_EQ(text_.indexOf(u'}', at), plain.indexOf(u'}', from));
        if (at >= 0) {
            EXPECT_EQ(text_.lastIndexOf(u'\r', at), plain.left(at + 1).lastIndexOf(u'\r'));
        }
        const qsizetype end = plain.indexOf(u'\n', from);
        EXPECT_EQ(text_.paragraphEnd(at), end < 0 ? plain.size() : end + 1);
        EXPECT_EQ(text_.paragraphStart(at), plain.left(from).lastIndexOf(u'\n') + 1);
        qsizetype next = 0;
        text_.forEachRun(0, text_.length(), [&](qsizetype start, qsizetype count, FormatId id) {
            EXPECT_EQ(start, next);
            EXPECT_GT(count, 0);
            if (start > 0) {
                EXPECT_NE(text_.charFormatIdAt(start - 1), id);
            }
            for (qsizetype i = start; i < start + count; ++i)
                EXPECT_EQ(text_.charFormatIdAt(i), id);
            next = start + count;
        });
        EXPECT_EQ(next, text_.length());
        const RichText same = text_.copy(0, text_.length());
        EXPECT_TRUE(sameContent(same, text_));
    }

    std::mt19937 random_;
    RichText text_;
    NaiveText naive_;
    QString last_;
};

TEST(RichTextRandom, ManyChangesKeepTextAndFormatsAsTheNaiveModelHasThem) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        Player player(seed);
        player.play(test::rounds(2000));
        ASSERT_FALSE(::testing::Test::HasFailure()) << "seed " << seed;
    }
}

} // namespace
} // namespace velm
