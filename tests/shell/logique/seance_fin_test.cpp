#include "tests/shell/logique/seance_support.h"

using namespace velm;

namespace {

class SeanceFin : public velm::test::SeanceTest {
protected:
    bool quitte(std::initializer_list<Bouton> reponses) {
        if (!corpus.connecte()) {
            EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
        }
        ecrans.journal.clear();
        dialogues.messages.clear();
        dialogues.answers.assign(reponses);
        return fin().quitteprogramme();
    }
};

} // namespace

TEST_F(SeanceFin, DecliningTheQuestionLeavesEverythingAsItWas) {
    EXPECT_FALSE(quitte({Bouton::Non}));
    EXPECT_TRUE(ecrans.journal.isEmpty());
    EXPECT_TRUE(corpus.connecte());
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILD"), u"(absent)");
    ASSERT_EQ(dialogues.messages.size(), 1u);
    const Message& m = dialogues.messages.front();
    EXPECT_EQ(m.texte, u"Voulez-vous quitter le programme\u00A0?");
    EXPECT_EQ(m.titre, u"Quitter");
    EXPECT_EQ(m.icone, Icone::Question);
    EXPECT_EQ(m.boutons, Bouton::Oui | Bouton::Non | Bouton::Aide);
    EXPECT_EQ(m.contexteAide, 13);
}

TEST_F(SeanceFin, NoQuestionIsAskedWhenTheQuitSettingIsOne) {
    stocke("GENERALITES", "CHECKQUIT", QStringLiteral("1"));
    EXPECT_TRUE(quitte({}));
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(SeanceFin, TheStepsStandInTheirOrder) {
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(ecrans.journal, (QStringList{QStringLiteral("ferme dossiers"), QStringLiteral("derniers"),
                                           QStringLiteral("ferme fenêtres"), QStringLiteral("ferme principale")}));
    EXPECT_FALSE(corpus.connecte());
}

TEST_F(SeanceFin, AnOpenPrintJobIsFinishedOnYes) {
    ecrans.impression = true;
    EXPECT_TRUE(quitte({Bouton::Oui, Bouton::Oui}));
    EXPECT_TRUE(ecrans.a(QStringLiteral("termine")));
    EXPECT_FALSE(ecrans.a(QStringLiteral("abandonne")));
    EXPECT_TRUE(dialogues.messages.back().texte.endsWith(u'?'));
    EXPECT_EQ(dialogues.messages.back().boutons, Bouton::Oui | Bouton::Non);
}

TEST_F(SeanceFin, AnOpenPrintJobIsThrownAwayOnAnyAnswerButYes) {
    ecrans.impression = true;
    EXPECT_TRUE(quitte({Bouton::Oui, Bouton::Non}));
    EXPECT_TRUE(ecrans.a(QStringLiteral("abandonne")));
    EXPECT_FALSE(ecrans.a(QStringLiteral("termine")));
}

TEST_F(SeanceFin, SlotFlagsAndKeysAreWrittenInSlotOrder) {
    ecrans.etat.cochees[0] = true;
    ecrans.etat.cochees[2] = true;
    ecrans.etat.cochees[11] = true;
    ecrans.etat.filles = {{Nature::Document, QStringLiteral("JP000007")},
                          {Nature::Document, QStringLiteral("CO000005")},
                          {Nature::Document, QStringLiteral("CO000006")},
                          {Nature::Document, QString()}};
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILD"), u"-1X X        X");
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILDCONTENU"),
              QStringLiteral("CO000005        JP000007").leftJustified(96, u' '));
}

TEST_F(SeanceFin, SearchWindowsAreNotRecorded) {
    for (const Nature nature : {Nature::Recherche, Nature::Liste, Nature::Dossiers})
        ecrans.etat.filles.push_back({nature, QStringLiteral("CO000001")});
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILDCONTENU"), QString(96, u' '));
}

TEST_F(SeanceFin, TheActiveSlotIsFoundByTheCaptionOfItsEntry) {
    ecrans.etat.libelles[3] = QStringLiteral("Codes et lois - Article premier");
    ecrans.etat.titreactif = QStringLiteral("Codes et lois - Article premier");
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_TRUE(lu("POSITIONFORME", "MDICHILD").startsWith(QStringLiteral("03")));
}

TEST_F(SeanceFin, TheFramesPositionIsWrittenInAnyState) {
    ecrans.etat.principale = {1, 30, 45, 6000, 5000};
    ecrans.etat.largeurpane = 3210.5;
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSSTATE"), u"1");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSLEFT"), u"30");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSTOP"), u"45");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSWIDTH"), u"6000");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSHEIGHT"), u"5000");
    EXPECT_EQ(lu("EDITEUR", "LARGEURSELECTION"), u"3210.5");
    EXPECT_EQ(lu("BASE", "CHEMIN"), dossier_.path() + u'/');
}

TEST_F(SeanceFin, WhatTheExitWroteIsReadByTheNextStart) {
    stocke("GENERALITES", "RESTAUREFEN", QStringLiteral("1"));
    ecrans.etat.cochees[2] = true;
    ecrans.etat.filles = {{Nature::Document, QStringLiteral("JP000007")}};
    EXPECT_TRUE(quitte({Bouton::Oui}));
    oublie();
    ecrans.surcharge = [this] { seance().restaurefenetres(); };
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_TRUE(ecrans.a(QStringLiteral("navigue TAJP000007")));
}

TEST_F(SeanceFin, TheWindowHandleIsNeverCleared) {
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("HWND", "HWnd"), u"4242");
}

TEST_F(SeanceFin, ThePlaceOfTheBaseIsWrittenAlikeHoweverOftenTheProgramRuns) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(quitte({Bouton::Oui}));
        EXPECT_EQ(lu("BASE", "CHEMIN"), dossier_.path() + u'/');
        oublie();
    }
}

TEST_F(SeanceFin, AnActiveWindowWithoutAnEntryIsNone) {
    ecrans.etat.cochees[0] = true;
    ecrans.etat.libelles[0] = QStringLiteral("Code - Article premier");
    ecrans.etat.titreactif = QStringLiteral("Liste chronologique");
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILD"), u"-1X           ");
}

TEST_F(SeanceFin, NothingIsWrittenBeforeThePrintJobIsSettled) {
    ecrans.impression = true;
    ecrans.surabandon = [this] {
        EXPECT_EQ(lu("POSITIONFORME", "MDICHILD"), u"(absent)");
        EXPECT_TRUE(corpus.connecte());
    };
    EXPECT_TRUE(quitte({Bouton::Oui, Bouton::Non}));
    EXPECT_EQ(ecrans.journal.first(), u"abandonne");
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILD"), u"-1            ");
}

TEST_F(SeanceFin, TheTablesAreClosedBeforeTheDossiersAndThePositionComesLast) {
    ecrans.surfermedossiers = [this] {
        EXPECT_FALSE(corpus.connecte());
        EXPECT_NE(lu("POSITIONFORME", "MDICHILD"), u"(absent)");
    };
    ecrans.surfermefenetres = [this] { EXPECT_EQ(lu("POSITIONMDI", "WINDOWSSTATE"), u"(absent)"); };
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSSTATE"), u"2");
}

TEST_F(SeanceFin, AnEndThatNobodyIsAskedAboutWritesAndClosesAsTheOther) {
    ecrans.impression = true;
    ecrans.etat.largeurpane = 3000;
    ASSERT_EQ(seance().demarre(), Demarrage::EnMarche);
    ecrans.journal.clear();
    fin().termine();
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_EQ(ecrans.journal,
              (QStringList{QStringLiteral("abandonne"), QStringLiteral("ferme dossiers"), QStringLiteral("derniers"),
                           QStringLiteral("ferme fenêtres"), QStringLiteral("ferme principale")}));
    EXPECT_EQ(lu("EDITEUR", "LARGEURSELECTION"), u"3000");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSWIDTH"), u"9600");
    EXPECT_FALSE(corpus.connecte());
}

TEST_F(SeanceFin, ASecondEndDoesNothing) {
    EXPECT_TRUE(quitte({Bouton::Oui}));
    stocke("EDITEUR", "LARGEURSELECTION", QStringLiteral("77"));
    ecrans.journal.clear();
    fin().termine();
    fin().enregistre();
    EXPECT_TRUE(ecrans.journal.isEmpty());
    EXPECT_EQ(lu("EDITEUR", "LARGEURSELECTION"), u"77");
}

TEST_F(SeanceFin, TheSessionsEndWritesWhatTheEndWritesAndClosesNothing) {
    ecrans.impression = true;
    ecrans.etat.largeurpane = 3000;
    ecrans.etat.cochees[1] = true;
    ecrans.etat.filles.push_back({Nature::Document, QStringLiteral("EU000007")});
    ASSERT_EQ(seance().demarre(), Demarrage::EnMarche);
    ecrans.journal.clear();
    fin().enregistre();
    EXPECT_EQ(ecrans.journal, (QStringList{QStringLiteral("derniers"), QStringLiteral("note fenêtres")}));
    EXPECT_EQ(lu("EDITEUR", "LARGEURSELECTION"), u"3000");
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILD"), u"-1 X          ");
    EXPECT_EQ(lu("POSITIONFORME", "MDICHILDCONTENU").mid(8, 8), u"EU000007");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSWIDTH"), u"9600");
    EXPECT_TRUE(corpus.connecte());
    EXPECT_TRUE(quitte({Bouton::Oui, Bouton::Non})) << "called off: an ordinary end comes later";
}

TEST_F(SeanceFin, PlacesThatAreSetAsideStayInTheirFileUntilTheyChange) {
    stocke("EDITEUR", "LARGEURSELECTION", QStringLiteral("large"));
    stocke("POSITIONMDI", "WINDOWSWIDTH", QStringLiteral("beaucoup"));
    stocke("POSITIONMDI", "WINDOWSLEFT", QStringLiteral("gauche"));
    reglages.surfaute([](const RuntimeFailure&) { return true; });
    ecrans.surcharge = [this] { ecrans.etat.principale = seance().positionprincipale(); };
    ASSERT_EQ(seance().demarre(), Demarrage::EnMarche);
    ecrans.etat.principale.gauche = 15;
    EXPECT_TRUE(quitte({Bouton::Oui}));
    EXPECT_EQ(lu("EDITEUR", "LARGEURSELECTION"), u"large");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSWIDTH"), u"beaucoup");
    EXPECT_EQ(lu("POSITIONMDI", "WINDOWSLEFT"), u"15");
}
