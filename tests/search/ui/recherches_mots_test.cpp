// The search by words as the form starts and shows it.
#include "tests/search/ui/formulaire_support.h"

using namespace velm;
using namespace velm::test;
using RecherchesTest = velm::test::FormulaireTest;

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
