#include "collection/json.h"

#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

bool juste(QByteArrayView ligne) {
    LecteurJson json(ligne);
    json.passe();
    json.fin();
    return json.juste();
}

QString texte(QByteArrayView ligne) {
    LecteurJson json(ligne);
    const QString lu = json.texte();
    json.fin();
    return json.juste() ? lu : u"(faute)"_s;
}

TEST(Json, ValuesOfAllKindsAreRead) {
    for (const char* ligne : {"null", "true", "false", "0", "-1", "12.5e+3", "\"\"", "[]", "{}", "[1, [2], {}]",
                              "{\"a\":{\"b\":[null,\"c\"]}}", " \t{ \"a\" : 1 } \r\n"})
        EXPECT_TRUE(juste(ligne)) << ligne;
}

TEST(Json, WhatIsNoJsonIsRefused) {
    for (const char* ligne :
         {"",        " ",         "nul",         "tru",     "+1",       "01",    "1.",         ".5",  "1e",
          "-",       "[1,]",      "[1",          "{\"a\"}", "{\"a\":}", "{a:1}", "{\"a\":1,}", "\"a", "\"\\",
          "\"\\x\"", "\"\\u12\"", "\"\\u12g4\"", "1 2",     "{}x",      "'a'",   "\"\t\"",     "]",   "}"})
        EXPECT_FALSE(juste(ligne)) << ligne;
}

TEST(Json, EscapesGiveTheirCharacters) {
    EXPECT_EQ(texte(R"("a\"\\\/\b\f\n\r\tz")"), u"a\"\\/\b\f\n\r\tz"_s);
    EXPECT_EQ(texte(R"("\u0041\u00e9\u20AC")"), u"Aé€"_s);
    EXPECT_EQ(texte(R"("\ud83d\ude00")"), u"😀"_s);
    EXPECT_EQ(texte(R"("a\u0000b")"), u"a b"_s);
}

TEST(Json, HalfAPairOfSurrogatesIsRefused) {
    for (const char* ligne : {R"("\ud83d")", R"("\ud83dx")", R"("\ude00")", R"("\ud83d\u0041")"})
        EXPECT_EQ(texte(ligne), u"(faute)"_s) << ligne;
}

TEST(Json, Utf8IsReadStrictly) {
    EXPECT_EQ(texte("\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\""), u"é€😀"_s);
    for (const char* ligne : {"\"\xC3\"", "\"\xC0\x80\"", "\"\xE0\x80\x80\"", "\"\xED\xA0\x80\"",
                              "\"\xF4\x90\x80\x80\"", "\"\xFF\"", "\"\x80\"", "\"\xE2\x82\"", "\"\xF0\x9F\x98\""}) {
        LecteurJson json{QByteArrayView(ligne)};
        json.passe();
        EXPECT_EQ(json.erreur(), LecteurJson::Erreur::Utf8);
        LecteurJson autre{QByteArrayView(ligne)};
        autre.texte();
        EXPECT_EQ(autre.erreur(), LecteurJson::Erreur::Utf8);
    }
}

TEST(Json, WholeNumbersThatFitAreNumbers) {
    const auto lit = [](QByteArrayView ligne, qint64& valeur) {
        LecteurJson json(ligne);
        return json.entier(valeur) && json.juste();
    };
    qint64 valeur = 0;
    EXPECT_TRUE(lit("-9223372036854775808", valeur));
    EXPECT_EQ(valeur, std::numeric_limits<qint64>::min());
    EXPECT_FALSE(lit("9223372036854775808", valeur));
    EXPECT_FALSE(lit("1.5", valeur));
    EXPECT_FALSE(lit("1e3", valeur));
    EXPECT_FALSE(lit("\"1\"", valeur));
}

TEST(Json, DeepValuesAreRefusedAndDoNotExhaustTheStack) {
    EXPECT_TRUE(juste(QByteArray(60, '[') + QByteArray(60, ']')));
    EXPECT_FALSE(juste(QByteArray(1'000'000, '[')));
    EXPECT_FALSE(juste(QByteArray("{\"a\":").repeated(100'000)));
}

TEST(Json, AnErrorTellsItsColumnAndWhatStandsThere) {
    LecteurJson json("{\"a\": tru}");
    json.passe();
    EXPECT_EQ(json.colonne(), 7);
    EXPECT_EQ(json.extrait(), u"tru}"_s);
}

} // namespace
} // namespace velm
