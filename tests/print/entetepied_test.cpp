// Headers and footers.
#include "banc_impression.h"

namespace velm::test {

class EntetesEtPieds : public BancImpression {
protected:
    EntetesEtPieds() { documents.ejectionautomatique = true; }
    /// What is drawn on the one sheet of a short text, from the format of its text to the end of the job.
    QStringList dessine() {
        appareil.oublie();
        etat = {};
        montre(5);
        imprimetout();
        return appareil.appels.mid(2, appareil.appels.size() - 3);
    }
};

TEST_F(EntetesEtPieds, AHeaderAndAFooterAreDrawnOnEveryPage) {
    documents.textentete = u"Haut"_s;
    documents.textpied = u"Bas"_s;
    montre(200);
    imprimetout();
    EXPECT_EQ(nombre(u"texte [Haut]"_s), 3);
    EXPECT_EQ(nombre(u"texte [Bas]"_s), 3);
}

TEST_F(EntetesEtPieds, TheFourBlocksComeInTheirOrderWithTheirFonts) {
    documents.textentete = u"Haut"_s;
    documents.textpied = u"Bas"_s;
    documents.nopageentete = 1;
    documents.nopagepied = -1;
    documents.ligneentete = {0, {u"A"_s, 11, 1, 0}};
    documents.lignenopageentete = {0, {u"B"_s, 12, 0, 1}};
    documents.lignepied = {0, {u"C"_s, 13, 1, 1}};
    documents.lignenopagepied = {0, {u"D"_s, 14, 0, 0}};
    EXPECT_EQ(dessine(),
              QStringList({u"police A 11 10"_s, u"y 760"_s, u"x 550"_s, u"texte [Haut]"_s, u"police B 12 01"_s,
                           u"y 760"_s, u"x 550"_s, u"texte [ 1]"_s, u"police C 13 11"_s, u"y 11630"_s, u"x 550"_s,
                           u"texte [Bas]"_s, u"police D 14 00"_s, u"y 11630"_s, u"x 550"_s, u"texte [ 1]"_s}));
}

TEST_F(EntetesEtPieds, AlignmentLeftCentreAndRight) {
    documents.textentete = u"Haut"_s; // 400 wide
    documents.ligneentete.cadrage = 0;
    EXPECT_EQ(dessine().value(2), u"x 550");
    documents.ligneentete.cadrage = 1;
    // (11906 - 250 - 800 - 900 - 400) / 2 + 800 - 250
    EXPECT_EQ(dessine().value(2), u"x 5328");
    documents.ligneentete.cadrage = 2;
    EXPECT_EQ(dessine().value(2), u"x 10356");
}

TEST_F(EntetesEtPieds, AnAlignmentOf3LeavesThePosition) {
    documents.textentete = u"Haut"_s;
    for (const int cadrage : {3, -1}) {
        documents.ligneentete = {cadrage, {u"Arial"_s, 10, 0, 0}};
        EXPECT_EQ(dessine(), QStringList({u"police Arial 10 00"_s, u"y 760"_s, u"texte [Haut]"_s}));
    }
}

TEST_F(EntetesEtPieds, BoldAndItalicNeedTheValue1) {
    documents.textentete = u"Haut"_s;
    documents.ligneentete.police = {u"A"_s, 10, 2, -1};
    EXPECT_EQ(dessine().value(0), u"police A 10 00");
    documents.ligneentete.police = {u"A"_s, 10, 1, 1};
    EXPECT_EQ(dessine().value(0), u"police A 10 11");
}

TEST_F(EntetesEtPieds, ThePageNumberStandsAfterABlankAndIsMeasuredWithoutIt) {
    documents.nopageentete = 1;
    documents.lignenopageentete.cadrage = 2;
    EXPECT_EQ(dessine().mid(2), QStringList({u"x 10656"_s, u"texte [ 1]"_s})) << "the width of one digit";
    documents.lignenopageentete.cadrage = 1;
    EXPECT_EQ(dessine().value(2), u"x 5478");
}

TEST_F(EntetesEtPieds, HalfATwipGoesToTheEvenOne) {
    documents.nopageentete = 1;
    documents.lignenopageentete.cadrage = 1;
    appareil.largeurdelettre = 101; // 4927.5
    EXPECT_EQ(dessine().value(2), u"x 5478");
    appareil.largeurdelettre = 99; // 4928.5
    EXPECT_EQ(dessine().value(2), u"x 5478");
}

TEST_F(EntetesEtPieds, TheFooterStandsAtTheBottomMarginItself) {
    documents.textpied = u"Bas"_s;
    documents.margebasse = 0;
    EXPECT_EQ(dessine().value(1), u"y 12730") << "its text runs below the sheet then";
}

TEST_F(EntetesEtPieds, ABlankTextIsPrinted) {
    documents.textentete = u" "_s;
    EXPECT_EQ(dessine().last(), u"texte [ ]");
}

TEST_F(EntetesEtPieds, DocumentsHaveNoPlaceForADossiersName) {
    documents.textentete = u"{DOSSIER}"_s;
    EXPECT_EQ(dessine().last(), u"texte [{DOSSIER}]");
}

TEST_F(EntetesEtPieds, TheNameOfTheDossierStandsInBothTexts) {
    dossiers.textentete = u"{dossier} {Dossier}"_s;
    dossiers.textpied = u"Dossier {DOSSIER}"_s;
    impression.imprimerrichtextdossier(rtf, u"Baux"_s, 0, Impression::tout);
    impression.terminetravaildossier(u"Vente"_s);
    EXPECT_EQ(appareil.appels.filter(u"texte"_s), QStringList({u"texte [Vente Vente]"_s, u"texte [Dossier Vente]"_s}));
}

TEST_F(EntetesEtPieds, ATextThatIsTheNameAloneIsLeftOutWhereThatIsEmpty) {
    dossiers.textentete = u"{DOSSIER}"_s;
    impression.terminetravaildossier({});
    EXPECT_EQ(appareil.appels, QStringList(u"fin"_s));
}

TEST_F(EntetesEtPieds, MarginsOfAnySizeAreWithinBounds) {
    documents.textpied = u"Bas"_s;
    documents.margebasse = -2'147'483'648;
    documents.margegauche = -2'147'483'648;
    documents.lignepied.cadrage = 0;
    EXPECT_EQ(dessine().mid(1, 2), QStringList({u"y 16777216"_s, u"x -16777216"_s}));
}

} // namespace velm::test
