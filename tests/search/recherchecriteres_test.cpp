// The criteria search: what each criterion lets through.
#include "tests/search/recherchecriteres_support.h"

using namespace velm;
using namespace velm::test;

INSTANTIATE_TEST_SUITE_P(Textes, RechercheCriteresTest, testing::Values(true, false),
                         [](const auto& cas) { return std::string(cas.param ? "Plies" : "Corps"); });

TEST_P(RechercheCriteresTest, NoCriterionListsEveryDocumentOfThePressedTypes) {
    petite();
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"EU000001"_s, u"AD000001"_s}));
    EXPECT_EQ(trouve("AH"), ::liste({u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"AD000001"_s}));
    EXPECT_EQ(trouve("H"), ::liste({u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, NoTypePressedWalksNothing) {
    petite();
    liste.resultat().mot1 = u"avant"_s;
    texte(u"garantie"_s);
    const Bilan resultat = cherche({});
    EXPECT_EQ(resultat.vus, 0);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_TRUE(progres.empty());
    EXPECT_EQ(panneau, QStringList(QString()));
    EXPECT_EQ(liste.resultat().mot1, u"avant");
    EXPECT_EQ(cherche("C").vus, 0);
}

TEST_P(RechercheCriteresTest, TheKeywordMustEqualOneOfTheThree) {
    petite();
    criteres.motcle = u"recours"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    criteres.motcle = u"Défaut"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    for (const QString& autre : {u"défaut"_s, u"Défau"_s, u"cours"_s}) {
        criteres.motcle = autre;
        EXPECT_TRUE(trouve().isEmpty()) << qPrintable(autre);
    }
}

TEST_P(RechercheCriteresTest, TheKindMustMatch) {
    petite();
    ASSERT_EQ(types.combotype, ::liste({u"Loi"_s, u"Arrêt"_s}));
    criteres.type = 1;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    criteres.type = 2;
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s, u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, DayMonthAndYearAreTestedOneByOne) {
    petite();
    criteres.textemois = u"2"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    criteres.texteannee = u"1999"_s;
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s}));
    criteres.textejour = u"28"_s;
    EXPECT_TRUE(trouve().isEmpty());
    criteres.texteannee.clear();
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, ADayOf31InMonth2FindsNothing) {
    petite();
    criteres.textejour = u"31"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    criteres.textemois = u"2"_s;
    EXPECT_TRUE(trouve().isEmpty());
}

TEST_P(RechercheCriteresTest, ANullDateFailsOnlyWhenADateIsAsked) {
    petite();
    texte(u"défaut"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
    criteres.texteannee = u"2004"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    criteres.texteannee = u"0"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, ATextIsFoundInBodyTitleOrSourceAsTicked) {
    petite();
    texte(u"garantie"_s);
    lieux(true, false, false);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    lieux(false, true, false);
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s, u"AD000001"_s}));
    lieux(true, true, false);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s, u"AD000001"_s}));
    texte(u"jo"_s);
    lieux(false, false, true);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
}

TEST_P(RechercheCriteresTest, MatchCaseAppliesEverywhere) {
    petite();
    criteres.respectminmaj[0] = true;
    texte(u"garantie"_s);
    EXPECT_EQ(trouve(), ::liste({u"AD000001"_s}));
    texte(u"GARANTIE"_s);
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s}));
    texte(u"légale"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    texte(u"joce"_s);
    EXPECT_TRUE(trouve().isEmpty());
    texte(u"JOCE"_s);
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s}));
}

TEST_P(RechercheCriteresTest, WholeWordAppliesToTheBodyOnly) {
    petite();
    criteres.motentier[0] = true;
    texte(u"garantie"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    texte(u"aranti"_s);
    lieux(true, false, false);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    lieux(false, true, false);
    EXPECT_TRUE(trouve().isEmpty());
    texte(u"ournal"_s);
    lieux(false, false, true);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, NoPlaceTickedFiltersNothingButSetsTheWords) {
    petite();
    texte(u"zyx"_s, u"w^tv"_s);
    lieux(false, false, false);
    EXPECT_EQ(trouve().size(), 5);
    EXPECT_EQ(liste.resultat().mot1, u"zyx");
    EXPECT_EQ(liste.resultat().mot2, u"w\tv");
}

TEST_P(RechercheCriteresTest, NegationKeepsTheDocumentsWithoutTheFirstText) {
    petite();
    criteres.prefixe = 1;
    texte(u"garantie"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s, u"CO000003"_s}));
    texte(u"garantie"_s, u"toujours"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    texte(u"garantie"_s, u"toujours"_s, Criteres::Sauf);
    EXPECT_EQ(trouve(), ::liste({u"CO000003"_s}));
    texte(QString());
    EXPECT_EQ(trouve().size(), 5);
}

TEST_P(RechercheCriteresTest, TheTextsCombine) {
    petite();
    texte(u"défaut"_s, u"garantie"_s, Criteres::Et);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
    // The first text is enough; the second alone is not.
    texte(u"intérêts"_s, u"garantie"_s, Criteres::Ou);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    texte(u"défaut"_s, u"diverses"_s, Criteres::Sauf);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    texte(u"défaut"_s, u"diverses"_s, Criteres::OuSauf);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, TheSecondTextAloneMovesToTheFirstBoxItsOptionsStay) {
    petite();
    texte(QString(), u"garantie"_s, Criteres::Sauf);
    criteres.respectminmaj = {false, true};
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s, u"AD000001"_s}));
    EXPECT_EQ(criteres.texterech[0], u"garantie");
    EXPECT_TRUE(criteres.texterech[1].isEmpty());
    EXPECT_EQ(liste.resultat().mot1, u"garantie");
    EXPECT_TRUE(liste.resultat().mot2.isEmpty());
}

TEST_P(RechercheCriteresTest, APrivateTokenIsSearchedAsText) {
    petite();
    lieux(false, true, false);
    texte(u"{T=CO000002}renvoi"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    texte(u"t=co"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, CodesAreReplacedEverywhere) {
    petite();
    texte(u"intérêts^pcourent.^ttou"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    EXPECT_EQ(liste.resultat().mot1, u"intérêts\r\ncourent.\ttou");
}

TEST_P(RechercheCriteresTest, AccentsCountCaseDoesNotAndForeignLettersAreFound) {
    pieces = {{u"CO000001"_s, u"a"_s, u"Łódź žlutý \u0416\u0436 x"_s},
              {u"CO000002"_s, u"b"_s, u"?ód? ÉTÉ œuvre ŒUVRE"_s}};
    ouvre();
    lieux(false, true, false);
    for (const QString& mot : {u"łódź"_s, u"ŽLUTÝ"_s, u"\u0436\u0416"_s}) {
        texte(mot);
        EXPECT_EQ(trouve(), ::liste({u"CO000001"_s})) << qPrintable(mot);
    }
    for (const QString& mot : {u"?ód?"_s, u"été"_s, u"œuvre œuvre"_s}) {
        texte(mot);
        EXPECT_EQ(trouve(), ::liste({u"CO000002"_s})) << qPrintable(mot);
    }
    texte(u"ete"_s);
    EXPECT_TRUE(trouve().isEmpty());
    // Letters that the code page lacks look alike when folded; the body tells them apart.
    texte(u"žódź"_s);
    EXPECT_TRUE(trouve().isEmpty());
}

TEST_P(RechercheCriteresTest, ALaterHitCountsWhenTheFirstIsNone) {
    pieces = {{u"CO000001"_s, u"a"_s, u"porteur, Port, port"_s}, {u"CO000002"_s, u"b"_s, u"porteur reporter"_s}};
    ouvre();
    lieux(false, true, false);
    texte(u"port"_s);
    criteres.motentier[0] = criteres.respectminmaj[0] = true;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, HitsComeInTypeOrderThenNumberOrder) {
    pieces = {{u"DI000001"_s, u"x"_s},
              {u"EU000002"_s, u"x"_s},
              {u"CO000009"_s, u"x"_s},
              {u"EU000001"_s, u"x"_s},
              {u"CO000010"_s, u"x"_s}};
    ouvre();
    texte(u"x"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000009"_s, u"CO000010"_s, u"EU000001"_s, u"EU000002"_s, u"DI000001"_s}));
}

TEST_P(RechercheCriteresTest, ARowHoldsTheFieldsOfItsDocument) {
    petite();
    texte(u"garantie"_s);
    cherche();
    ASSERT_EQ(liste.rows(), 4);
    EXPECT_EQ(liste.champ(1, ListeSelection::Titre), u"Garantie légale");
    EXPECT_EQ(liste.champ(1, ListeSelection::Motcle2), u"Défaut");
    EXPECT_EQ(liste.champ(1, ListeSelection::Reference), u"CO");
    EXPECT_EQ(liste.champ(1, ListeSelection::Numart), u"000001");
    EXPECT_EQ(liste.champ(3, ListeSelection::Motcle1), QString());
    EXPECT_EQ(panneau.last(), u" 3 documents");
    texte(u"vendeur"_s);
    cherche();
    EXPECT_EQ(panneau.last(), u" 1 document");
}
