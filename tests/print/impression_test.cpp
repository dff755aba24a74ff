// The page loop, the open job, and how it ends.
#include "banc_impression.h"

namespace velm::test {

using ImpressionPages = BancImpression;

TEST_F(ImpressionPages, ThePageRectangleSubtractsThePrintersOffset) {
    montre(5);
    imprimetout();
    EXPECT_EQ(etat.decalagex, 250);
    EXPECT_EQ(etat.decalagey, 240);
    // 800 - 250, 1000 + 500 - 240; 11906 - 900 - 250 - 550, 12970 - 1700 - 240 - 1260.
    EXPECT_EQ(appareil.appels.value(1), u"passage 0--1 en 550,1260 10206x9770");
}

TEST_F(ImpressionPages, AnEmptyTextPrintsOnePage) {
    documents.ejectionautomatique = true;
    imprimetout();
    EXPECT_EQ(appareil.passages, QStringList(u"0-0@1260:1260"_s));
    EXPECT_EQ(appareil.appels.last(), u"fin");
    EXPECT_EQ(nombre(u"page"_s), 0);
    EXPECT_EQ(appareil.liberations, 1);
    EXPECT_EQ(appareil.libereapres, appareil.appels.size()) << "at the end";
}

TEST_F(ImpressionPages, ALongTextBreaksIntoPages) {
    montre(200); // nine lines of ten letters on a page
    imprimetout();
    EXPECT_EQ(appareil.passages, QStringList({u"0-90@1260:10260"_s, u"90-180@1260:10260"_s, u"180-200@1260:3260"_s}));
    EXPECT_EQ(nombre(u"page"_s), 2);
    EXPECT_EQ(nombre(u"blanc"_s), 3) << "each sheet is opened by a blank";
    EXPECT_EQ(etat.positioncourante, 3460);
}

TEST_F(ImpressionPages, ATextThatFillsItsPageBeginsNoOther) {
    montre(90);
    imprimetout();
    EXPECT_EQ(appareil.passages, QStringList(u"0-90@1260:10260"_s));
}

TEST_F(ImpressionPages, WithEjectionNumbersRestartForEachDocument) {
    documents.ejectionautomatique = true;
    documents.nopagepied = 1;
    montre(100);
    imprimetout();
    imprimetout();
    EXPECT_EQ(nombre(u"texte [ 1]"_s), 2);
    EXPECT_EQ(nombre(u"texte [ 2]"_s), 2);
    EXPECT_EQ(nombre(u"fin"_s), 2);
    EXPECT_EQ(etat, (EtatImpression{0, false, -1, 250, 240})) << "closed, with no number left";
}

TEST_F(ImpressionPages, WithoutEjectionNumbersRunOn) {
    documents.nopageentete = 1;
    montre(100);
    imprimetout();
    imprimetout();
    EXPECT_EQ(nombre(u"texte [ 1]"_s), 1);
    EXPECT_EQ(nombre(u"texte [ 2]"_s), 1);
    EXPECT_EQ(nombre(u"texte [ 3]"_s), 0) << "the sheet that is open has none yet";
    impression.terminetravail();
    EXPECT_EQ(nombre(u"texte [ 3]"_s), 1);
    EXPECT_EQ(nombre(u"fin"_s), 1);
}

TEST_F(ImpressionPages, ANewJobAfterOneWithEjectionBeginsAtOne) {
    documents.nopagepied = 1;
    documents.ejectionautomatique = true;
    montre(100);
    imprimetout();
    documents.ejectionautomatique = false;
    appareil.oublie();
    imprimetout();
    EXPECT_EQ(nombre(u"texte [ 1]"_s), 1);
}

TEST_F(ImpressionPages, TwoDocumentsStand200ApartWithTheLineBetween) {
    documents.ligneseparatrice = true;
    montre(20);
    imprimetout();
    EXPECT_EQ(appareil.appels.last(), u"trait 0-11906 3360");
    EXPECT_EQ(etat.positioncourante, 3460);
    EXPECT_TRUE(etat.travailencours);
    imprimetout();
    EXPECT_EQ(appareil.passages.last(), u"0-20@3460:5460");
}

TEST_F(ImpressionPages, WithoutTheLineTheRoomIsTheSame) {
    montre(20);
    imprimetout();
    EXPECT_EQ(nombre(u"trait 0-11906 3360"_s), 0);
    EXPECT_EQ(etat.positioncourante, 3460);
}

TEST_F(ImpressionPages, ADocumentWithLessThanThreeLinesOfRoomGoesToANewPage) {
    documents.nopagepied = 1;
    montre(20);
    imprimetout();
    appareil.oublie();
    etat.positioncourante = 11030 - 720 + 1;
    imprimetout();
    EXPECT_EQ(appareil.passages, QStringList(u"0-20@1260:3260"_s));
    EXPECT_EQ(nombre(u"page"_s), 1);
    EXPECT_EQ(nombre(u"texte [ 1]"_s), 1) << "the sheet that was left got its number";
    EXPECT_EQ(etat.numeropage, 1) << "and the numbers go on";
}

TEST_F(ImpressionPages, ThreeLinesOfRoomAreEnough) {
    montre(20);
    imprimetout();
    appareil.oublie();
    etat.positioncourante = 11030 - 720;
    imprimetout();
    EXPECT_EQ(appareil.passages.first(), u"0-10@10310:11310");
    EXPECT_EQ(appareil.passages.last(), u"10-20@1260:2260") << "the next page begins at its top";
}

TEST_F(ImpressionPages, APositionBelow1IsNone) {
    montre(5);
    etat.positioncourante = 0;
    imprimetout();
    EXPECT_EQ(appareil.passages, QStringList(u"0-5@1260:2260"_s));
    etat.positioncourante = 1;
    imprimetout();
    EXPECT_EQ(appareil.passages.last(), u"0-5@1:1001");
}

TEST_F(ImpressionPages, ASelectionAtTheStartPrintsAllItsPages) {
    montre(400);
    choisit(0, 200);
    imprimeselection();
    EXPECT_EQ(appareil.passages.size(), 3);
    EXPECT_EQ(appareil.passages.last(), u"180-200@1260:3260");
}

TEST_F(ImpressionPages, ASelectionThatDoesNotStartAt0StopsAfterItsFirstPage) {
    montre(400);
    choisit(150, 200);
    imprimeselection();
    EXPECT_EQ(appareil.passages, QStringList(u"150-240@1260:10260"_s)) << "240 is not below 200";
    choisit(50, 200);
    appareil.oublie();
    etat = {};
    imprimeselection();
    EXPECT_EQ(appareil.passages, QStringList({u"50-140@1260:10260"_s, u"140-230@1260:10260"_s}))
        << "as soon as the place reached is the length, not before";
}

TEST_F(ImpressionPages, EndingTheJobDrawsTheLastBlocksAndResetsTheState) {
    documents.textentete = u"En-tête"_s;
    montre(20);
    imprimetout();
    EXPECT_EQ(nombre(u"texte [En-tête]"_s), 0);
    impression.terminetravail();
    EXPECT_EQ(appareil.appels.mid(appareil.appels.size() - 2), QStringList({u"texte [En-tête]"_s, u"fin"_s}));
    EXPECT_EQ(etat, (EtatImpression{0, false, -1, 250, 240}));
    EXPECT_EQ(boutons, QList<bool>({true, false}));
}

TEST_F(ImpressionPages, DiscardingTheJobResetsTheState) {
    documents.textentete = u"En-tête"_s;
    montre(20);
    imprimetout();
    impression.abandontravail();
    EXPECT_EQ(appareil.appels.last(), u"jette");
    EXPECT_EQ(nombre(u"texte [En-tête]"_s), 0);
    EXPECT_EQ(etat, (EtatImpression{0, false, -1, 250, 240}));
    EXPECT_EQ(boutons, QList<bool>({true, false}));
}

TEST_F(ImpressionPages, DiscardingOnAPrinterThatHasGoneResetsTheStateToo) {
    montre(20);
    imprimetout();
    appareil.pannea = static_cast<int>(appareil.appels.size());
    EXPECT_THROW(impression.abandontravail(), PrintFailure);
    EXPECT_FALSE(etat.travailencours);
    EXPECT_EQ(boutons, QList<bool>({true, false}));
}

TEST_F(ImpressionPages, TheButtonsFollowTheJobsState) {
    montre(20);
    imprimetout();
    EXPECT_EQ(boutons, QList<bool>({true}));
    documents.ejectionautomatique = true;
    imprimetout();
    EXPECT_EQ(boutons, QList<bool>({true, false}));
}

TEST_F(ImpressionPages, WithAllBlocksOffTheNumberCounts) {
    montre(200);
    imprimetout();
    EXPECT_EQ(etat.numeropage, 2);
    EXPECT_TRUE(appareil.appels.filter(u"texte"_s).isEmpty());
}

TEST_F(ImpressionPages, EjectionTurnedOnInAnOpenJobBeginsAtTheTopOfItsSheet) {
    montre(20);
    imprimetout();
    etat.numeropage = 7;
    documents.ejectionautomatique = true;
    documents.nopagepied = 1;
    imprimetout();
    EXPECT_EQ(appareil.passages.last(), u"0-20@1260:3260");
    EXPECT_EQ(nombre(u"texte [ 1]"_s), 1);
    EXPECT_FALSE(etat.travailencours);
}

TEST_F(ImpressionPages, EjectionTurnedOffPutsTheNextDocumentBehindNothing) {
    documents.ejectionautomatique = true;
    montre(20);
    imprimetout();
    documents.ejectionautomatique = false;
    imprimetout();
    EXPECT_EQ(appareil.passages.last(), u"0-20@1260:3260");
}

TEST_F(ImpressionPages, APositionAbove32767Ends) {
    appareil.feuille.height = 50000;
    montre(310);
    EXPECT_NO_THROW(imprimetout());
    EXPECT_EQ(etat.positioncourante, 32460);
    etat = {};
    boutons.clear();
    montre(320);
    EXPECT_THROW(imprimetout(), PositionHorsBornes);
    EXPECT_EQ(etat.positioncourante, -1) << "as it stood";
    EXPECT_FALSE(etat.travailencours);
    EXPECT_TRUE(boutons.isEmpty());
    EXPECT_EQ(appareil.liberations, 2) << "what the printer keeps of the text is gone all the same";
}

TEST_F(ImpressionPages, TheRoomBetweenDocumentsIsCountedToThatBoundToo) {
    appareil.feuille.height = 50000;
    documents.ligneseparatrice = true;
    appareil.hauteurdeligne = 32700 - 1260;
    montre(5);
    EXPECT_THROW(imprimetout(), PositionHorsBornes);
    EXPECT_EQ(etat.positioncourante, 32700);
    EXPECT_TRUE(etat.travailencours);
    EXPECT_TRUE(appareil.appels.filter(u"trait"_s).isEmpty()) << "before the line";
    etat = {};
    appareil.hauteurdeligne = 32600 - 1260;
    EXPECT_THROW(imprimetout(), PositionHorsBornes);
    EXPECT_EQ(appareil.appels.last(), u"trait 0-11906 32700") << "behind it";
    EXPECT_TRUE(boutons.isEmpty());
}

TEST_F(ImpressionPages, WithEjectionAPositionOutOfBoundsEndsAsWell) {
    documents.ejectionautomatique = true;
    appareil.feuille.height = 50000;
    montre(320);
    EXPECT_THROW(imprimetout(), PositionHorsBornes);
    EXPECT_EQ(nombre(u"fin"_s), 0);
}

TEST_F(ImpressionPages, APrinterThatFailsLeavesTheStateAsItStood) {
    montre(200);
    documents.nopagepied = 1;
    imprimetout();
    const EtatImpression avant = etat;
    // The first break of the second document: its number is printed, the new sheet does not come.
    const qsizetype debut = appareil.appels.size();
    const auto rang = [&] {
        AppareilScript autre;
        autre.feuille = appareil.feuille;
        EtatImpression copie = etat;
        Impression essai({autre, copie, documents, dossiers, textefrancais, [](bool) {}});
        essai.imprimerichtext(rtf, 0, Impression::tout);
        return autre.appels.indexOf(u"page"_s);
    }();
    appareil.pannea = static_cast<int>(debut + rang);
    EXPECT_THROW(imprimetout(), PrintFailure);
    EXPECT_EQ(etat.numeropage, avant.numeropage + 1);
    EXPECT_EQ(etat.positioncourante, avant.positioncourante);
    EXPECT_TRUE(etat.travailencours);
    EXPECT_EQ(boutons, QList<bool>({true}));
    EXPECT_EQ(appareil.liberations, 2);
    EXPECT_EQ(appareil.libereapres, appareil.appels.size());
}

TEST_F(ImpressionPages, APrinterThatFailsAtTheLastSheetLeavesTheJobOpen) {
    montre(20);
    imprimetout();
    appareil.pannea = static_cast<int>(appareil.appels.size());
    EXPECT_THROW(impression.terminetravail(), PrintFailure);
    EXPECT_TRUE(etat.travailencours);
    EXPECT_EQ(boutons, QList<bool>({true}));
}

TEST_F(ImpressionPages, MarginsWithoutRoomBetweenThemPrintNothing) {
    montre(200);
    const ReglagesImpression bonnes = documents;
    const auto refuse = [&] {
        EXPECT_THROW(imprimetout(), FeuilleTropPetite);
        EXPECT_TRUE(appareil.appels.isEmpty()) << "not even a job is opened";
        EXPECT_EQ(etat, EtatImpression());
        documents = bonnes;
    };
    documents.margegauche = 11906 - 900;
    refuse();
    documents.margehaute = 12970;
    refuse();
    documents.margepieddepage = 2'000'000'000;
    documents.margebasse = 2'000'000'000;
    refuse();
}

TEST_F(ImpressionPages, AStripOfRoomTakesALineASheet) {
    documents.margebasse = 12970 - 1500 - 600 - 1;
    montre(30);
    imprimetout();
    EXPECT_EQ(appareil.passages, QStringList({u"0-10@1260:2260"_s, u"10-20@1260:2260"_s, u"20-30@1260:2260"_s}));
}

TEST_F(ImpressionPages, APrinterThatTakesNoLineIsNotAskedForEver) {
    appareil.avance = false;
    appareil.hauteurdeligne = 20000;
    montre(30);
    EXPECT_THROW(imprimetout(), FeuilleTropPetite);
    EXPECT_EQ(appareil.passages.size(), 1);
}

TEST_F(ImpressionPages, MarginsBeyondTheSheetAreTakenAsTheyAre) {
    documents.margegauche = -3000;
    documents.margeentete = -2500;
    montre(5);
    imprimetout();
    EXPECT_EQ(appareil.appels.value(1), u"passage 0--1 en -3250,-1740 14006x12770");
    documents.margegauche = -2'000'000'000;
    documents.margedroite = -2'000'000'000;
    etat = {};
    EXPECT_NO_THROW(imprimetout()) << "no number is out of the bounds of a rectangle";
}

} // namespace velm::test
