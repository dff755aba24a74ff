// The documents that are read in a window, and their links.
#include "lecture_support.h"

namespace velm::test {

// ---- the document

TEST_F(LectureTest, ADocumentIsShownUnderItsKeyAndItsTitle) {
    ouvre("CO000002");
    EXPECT_EQ(lue.cle(), (Cle{u"CO"_s, u"000002"_s}));
    EXPECT_EQ(lue.referencecourante(), u"CO000002");
    EXPECT_EQ(lue.titrecourant(), u"Article 2");
    EXPECT_EQ(lue.titre(), u"Article 2");
    EXPECT_EQ(vue.titre, u"Collection 0 - Article 2");
    EXPECT_TRUE(texte().startsWith(u"Texte 2.\r\nLigne 0"));
    EXPECT_EQ(vue.peints, 1);
    EXPECT_TRUE(lue.entiere());
}

TEST_F(LectureTest, TheFirstDocumentWakesTheMenusUpOnce) {
    EXPECT_FALSE(lue.menusactifs());
    ouvre("CO000001");
    ouvre("CO000002");
    EXPECT_TRUE(lue.menusactifs());
    EXPECT_EQ(vue.menus, 1);
}

TEST_F(LectureTest, WithoutADocumentNothingIsShownOnceMore) {
    lue.reaffiche();
    lue.changeabc(true);
    lue.changemarques(false, marquage);
    EXPECT_EQ(vue.peints, 0);
    EXPECT_TRUE(lue.cle().vide());
    EXPECT_FALSE(lue.menusactifs());
    EXPECT_TRUE(barre.abc);
}

TEST_F(LectureTest, TheCondensedDisplayHoldsForTheDocumentsThatFollow) {
    ouvre("CO000001");
    EXPECT_TRUE(texte().contains(u"Une note."));
    lue.changeabc(true);
    EXPECT_FALSE(texte().contains(u"Une note."));
    EXPECT_TRUE(barre.abc);
    ouvre("CO000002");
    ouvre("CO000001");
    EXPECT_FALSE(texte().contains(u"Une note."));
    lue.changeabc(false);
    EXPECT_TRUE(texte().contains(u"Une note."));
    EXPECT_FALSE(barre.abc);
}

TEST_F(LectureTest, ADocumentShownOnceMoreIsWholeAndAtItsStartWhateverTheButtonSays) {
    ouvre("CO000001");
    lue.changeabc(true);
    controle.setSelStart(5);
    lue.reaffiche();
    EXPECT_TRUE(texte().contains(u"Une note."));
    EXPECT_EQ(controle.selStart(), 0);
    EXPECT_TRUE(barre.abc);
}

TEST_F(LectureTest, ADocumentThatDoesNotFitIsSaidAndLeavesNoPieceOfItself) {
    vue.sansmemoire = true;
    ouvre("CO000001");
    EXPECT_FALSE(lue.entiere());
    EXPECT_EQ(vue.dits, QStringList{u"9566 Article premier"_s});
    EXPECT_EQ(texte(), QString());
    EXPECT_EQ(lue.nombreliens(), 0);
    ouvre("CO000001");
    EXPECT_TRUE(lue.entiere()) << "asked for again, it is shown again";
    EXPECT_TRUE(texte().startsWith(u"Voir"));
    EXPECT_EQ(vue.dits.size(), 1);
}

TEST_F(LectureTest, OpenListsFollowTheDocument) {
    liens.vue = correlats.vue = true;
    correlats.couleur = 0;
    ouvre("CO000002");
    EXPECT_EQ(liens.recharges, QStringList{u"CO000002"_s});
    EXPECT_TRUE(correlats.recharges.isEmpty());
}

// ---- links

TEST_F(LectureTest, LinksCountFirstToDocumentsThenToTheWebThenMailAddresses) {
    ouvre("CO000001");
    ASSERT_EQ(lue.nombreliens(), 4);
    const QStringList montres{u"l'article 2"_s, u"ailleurs"_s, u"le site"_s, u"nous"_s};
    const QStringList cibles{u"CO000002 - Article 2"_s, u"CO000099"_s, u"https://example.org"_s, u"a@example.org"_s};
    for (int lien = 0; lien < 4; ++lien) {
        const qsizetype debut = ou(montres.at(lien));
        EXPECT_EQ(lue.plage(lien), (PlageLien{debut, debut + montres.at(lien).size()})) << lien;
        EXPECT_EQ(lue.cible(lien), cibles.at(lien));
    }
    EXPECT_EQ(lue.cible(-1), QString());
    EXPECT_EQ(lue.cible(4), QString());
}

TEST_F(LectureTest, AFollowedLinkOpensItsDocumentAtItsAnchorAndFoldsThePanel) {
    ouvre("CO000001");
    lue.suit(ou(u"l'article"_s) + 2);
    EXPECT_EQ(lue.referencecourante(), u"CO000002");
    EXPECT_TRUE(texte().mid(controle.selStart()).startsWith(u"Ligne 0 "));
    EXPECT_TRUE(navigation.prendreplier(0));
    EXPECT_EQ(vue.cibles, QStringList{QString()}) << "the pointer is on no link any more";
}

TEST_F(LectureTest, AddressesGoToTheUsersPrograms) {
    ouvre("CO000001");
    lue.suit(ou(u"le site"_s));
    lue.suit(ou(u"nous"_s));
    EXPECT_EQ(navigateur.urls, QStringList{u"http://https://example.org"_s});
    EXPECT_EQ(navigateur.mails, QStringList{u"a@example.org"_s});
    EXPECT_TRUE(vue.dits.isEmpty());
    EXPECT_EQ(lue.referencecourante(), u"CO000001");
}

TEST_F(LectureTest, AnAddressThatIsRefusedIsSaidOneWithoutAProgramIsNot) {
    ouvre("CO000001");
    navigateur.answer = Navigateur::Handed::No;
    lue.suit(ou(u"le site"_s));
    EXPECT_TRUE(vue.dits.isEmpty());
    navigateur.answer = Navigateur::Handed::Refused;
    lue.suit(ou(u"le site"_s));
    lue.suit(ou(u"nous"_s));
    EXPECT_EQ(vue.dits, (QStringList{u"9565 \n\nhttps://example.org"_s, u"9565 \n\na@example.org"_s}));
}

TEST_F(LectureTest, AClickBesideTheLinksDoesNothing) {
    ouvre("CO000001");
    lue.suit(0);
    EXPECT_EQ(lue.referencecourante(), u"CO000001");
    EXPECT_TRUE(navigateur.urls.isEmpty() && navigateur.mails.isEmpty() && vue.cibles.isEmpty());
}

} // namespace velm::test
