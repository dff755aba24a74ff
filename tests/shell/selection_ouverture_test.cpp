// The selection list in the real frame: the documents that are opened from it.
#include "tests/shell/selection_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST_F(SelectionTest, ADoubleClickOpensTheSelectedRowsInOrderAndTheLastIsActive) {
    ouvre({u"JP000007"_s, u"CO000003"_s, u"CO000001"_s});
    flex().setRow(3);
    flex().setRowSel(1);
    doubleclic(2);
    ASSERT_NE(active(), nullptr);
    EXPECT_EQ(active()->referencecourante(), u"CO000001");
    EXPECT_EQ(programme->fenetre(2)->referencecourante(), u"JP000007");
    const auto& derniers = programme->bureau().navigation().derniersdocuments();
    EXPECT_EQ(derniers[0], u"CO000001");
    EXPECT_EQ(derniers[1], u"CO000003");
    EXPECT_EQ(derniers[2], u"JP000007");
}

TEST_F(SelectionTest, OpenedDocumentsGetTheWordsAndTheMarks) {
    ouvre();
    liste().liste().resultat().mot1 = u"deux"_s;
    liste().liste().resultat().mot2 = u"prix"_s;
    doubleclic(2);
    Textes& fenetre = *active();
    EXPECT_EQ(fenetre.lecture().mots().mot1, u"deux");
    EXPECT_EQ(fenetre.lecture().mots().mot2, u"prix");
    EXPECT_EQ(marques(fenetre), 4);
    for (const QString& cle : {u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s})
        EXPECT_TRUE(fenetre.barrechild().isButtonVisible(cle));
    EXPECT_TRUE(fenetre.barrechild().value(u"marqueauto"_s));
}

TEST_F(SelectionTest, WithoutWordsTheButtonsHide) {
    ouvre();
    doubleclic(1);
    EXPECT_FALSE(active()->barrechild().isButtonVisible(u"motsuivant"_s));
    EXPECT_EQ(marques(*active()), 0);
}

TEST_F(SelectionTest, AutomaticMarkingIsASetting) {
    regle(u"RECHERCHE", u"MARQUEAUTO", u"0"_s);
    ouvre();
    liste().liste().resultat().mot1 = u"prix"_s;
    doubleclic(1);
    EXPECT_EQ(marques(*active()), 0);
    EXPECT_TRUE(active()->barrechild().isButtonVisible(u"marqueauto"_s));
}

TEST_F(SelectionTest, ReturnOpensTheSelectedRow) {
    ouvre();
    flex().setRow(3);
    QTest::keyClick(flex().view(), Qt::Key_Return);
    EXPECT_EQ(active()->referencecourante(), u"CO000003");
}

TEST_F(SelectionTest, ARowWhoseDocumentIsGoneOpensNothingElse) {
    ouvre();
    remplissage().remplit(
        [this](const std::stop_token&) {
            liste().liste().resultat().lignes.ajoute({u"ZZ", u"000001", u"parti", u"", u"", u"", u"ZZ000001"});
        },
        [] {});
    liste().liste().resultat().mot1 = u"prix"_s;
    doubleclic(1);
    Textes* avant = active();
    const int nombre = marques(*avant);
    avant->recoitmots(QString(), QString());
    flex().setRow(6);
    liste().ouvre();
    EXPECT_EQ(active(), avant);
    EXPECT_TRUE(avant->lecture().mots().mot1.isEmpty());
    EXPECT_GT(nombre, 0);
}

TEST_F(SelectionTest, ManyRowsAreOpenedAfterAQuestionOnly) {
    QStringList cles;
    for (int i = 0; i < 51; ++i)
        cles << (i < 50 ? u"CO000001"_s : u"CO000002"_s);
    ouvre(cles);
    flex().selectAll();
    dialogues.answers.push_back(Bouton::Non);
    QTest::keyClick(flex().view(), Qt::Key_Return);
    EXPECT_EQ(active(), nullptr);
    ASSERT_EQ(dialogues.texts(), QStringList{mots(9495, {u"51"_s})});
    EXPECT_EQ(dialogues.messages.back().defaut, Bouton::Non);
    dialogues.answers.push_back(Bouton::Oui);
    QTest::keyClick(flex().view(), Qt::Key_Return);
    EXPECT_EQ(active()->referencecourante(), u"CO000002");
    flex().setRow(1);
    flex().setRowSel(50);
    QTest::keyClick(flex().view(), Qt::Key_Return);
    EXPECT_EQ(active()->referencecourante(), u"CO000001");
    EXPECT_EQ(dialogues.texts(), QStringList(2, mots(9495, {u"51"_s}))) << "fifty are opened without a question";
}

TEST_F(SelectionTest, TheNextRowOpensAndStopsAtTheLastThePreviousAtTheFirst) {
    ouvre();
    presse(barre(), "suivantrecherche");
    EXPECT_EQ(flex().row(), 1);
    EXPECT_EQ(active()->referencecourante(), u"CO000001");
    flex().setRow(3);
    flex().setRowSel(4);
    presse(barre(), "suivantrecherche");
    // One document, not the range.
    EXPECT_EQ(flex().selectedRows(), (std::pair{4, 4}));
    EXPECT_EQ(active()->referencecourante(), u"CO000004");
    EXPECT_NE(programme->bureau().navigation().derniersdocuments()[1], u"CO000003");
    presse(barre(), "suivantrecherche");
    EXPECT_EQ(active()->referencecourante(), u"JP000007");
    programme->ouvre(decoupecle(u"CO000002"));
    presse(barre(), "suivantrecherche");
    EXPECT_EQ(flex().row(), 5);
    EXPECT_EQ(active()->referencecourante(), u"CO000002") << "the last row was opened again";
    flex().setRow(2);
    presse(barre(), "précédentrecherche");
    EXPECT_EQ(active()->referencecourante(), u"CO000001");
    programme->ouvre(decoupecle(u"CO000002"));
    presse(barre(), "précédentrecherche");
    EXPECT_EQ(flex().row(), 1);
    EXPECT_EQ(active()->referencecourante(), u"CO000002");
}
