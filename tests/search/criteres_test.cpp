// The criteria tab without its window.
#include "search/criteres.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A body in which one text stands, the other or neither.
class Corps final : public CorpsCherche {
public:
    std::array<bool, 2> la{};
    bool lisible = true;
    int lus = 0;
    std::optional<bool> contient(qint64, int texte) override {
        ++lus;
        return lisible ? std::optional(la[static_cast<std::size_t>(texte)]) : std::nullopt;
    }
};

} // namespace

TEST(CriteresTest, ClearingResetsAllButTheNegation) {
    Criteres c;
    c.motcle = u"vente"_s;
    c.type = 3;
    c.textejour = c.textemois = c.texteannee = u"1"_s;
    c.texterech = {u"a"_s, u"b"_s};
    c.motentier = c.respectminmaj = {true, true};
    c.emplacement = {};
    c.prefixe = 1;
    c.conjonction = Criteres::Sauf;
    annulercriteres(c);
    Criteres attendus;
    attendus.prefixe = 1;
    EXPECT_EQ(c, attendus);
    EXPECT_EQ(c.emplacement, (std::array{true, true, true}));
}

TEST(CriteresTest, TheSecondTextAloneMovesToTheFirstBoxItsOptionsStay) {
    Criteres c;
    c.texterech[1] = u"b"_s;
    c.motentier = {false, true};
    c.respectminmaj = {true, false};
    avancetexte(c);
    EXPECT_EQ(c.texterech[0], u"b");
    EXPECT_TRUE(c.texterech[1].isEmpty());
    EXPECT_EQ(c.motentier, (std::array{false, true}));
    EXPECT_EQ(c.respectminmaj, (std::array{true, false}));
    c.texterech = {u"a"_s, u"b"_s};
    avancetexte(c);
    EXPECT_EQ(c.texterech[0], u"a");
}

TEST(CriteresTest, AYearOf4Becomes2004Of98Becomes1998Of150Becomes2050) {
    const std::pair<QString, QString> cas[] = {{u"4"_s, u"2004"_s},    {u"04"_s, u"2004"_s},   {u"9"_s, u"2009"_s},
                                               {u"10"_s, u"1910"_s},   {u"98"_s, u"1998"_s},   {u"150"_s, u"2050"_s},
                                               {u"1899"_s, u"3799"_s}, {u"1900"_s, u"1900"_s}, {u"2003"_s, u"2003"_s},
                                               {u""_s, u""_s},         {u"x"_s, u"2000"_s},    {u"-3"_s, u"1997"_s}};
    for (const auto& [texte, attendu] : cas)
        EXPECT_EQ(valideannee(texte), attendu) << qPrintable(texte);
}

TEST(CriteresTest, ADayOf32OrAMonthOf13KeepsTheFocus) {
    for (const QString& bon : {u""_s, u"1"_s, u"31"_s, u" 7 "_s})
        EXPECT_TRUE(validejour(bon));
    for (const QString& faux : {u"0"_s, u"32"_s, u"-1"_s, u"x"_s, u"1e9"_s})
        EXPECT_FALSE(validejour(faux));
    EXPECT_TRUE(validemois(u"12"));
    EXPECT_TRUE(validemois(QString()));
    EXPECT_FALSE(validemois(u"13"));
    EXPECT_FALSE(validemois(u"0"));
}

TEST(CriteresTest, TheLetterECannotBeTypedInTheYear) {
    EXPECT_FALSE(touchedelannee(u"e"));
    EXPECT_FALSE(touchedelannee(u"E"));
    EXPECT_TRUE(touchedelannee(u"1"));
    EXPECT_TRUE(touchedelannee(u"d"));
}

TEST(CriteresTest, TheTabIsReadWithItsCodesAndNumbers) {
    Criteres c;
    c.type = 2;
    c.textejour = u" 3 "_s;
    c.textemois = u"x"_s;
    c.texteannee = u"99999999"_s;
    c.texterech = {u"été^p^t"_s, u"b"_s};
    c.motentier = {true, false};
    c.respectminmaj = {false, true};
    c.prefixe = 1;
    const CriteresLus lus = litcriteres(c, {{u"Loi"_s, u"Arrêt"_s}, {u"40"_s, u" 7"_s}});
    EXPECT_EQ(lus.numerotype, 7);
    EXPECT_EQ(lus.jour, 3);
    EXPECT_EQ(lus.mois, 0);
    EXPECT_EQ(lus.annee, 32767);
    EXPECT_EQ(lus.textes[0], u"été\r\n\t");
    EXPECT_EQ(lus.textesmaj[0], u"ÉTÉ\r\n\t");
    EXPECT_TRUE(lus.options[0].wholeWord && !lus.options[0].matchCase);
    EXPECT_TRUE(!lus.options[1].wholeWord && lus.options[1].matchCase);
    EXPECT_TRUE(lus.nie && lus.datedemandee());
    for (const int type : {0, -1, 3, 99}) {
        c.type = type;
        EXPECT_FALSE(litcriteres(c, {{u"Loi"_s, u"Arrêt"_s}, {u"40"_s, u"7"_s}}).numerotype);
    }
}

TEST(CriteresTest, TheCombinationsFollowTheirTable) {
    for (const bool nie : {false, true}) {
        for (int conjonction = 0; conjonction < 4; ++conjonction) {
            for (int cas = 0; cas < 4; ++cas) {
                Corps corps;
                corps.la = {(cas & 1) != 0, (cas & 2) != 0};
                CriteresLus c;
                c.textes = {u"a"_s, u"b"_s};
                c.emplacement = {false, true, false};
                c.nie = nie;
                c.conjonction = conjonction;
                const bool premier = corps.la[0] != nie;
                const bool second = corps.la[1];
                const std::array passe{premier && second, premier, premier && !second, premier};
                EXPECT_EQ(testecriteres(c, {}, corps), passe[static_cast<std::size_t>(conjonction)])
                    << nie << conjonction << cas;
            }
        }
    }
}

TEST(CriteresTest, TheBodyIsReadOnlyWhenTheOtherTestsHavePassed) {
    Corps corps;
    corps.la = {true, true};
    CriteresLus c;
    c.textes[0] = u"a"_s;
    c.textesmaj[0] = u"A"_s;
    c.emplacement = {true, true, true};
    c.motcle = u"vente"_s;
    EXPECT_EQ(testecriteres(c, {}, corps), false);
    c.motcle.clear();
    c.annee = 2000;
    EXPECT_EQ(testecriteres(c, {}, corps), false);
    c.annee = 0;
    c.numerotype = 3;
    EXPECT_EQ(testecriteres(c, {}, corps), false);
    EXPECT_EQ(corps.lus, 0);
    c.numerotype.reset();
    EXPECT_EQ(testecriteres(c, {}, corps), true);
    EXPECT_EQ(corps.lus, 1);
}

TEST(CriteresTest, ABodyThatCannotBeReadIsNeitherFoundNorNot) {
    Corps corps;
    corps.lisible = false;
    CriteresLus c;
    c.textes[0] = u"a"_s;
    c.emplacement = {false, true, false};
    EXPECT_EQ(testecriteres(c, {}, corps), std::nullopt);
    c.nie = true;
    EXPECT_EQ(testecriteres(c, {}, corps), std::nullopt);
}
