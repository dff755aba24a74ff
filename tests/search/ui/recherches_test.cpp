// The three searches as the form starts, shows and stops them.
#include "tests/search/ui/formulaire_support.h"

using namespace velm;
using namespace velm::test;

namespace {

class RecherchesTest : public FormulaireTest {};

} // namespace

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
    EXPECT_EQ(bilan(), u"t9725");
    EXPECT_EQ(volet.bilans.back().phrase, u"t9725");
    champ(u"texterapide"_s).setText(u"zut"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(bilan(), u"t9720");
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
    EXPECT_EQ(bilan(), u"t9725");
}

TEST_F(RecherchesTest, ASearchThatWasCutCanBeSeenWholeAndItsLimitStays) {
    for (int numero = 10; numero < 130; ++numero)
        pieces.push_back({u"CO"_s + sixchiffres(numero), u"Contrat"_s});
    ouvrepieces(false);
    champ(u"texterapide"_s).setText(u"contrat"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(bilan(), u"t9727");
    ASSERT_EQ(liste.lignes(), 50);
    champ(u"texterapide"_s).setText(u"autre chose"_s);
    auto* lien = onglets().currentWidget()->findChild<NoteLine*>()->link();
    ASSERT_TRUE(lien->isVisible());
    QTest::mouseClick(lien, Qt::LeftButton);
    EXPECT_EQ(liste.lignes(), 126) << "as it was searched";
    EXPECT_EQ(bilan(), u"t9725");
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
    EXPECT_EQ(bilan(), u"t9726");
    QTest::mouseClick(onglets().currentWidget()->findChild<NoteLine*>()->link(), Qt::LeftButton);
    EXPECT_EQ(liste.lignes(), 250);
    EXPECT_TRUE(dialogues.texts().isEmpty());
    EXPECT_EQ(combo(u"Combonombredico"_s).currentIndex(), 0);
}

// ---- criteria

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

// ---- words

TEST_F(RecherchesTest, ReturnInTheLineStartsTheSearchByWords) {
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"clause contrat"_s);
    QTest::keyClick(&champ(u"Textedico"_s), Qt::Key_Return);
    EXPECT_EQ(lignes(), (QStringList{u"clause : 4"_s, u"contrat : 4"_s}));
    EXPECT_EQ(cles(), (QStringList{u"CO000003"_s, u"CO000004"_s}));
    EXPECT_EQ(panneau.last(), u" 2 documents");
    coche(u"checkandordico"_s).setChecked(false);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(liste.lignes(), 6);
    QTest::mouseClick(barre().widget(u"CO"_s), Qt::LeftButton);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(lignes(), (QStringList{u"clause : 4 ( 0 )"_s, u"contrat : 4 ( 0 )"_s}));
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_EQ(panneau.last(), u" 0 document");
}

TEST_F(RecherchesTest, ATextOfTwoCharactersMovesToTheCriteriaTab) {
    clique(u"cmdokrapide"_s);
    ASSERT_EQ(liste.lignes(), 7);
    const std::size_t publications = volet.publications.size();
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"TV"_s);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(onglets().currentIndex(), 1);
    EXPECT_EQ(champ(u"texterech(0)"_s).text(), u"TV");
    EXPECT_TRUE(champ(u"texterech(0)"_s).hasFocus());
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_FALSE(remplissage.visible());
    EXPECT_FALSE(option2possible());
    EXPECT_EQ(volet.publications.size(), publications);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
    EXPECT_TRUE(derniersde(u"Textedico"_s).isEmpty());
}

TEST_F(RecherchesTest, ClickingAResultLineCopiesItsWord) {
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"clause* bidule"_s);
    clique(u"cmdokdico"_s);
    auto& resultat = un<QListWidget>(u"resultat"_s);
    ASSERT_EQ(lignes(), (QStringList{u"clause : 4"_s, u"clauses : 2"_s, u"bidule : inconnu"_s}));
    const std::size_t publications = volet.publications.size();
    for (const auto& [rang, mot] : {std::pair(1, u"clauses"_s), std::pair(2, u"bidule"_s)}) {
        QTest::mouseClick(resultat.viewport(), Qt::LeftButton, {},
                          resultat.visualItemRect(resultat.item(rang)).center());
        EXPECT_EQ(champ(u"Textedico"_s).text(), mot);
    }
    resultat.setFocus();
    resultat.setCurrentRow(0);
    QTest::keyClick(&resultat, Qt::Key_Return);
    EXPECT_EQ(champ(u"Textedico"_s).text(), u"clause");
    EXPECT_EQ(volet.publications.size(), publications);
}

TEST_F(RecherchesTest, ManyDocumentsAskOnce) {
    pieces.clear();
    for (int numero = 1; numero <= 201; ++numero)
        pieces.push_back({u"CO"_s + sixchiffres(numero), u"Contrat"_s});
    ouvrepieces(false);
    ajoutemots({{u"PARTOUT"_s, entrees(1, 201)}});
    onglet(Onglet::Mots);
    combo(u"Combonombredico"_s).setCurrentIndex(2);
    champ(u"Textedico"_s).setText(u"partout"_s);
    dialogues.answers = {Bouton::Oui, Bouton::Non, Bouton::Annuler};
    for (const int attendues : {200, 201, 0}) {
        clique(u"cmdokdico"_s);
        EXPECT_EQ(liste.lignes(), attendues);
    }
    EXPECT_EQ(panneau.last(), QString());
    combo(u"Combonombredico"_s).setCurrentIndex(0);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(liste.lignes(), 50);
    EXPECT_EQ(dialogues.texts(), QStringList(3, u"La recherche a trouvé 201 documents. N’afficher que 200 ?"_s));
}

TEST_F(RecherchesTest, TheWordsButtonNeverBecomesAStop) {
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"clause"_s);
    pendant([this] {
        EXPECT_EQ(bouton(u"cmdokdico"_s).text(), chercher);
        EXPECT_EQ(sablier.pointeur(), Sablier::attente);
        clique(u"cmdokdico"_s);
    });
    clique(u"cmdokdico"_s);
    EXPECT_EQ(liste.lignes(), 4);
    EXPECT_EQ(lignes(), QStringList{u"clause : 4"_s});
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
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
