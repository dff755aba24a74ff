// The search by criteria as the form starts, shows and stops it.
#include "tests/search/ui/formulaire_support.h"

using namespace velm;
using namespace velm::test;
using RecherchesTest = velm::test::FormulaireTest;

TEST_F(RecherchesTest, ReturnInEitherTextStartsTheCriteriaSearch) {
    onglet(Onglet::Criteres);
    champ(u"texterech(0)"_s).setText(u"juge"_s);
    QTest::keyClick(&champ(u"texterech(0)"_s), Qt::Key_Return);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    un<QRadioButton>(u"Option1"_s).setChecked(true);
    champ(u"texterech(1)"_s).setText(u"ARRÊT"_s);
    QTest::keyClick(&champ(u"texterech(1)"_s), Qt::Key_Return);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    EXPECT_EQ(liste.resultat().mot1, u"juge");
    EXPECT_EQ(liste.resultat().mot2, u"ARRÊT");
}

TEST_F(RecherchesTest, AllCriteriaReachTheSearch) {
    onglet(Onglet::Criteres);
    combo(u"combomotcle"_s).setCurrentIndex(2);
    clique(u"cmdok"_s);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    clique(u"annulercriteres"_s);
    un<QRadioButton>(u"Option1"_s).setChecked(true);
    champ(u"texterech(0)"_s).setText(u"contrat"_s);
    coche(u"respectminmaj(0)"_s).setChecked(true);
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 0);
    coche(u"respectminmaj(0)"_s).setChecked(false);
    champ(u"texterech(0)"_s).setText(u"claus"_s);
    coche(u"motentier(0)"_s).setChecked(true);
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 0);
    coche(u"motentier(0)"_s).setChecked(false);
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 6);
    un<QRadioButton>(u"Option1"_s).setChecked(true);
    combo(u"prefixe"_s).setCurrentIndex(1);
    clique(u"cmdok"_s);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    un<QRadioButton>(u"Option1"_s).setChecked(true);
    combo(u"prefixe"_s).setCurrentIndex(0);
    champ(u"texterech(1)"_s).setText(u"contrat 3"_s);
    combo(u"conjonction"_s).setCurrentIndex(2);
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 5);
    coche(u"emplacement(0)"_s).setChecked(false);
    un<QRadioButton>(u"Option1"_s).setChecked(true);
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 6);
}

TEST_F(RecherchesTest, ASecondClickStopsTheCriteriaSearch) {
    onglet(Onglet::Criteres);
    int tours = 0;
    evenement = [this, &tours] {
        if (++tours != 4)
            return;
        EXPECT_EQ(bouton(u"cmdok"_s).text(), arreter);
        clique(u"cmdok"_s);
    };
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 3);
    EXPECT_EQ(bouton(u"cmdok"_s).text(), chercher);
    EXPECT_TRUE(volet.publications.back());
    EXPECT_TRUE(option2possible());
}

TEST_F(RecherchesTest, TheSecondTextAloneMovesToTheFirstBoxWithoutItsOptions) {
    onglet(Onglet::Criteres);
    champ(u"texterech(1)"_s).setText(u"juge"_s);
    coche(u"motentier(1)"_s).setChecked(true);
    clique(u"cmdok"_s);
    EXPECT_EQ(champ(u"texterech(0)"_s).text(), u"juge");
    EXPECT_EQ(champ(u"texterech(1)"_s).text(), QString());
    EXPECT_FALSE(coche(u"motentier(0)"_s).isChecked());
    EXPECT_TRUE(coche(u"motentier(1)"_s).isChecked());
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    EXPECT_EQ(derniersde(u"texterech(0)"_s), QStringList{u"juge"_s});
}

TEST_F(RecherchesTest, WithoutACollectionTheTextsStayWhereTheyAre) {
    onglet(Onglet::Criteres);
    clique(u"toutdéselect"_s);
    champ(u"texterech(1)"_s).setText(u"juge"_s);
    clique(u"cmdok"_s);
    EXPECT_EQ(champ(u"texterech(1)"_s).text(), u"juge");
    EXPECT_EQ(liste.lignes(), 0);
}

TEST_F(RecherchesTest, NarrowingKeepsTheRowsThatPass) {
    clique(u"cmdokrapide"_s);
    onglet(Onglet::Criteres);
    ASSERT_TRUE(option2());
    champ(u"texterech(0)"_s).setText(u"contrat 5"_s);
    clique(u"cmdok"_s);
    EXPECT_EQ(cles(), QStringList{u"CO000005"_s});
    EXPECT_TRUE(option2());
    champ(u"texterech(0)"_s).setText(u"contrat 6"_s);
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_TRUE(option1());
    EXPECT_FALSE(option2possible());
    EXPECT_EQ(panneau.last(), u" 0 document");
}

TEST_F(RecherchesTest, ClearingResetsAllButTheNegation) {
    onglet(Onglet::Criteres);
    combo(u"combomotcle"_s).setCurrentIndex(2);
    combo(u"combotype"_s).setCurrentIndex(1);
    combo(u"conjonction"_s).setCurrentIndex(3);
    combo(u"prefixe"_s).setCurrentIndex(1);
    for (const QString& nom : {u"texterech(0)"_s, u"texterech(1)"_s, u"textejour"_s, u"textemois"_s, u"texteannée"_s})
        champ(nom).setText(u"1"_s);
    for (const QString& nom : {u"motentier(0)"_s, u"motentier(1)"_s, u"respectminmaj(0)"_s, u"respectminmaj(1)"_s})
        coche(nom).setChecked(true);
    coche(u"emplacement(1)"_s).setChecked(false);
    clique(u"annulercriteres"_s);
    EXPECT_EQ(combo(u"combomotcle"_s).currentIndex(), 0);
    EXPECT_EQ(combo(u"combotype"_s).currentIndex(), 0);
    EXPECT_EQ(combo(u"conjonction"_s).currentIndex(), 0);
    EXPECT_EQ(combo(u"prefixe"_s).currentIndex(), 1);
    for (const QString& nom : {u"texterech(0)"_s, u"texterech(1)"_s, u"textejour"_s, u"textemois"_s, u"texteannée"_s})
        EXPECT_EQ(champ(nom).text(), QString()) << qPrintable(nom);
    for (const QString& nom : {u"motentier(0)"_s, u"motentier(1)"_s, u"respectminmaj(0)"_s, u"respectminmaj(1)"_s})
        EXPECT_FALSE(coche(nom).isChecked()) << qPrintable(nom);
    for (int place = 0; place < 3; ++place)
        EXPECT_TRUE(coche(u"emplacement(%1)"_s.arg(place)).isChecked());
}
