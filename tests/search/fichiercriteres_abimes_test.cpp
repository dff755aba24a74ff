// Criteria files that are not as they were written.
#include "fichiercriteres_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(FichierCriteresTest, AnotherFirstLineIsNoCriteriaFile) {
    for (const QByteArray& ligne :
         {QByteArray(), QByteArray("VELMORante 2000 - DV2"), QByteArray("velmorante 2000 - CV2"),
          QByteArray(" VELMORante 2000 - CV2"), QByteArray("VELMORante 2000 - CV2 "),
          QByteArray("VELMORante 2000 - CV"), QByteArray("\xEF\xBB\xBFVELMORante 2000 - CV2")})
        EXPECT_FALSE(litfichiercriteres(ligne + "\r\n1\r\n")) << ligne.constData();
    EXPECT_TRUE(litfichiercriteres("VELMORante 2000 - CV2"));
}

TEST_F(FichierCriteresTest, AnUnknownItemSelectsTheFirst) {
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    toutes[7] = "consumer";
    toutes[14] = "and not";
    toutes[18] = "Judgment";
    const EtatFormulaire forme = relu(joint(toutes));
    EXPECT_TRUE(forme.criteres.motcle.isEmpty());
    EXPECT_EQ(forme.criteres.type, 0);
    EXPECT_EQ(forme.criteres.conjonction, Criteres::Et);
    EXPECT_EQ(forme.criteres.texterech, formulaire().criteres.texterech);
}

TEST_F(FichierCriteresTest, NumbersAreReadByTheirValueAndMustStandForAnItem) {
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    for (const int ligne : {1, 4, 6})
        toutes[ligne] = "  2 ";
    EtatFormulaire forme = relu(joint(toutes));
    EXPECT_EQ(forme.ongletrecherche, 2);
    EXPECT_EQ(forme.Combonombredico, 2);
    EXPECT_EQ(forme.combonombre, 2);
    for (const QByteArray& faux : {QByteArray("3"), QByteArray("-1"), QByteArray("x"), QByteArray("1e300"),
                                   QByteArray("-1e300"), QByteArray("99999999999999999999")}) {
        for (const int ligne : {1, 4, 6})
            toutes[ligne] = faux;
        forme = relu(joint(toutes));
        EXPECT_EQ(forme.ongletrecherche, 0);
        EXPECT_EQ(forme.Combonombredico, 0);
        EXPECT_EQ(forme.combonombre, 0);
    }
}

TEST_F(FichierCriteresTest, AFileCutAtEveryByteGivesItsWholeRowsAndTheLinesBefore) {
    remplit(3);
    const QByteArray entier = octets(formulaire());
    const QStringList rangs = rangees();
    const QList<QByteArray> toutes = lignes(entier);
    for (qsizetype taille = 0; taille < entier.size(); ++taille) {
        const auto fichier = litfichiercriteres(entier.first(taille));
        if (taille < FichierCriteres::entete.size()) {
            EXPECT_FALSE(fichier);
            continue;
        }
        ASSERT_TRUE(fichier) << taille;
        // As many lines as are whole.
        const qsizetype completes = entier.first(taille).count("\r\n");
        if (completes != 2) {
            EXPECT_EQ(fichier->Textedico, completes < 2 ? QString() : ansi::decode(toutes.at(2))) << taille;
        }
        rendlignes(*fichier, liste.resultat().lignes);
        const qsizetype attendues = completes <= 30 ? 0 : (completes - 30) / 7;
        EXPECT_GE(liste.lignes(), attendues) << taille;
        EXPECT_LE(liste.lignes(), attendues + 1) << taille;
        EXPECT_EQ(rangees().mid(0, attendues), rangs.mid(0, attendues)) << taille;
    }
}

TEST_F(FichierCriteresTest, WrongCountsGiveTheRowsThatAreThere) {
    remplit(3);
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    const QStringList rangs = rangees();
    const std::pair<QByteArray, int> cas[] = {
        {"4", 3},  {"3", 2}, {"100", 3},      {"2147483647", 3}, {"1e300", 3},     {"1", 0},     {"0", 0},
        {"-7", 0}, {"", 0},  {"beaucoup", 0}, {"2.6", 2},        {" 4 lignes", 3}, {"-1e300", 0}};
    for (const auto& [nombre, attendues] : cas) {
        toutes[23] = nombre;
        const auto fichier = litfichiercriteres(joint(toutes));
        ASSERT_TRUE(fichier);
        rendlignes(*fichier, liste.resultat().lignes);
        EXPECT_EQ(rangees(), rangs.mid(0, attendues)) << nombre.constData();
    }
}

TEST_F(FichierCriteresTest, ColumnsThatAreNoneOrTwiceLoseNothingElse) {
    remplit(1);
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    for (const int ligne : {24, 25, 26})
        toutes[ligne] = "0";
    toutes[27] = "77";
    toutes[28] = "-3";
    toutes[29] = "6";
    const auto fichier = litfichiercriteres(joint(toutes));
    ASSERT_TRUE(fichier);
    rendlignes(*fichier, liste.resultat().lignes);
    EXPECT_EQ(rangees(), QStringList(u"deux||||||EU000001"_s));
}

TEST_F(FichierCriteresTest, LoneLineEndsEndLinesToo) {
    remplit(2);
    const QList<QByteArray> toutes = lignes(octets(formulaire()));
    const auto attendu = litfichiercriteres(joint(toutes));
    ASSERT_TRUE(attendu);
    EXPECT_EQ(litfichiercriteres(joint(toutes, "\n")), attendu);
    EXPECT_EQ(litfichiercriteres(joint(toutes, "\r")), attendu);
}

TEST_F(FichierCriteresTest, ALineEndInsideATextIsABlank) {
    EtatFormulaire forme = formulaire();
    forme.texterapide = u"a\r\nb\rc\nd"_s;
    liste.resultat().lignes.ajoute({u"CO", u"000001", u"un\ndeux", {}, {}, {}, u"CO000001"});
    const auto fichier = litfichiercriteres(octets(forme));
    ASSERT_TRUE(fichier);
    EXPECT_EQ(fichier->texterapide, u"a b c d");
    rendlignes(*fichier, liste.resultat().lignes);
    EXPECT_EQ(rangees(), QStringList(u"un deux||||000001|CO|CO000001"_s));
}

TEST_F(FichierCriteresTest, WhatTheCodePageLacksIsAQuestionMark) {
    EtatFormulaire forme;
    forme.texterapide = u"œuvre € Łódź"_s;
    EXPECT_EQ(lignes(octets(forme)).at(5), "\x9Cuvre \x80 ?\xF3"
                                           "d?");
    EXPECT_EQ(relu(octets(forme)).texterapide, u"œuvre € ?ód?");
}

TEST_F(FichierCriteresTest, AListThatTakesNoMoreKeepsTheRowsSoFar) {
    remplit(5);
    const auto fichier = litfichiercriteres(octets(formulaire()));
    ASSERT_TRUE(fichier);
    liste.resultat().lignes.limite(3);
    rendlignes(*fichier, liste.resultat().lignes);
    EXPECT_EQ(liste.lignes(), 3);
}
