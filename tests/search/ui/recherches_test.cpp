// The quick search as the form starts, shows and stops it, and what all searches say of what they found.
#include "tests/search/ui/formulaire_support.h"

using namespace velm;
using namespace velm::test;
using RecherchesTest = velm::test::FormulaireTest;

// ---- quick search

TEST_F(RecherchesTest, ReturnInTheTextStartsTheQuickSearch) {
    champ(u"texterapide"_s).setText(u"contrat 2"_s);
    QTest::keyClick(&champ(u"texterapide"_s), Qt::Key_Return);
    EXPECT_EQ(cles(), QStringList{u"CO000002"_s});
    EXPECT_EQ(liste.resultat().mot1, u"contrat 2");
    EXPECT_EQ(liste.resultat().mot2, QString());
    EXPECT_EQ(panneau.last(), u" 1 document");
    ASSERT_EQ(volet.publications.size(), 1U);
    EXPECT_TRUE(volet.publications.front());
}

TEST_F(RecherchesTest, ASecondClickStopsTheQuickSearch) {
    pendant([this] {
        EXPECT_FALSE(remplissage.visible());
        EXPECT_FALSE(grille.montree);
        EXPECT_EQ(bouton(u"cmdokrapide"_s).text(), arreter);
        clique(u"cmdokrapide"_s);
        EXPECT_EQ(bouton(u"cmdokrapide"_s).text(), chercher);
    });
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_TRUE(remplissage.visible());
    EXPECT_TRUE(grille.montree);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 7);
}

TEST_F(RecherchesTest, AThirdClickStartsTheQuickSearchAgain) {
    pendant([this] {
        clique(u"cmdokrapide"_s);
        clique(u"cmdokrapide"_s);
    });
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 7);
    EXPECT_EQ(bouton(u"cmdokrapide"_s).text(), chercher);
}

TEST_F(RecherchesTest, OnlyPressedCollectionsAreSearched) {
    clique(u"toutdéselect"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_FALSE(volet.publications.back());
    EXPECT_EQ(panneau.last(), u" 0 document");
    QTest::mouseClick(barre().widget(u"JP"_s), Qt::LeftButton);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
}

TEST_F(RecherchesTest, TheLimitOfTheListIsKept) {
    for (int numero = 10; numero < 130; ++numero)
        pieces.push_back({u"CO"_s + sixchiffres(numero), u"Contrat"_s});
    ouvrepieces(false);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 50);
    combo(u"combonombre"_s).setCurrentIndex(1);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 100);
    combo(u"combonombre"_s).setCurrentIndex(2);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 127);
}

TEST_F(RecherchesTest, TheProgressBarNeverPassesItsMaximum) {
    int tours = 0;
    evenement = [this, &tours] {
        ++tours;
        EXPECT_TRUE(progression().isVisible());
        EXPECT_EQ(progression().maximum(), 7);
        EXPECT_LE(progression().value(), 7);
        EXPECT_EQ(progression().toolTip(), QString::number(progression().value()));
    };
    clique(u"cmdokrapide"_s);
    EXPECT_GT(tours, 3);
    EXPECT_FALSE(progression().isVisible());
    onglet(Onglet::Criteres);
    tours = 0;
    clique(u"cmdok"_s);
    EXPECT_GT(tours, 3);
    EXPECT_FALSE(progression().isVisible());
}

// ---- what is said of it

TEST_F(RecherchesTest, WhatWasFoundAndWhatNotIsSaidBelowTheField) {
    EXPECT_EQ(bilan(), QString());
    champ(u"texterapide"_s).setText(u"contrat"_s);
    pendant([this] { EXPECT_EQ(bilan(), QString()); });
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(bilan(), u"t9725, contrat");
    EXPECT_EQ(volet.bilans.back().phrase, u"t9725, contrat");
    champ(u"texterapide"_s).setText(u"zut"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(bilan(), u"t9626");
    clique(u"toutdéselect"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(bilan(), u"t9723");
    clique(u"toutsélect"_s);
    onglet(Onglet::Criteres);
    EXPECT_EQ(bilan(), QString()) << "each tab of its own search";
    champ(u"texterech(0)"_s).setText(u"zut"_s);
    clique(u"cmdok"_s);
    EXPECT_EQ(bilan(), u"t9722");
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"clause zut"_s);
    coche(u"checkandordico"_s).setChecked(false);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(bilan(), u"t9725, clause zut");
}

TEST_F(RecherchesTest, ASearchThatWasCutCanBeSeenWholeAndItsLimitStays) {
    for (int numero = 10; numero < 130; ++numero)
        pieces.push_back({u"CO"_s + sixchiffres(numero), u"Contrat"_s});
    ouvrepieces(false);
    champ(u"texterapide"_s).setText(u"contrat"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(bilan(), u"t9727, contrat");
    ASSERT_EQ(liste.lignes(), 50);
    champ(u"texterapide"_s).setText(u"autre chose"_s);
    auto* lien = note().link();
    ASSERT_TRUE(lien->isVisible());
    QTest::mouseClick(lien, Qt::LeftButton);
    EXPECT_EQ(liste.lignes(), 126) << "as it was searched";
    EXPECT_EQ(bilan(), u"t9725, contrat");
    EXPECT_FALSE(lien->isVisible());
    EXPECT_EQ(combo(u"combonombre"_s).currentIndex(), 0);
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"autre chose");
    // The same from the line over the rows.
    champ(u"texterapide"_s).setText(u"contrat"_s);
    clique(u"cmdokrapide"_s);
    remplissage.toutafficher();
    EXPECT_EQ(liste.lignes(), 126);
}

TEST_F(RecherchesTest, AllDocumentsOfAWordAreShownWithoutAQuestion) {
    QByteArray toutes;
    for (int numero = 1; numero <= 250; ++numero) {
        if (numero > 6)
            pieces.push_back({u"CO"_s + sixchiffres(numero), u"Contrat"_s});
        toutes += entree('A', numero);
    }
    ouvrepieces(false);
    ajoutemots({{u"PARTOUT"_s, toutes}});
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"partout"_s);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(liste.lignes(), 50);
    EXPECT_EQ(bilan(), u"t9726, partout");
    QTest::mouseClick(note().link(), Qt::LeftButton);
    EXPECT_EQ(liste.lignes(), 250);
    EXPECT_TRUE(dialogues.texts().isEmpty());
    EXPECT_EQ(combo(u"Combonombredico"_s).currentIndex(), 0);
}

// ---- too little memory

TEST_F(RecherchesTest, ASearchThatTheMemoryDoesNotSufficeForKeepsWhatItHasFound) {
    for (const auto& [lequel, nom] :
         {std::pair(Onglet::Rapide, u"cmdokrapide"_s), std::pair(Onglet::Criteres, u"cmdok"_s)}) {
        onglet(lequel);
        un<QRadioButton>(u"Option1"_s).setChecked(true);
        volet.publications.clear();
        dialogues.messages.clear();
        evenement = [this] {
            if (liste.lignes() == 3)
                throw std::bad_alloc();
        };
        clique(nom);
        evenement = {};
        EXPECT_EQ(dialogues.texts(), QStringList{u"t9567"_s}) << qPrintable(nom);
        EXPECT_EQ(grille.profondeur, 0);
        EXPECT_EQ(liste.lignes(), 3);
        ASSERT_EQ(volet.publications.size(), 1U);
        EXPECT_TRUE(volet.publications.front());
        EXPECT_TRUE(option2possible());
        EXPECT_EQ(bouton(nom).text(), chercher);
        EXPECT_FALSE(progression().isVisible());
        un<QRadioButton>(u"Option1"_s).setChecked(true);
        clique(nom);
        EXPECT_EQ(liste.lignes(), 7) << "the next click searches";
        EXPECT_EQ(dialogues.messages.size(), 1U);
    }
}
