#include "platform/system/profile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

Profile profileOf(const QByteArray& bytes) {
    return Profile::fromBytes(bytes);
}

TEST(Profil, FindsSectionsAndKeysWithoutCase) {
    const Profile profile = profileOf("[Velmorante 2000]\nCl\xE9=un\n");
    EXPECT_EQ(profile.string(u"VELMORANTE 2000", u"CLÉ"), u"un"_s);
    EXPECT_EQ(profile.string(u"velmorante 2000", u"clé"), u"un"_s);
    EXPECT_TRUE(profile.contains(u"VELMORANTE 2000", u"clé"));
    EXPECT_FALSE(profile.contains(u"VELMORANTE", u"clé"));
}

TEST(Profil, WhatIsMissingGivesTheDefault) {
    const Profile profile = profileOf("[A]\nx=1\n");
    EXPECT_EQ(profile.string(u"A", u"y", u"default"_s), u"default"_s);
    EXPECT_EQ(profile.string(u"B", u"x", u"default"_s), u"default"_s);
    EXPECT_EQ(profile.string(u"B", u"x"), QString());
    EXPECT_EQ(profile.integer(u"B", u"x", 7), 7);
}

TEST(Profil, AMissingFileHoldsNothing) {
    const Profile profile(u"/no/such/file.ini"_s);
    EXPECT_FALSE(profile.loaded());
    EXPECT_EQ(profile.string(u"A", u"x", u"default"_s), u"default"_s);
    EXPECT_FALSE(Profile().loaded());
    const QTemporaryDir folder;
    EXPECT_FALSE(Profile(folder.path()).loaded()) << "a folder is no profile";
}

TEST(Profil, IsReadFromAFileOnce) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"master.ini"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RECHERCHE]\r\nMARQUEBOLD=0\r\n");
    file.close();
    const Profile profile(path);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(profile.loaded());
    EXPECT_EQ(profile.integer(u"RECHERCHE", u"MARQUEBOLD", 1), 0);
}

TEST(Profil, TheFirstMatchWins) {
    const Profile profile = profileOf("[A]\nx=1\nX=2\n[B]\nx=3\n[a]\nx=4\ny=5\n[B]\nz=6\n");
    EXPECT_EQ(profile.string(u"A", u"x"), u"1"_s);
    EXPECT_EQ(profile.string(u"B", u"x"), u"3"_s);
    EXPECT_FALSE(profile.contains(u"A", u"y")) << "a second section of the same name is not looked at";
    EXPECT_FALSE(profile.contains(u"B", u"z"));
}

TEST(Profil, BlanksAroundNamesAndValuesAreTrimmed) {
    const Profile profile = profileOf("  [ A ]  \n \t key \t = \t a value \t \n");
    EXPECT_EQ(profile.string(u"A", u"key"), u"a value"_s);
}

TEST(Profil, ANoBreakSpaceIsNotTrimmed) {
    EXPECT_EQ(profileOf("[A]\nx= Voulez-vous copier\xA0 \n").string(u"A", u"x"), u"Voulez-vous copier\u00A0"_s);
    EXPECT_EQ(profileOf("[A]\nx=\xA0\n").string(u"A", u"x"), u"\u00A0"_s);
}

TEST(Profil, OnePairOfMatchingQuotesIsTakenOff) {
    const std::pair<const char*, QStringView> rows[] = {
        {"\"a\"", u"a"},   {"'a'", u"a"}, {"\"\"a\"\"", u"\"a\""}, {"\"a'", u"\"a'"},     {"\"", u"\""},
        {"\"\"", u""},     {"'", u"'"},   {"\" a \"", u" a "},     {"a\"b\"", u"a\"b\""}, {"\"a\" b", u"\"a\" b"},
        {"'a\"'", u"a\""},
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(profileOf(QByteArray("[A]\nx=") + value + "\n").string(u"A", u"x"), expected.toString()) << value;
}

TEST(Profil, OnlyTheFirstEqualsSignParts) {
    EXPECT_EQ(profileOf("[A]\nx=a=b ; c # d\n").string(u"A", u"x"), u"a=b ; c # d"_s);
}

TEST(Profil, CommentsAndLinesWithoutEqualsSignAreNoEntries) {
    const Profile profile = profileOf("[A]\n;x=1\n  ; y=2\nz\n#w=3\n=4\n");
    EXPECT_FALSE(profile.contains(u"A", u"x"));
    EXPECT_FALSE(profile.contains(u"A", u";x"));
    EXPECT_FALSE(profile.contains(u"A", u"y"));
    EXPECT_FALSE(profile.contains(u"A", u"z"));
    EXPECT_EQ(profile.string(u"A", u"#w"), u"3"_s);
    EXPECT_EQ(profile.string(u"A", u""), u"4"_s);
}

TEST(Profil, EntriesBeforeTheFirstSectionAreNotFound) {
    const Profile profile = profileOf("x=1\n[A]\ny=2\n");
    EXPECT_FALSE(profile.contains(u"", u"x"));
    EXPECT_FALSE(profile.contains(u"A", u"x"));
    EXPECT_TRUE(profile.contains(u"A", u"y"));
}

TEST(Profil, ASectionEndsAtItsFirstBracket) {
    const Profile profile = profileOf("[A] ; [B]\nx=1\n[C\ny=2\n");
    EXPECT_EQ(profile.string(u"A", u"x"), u"1"_s);
    EXPECT_EQ(profile.string(u"A", u"y"), u"2"_s) << "an unclosed bracket begins no section";
}

TEST(Profil, AnEmptyValueIsNotTheDefault) {
    const Profile profile = profileOf("[A]\nx=\ny=\"\"\n");
    EXPECT_EQ(profile.string(u"A", u"x", u"default"_s), QString());
    EXPECT_EQ(profile.string(u"A", u"y", u"default"_s), QString());
    EXPECT_TRUE(profile.contains(u"A", u"x"));
}

TEST(Profil, TextsAreCutToTheBuffer) {
    const Profile profile = profileOf("[A]\nx=" + QByteArray(2000, 'a') + "\ny=abc\n");
    EXPECT_EQ(profile.string(u"A", u"x"), QString(999, u'a'));
    EXPECT_EQ(profile.string(u"A", u"x", {}, 5000), QString(2000, u'a'));
    EXPECT_EQ(profile.string(u"A", u"y", {}, 3), u"ab"_s);
    EXPECT_EQ(profile.string(u"A", u"y", {}, 1), QString());
    EXPECT_EQ(profile.string(u"A", u"y", {}, 0), QString());
    EXPECT_EQ(profile.string(u"A", u"z", u"default"_s, 4), u"def"_s);
}

TEST(Profil, ReadsTheCodePageAndMarkedUtf8) {
    EXPECT_EQ(profileOf("[A]\nx=l'\x9Cuvre \x80\n").string(u"A", u"x"), u"l'œuvre €"_s);
    EXPECT_EQ(profileOf("\xEF\xBB\xBF[A]\nx=l'\xC5\x93uvre \xE2\x82\xAC\n").string(u"A", u"x"), u"l'œuvre €"_s);
}

TEST(Profil, AnyLineEndWill) {
    for (const char* text : {"[A]\nx=1\ny=2", "[A]\r\nx=1\r\ny=2\r\n", "[A]\rx=1\ry=2\r"}) {
        EXPECT_EQ(profileOf(text).string(u"A", u"x"), u"1"_s);
        EXPECT_EQ(profileOf(text).string(u"A", u"y"), u"2"_s);
    }
}

TEST(Profil, IntegersAreReadFromTheBeginningOfTheValue) {
    const std::pair<const char*, int> rows[] = {
        {"12", 12},
        {"-1", -1},
        {"+5", 5},
        {"567 twips", 567},
        {"3.9", 3},
        {"0x10", 16},
        {"0XfF", 255},
        {"-0x10", -16},
        {"0x", 0},
        {"True", 0},
        {"", 0},
        {"- 5", 0},
        {"\"7\"", 7},
        {"\" 7\"", 7},
        {"C0FFFF", 0},
        {"12648447", 12648447},
        {"4294967295", -1},
        {"2147483648", -2147483647 - 1},
        {"4294967296", 0},
        {"18446744073709551617", 1},
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(profileOf(QByteArray("[A]\nx=") + value + "\n").integer(u"A", u"x", 99), expected) << value;
}

TEST(Profil, ACopyReadsOnWhenTheOriginalIsGone) {
    Profile copy;
    {
        Profile original = profileOf("[A]\nx=1\n");
        copy = original;
    }
    EXPECT_EQ(copy.string(u"A", u"x"), u"1"_s);
    const Profile moved = std::move(copy);
    EXPECT_EQ(moved.string(u"A", u"x"), u"1"_s);
}

TEST(Profil, ReadsTenThousandTexts) {
    QByteArray bytes("[VELMORANTE 2000]\r\n");
    for (int i = 0; i < 10000; ++i)
        bytes += QByteArray::number(i) + "=Texte num\xE9ro " + QByteArray::number(i) + "\r\n";
    const Profile profile = profileOf(bytes);
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(profile.string(u"VELMORANTE 2000", QString::number(i)), u"Texte numéro %1"_s.arg(i));
}

} // namespace
