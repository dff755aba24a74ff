#include "tests/shell/logique/seance_support.h"
#include "tests/support/arret.h"

using namespace velm;
using SeanceDebut = velm::test::SeanceTest;

TEST_F(SeanceDebut, TheStepsStandInTheirOrder) {
    ASSERT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_EQ(ecrans.journal,
              (QStringList{QStringLiteral("styles"), QStringLiteral("étape Démarrage du programme..."),
                           QStringLiteral("accueil"), QStringLiteral("efface"), QStringLiteral("dossiers"),
                           QStringLiteral("étape Base documentaire ouverte..."),
                           QStringLiteral("étape Préparation de la fenêtre principale..."), QStringLiteral("charge"),
                           QStringLiteral("montre"), QStringLiteral("ferme accueil"), QStringLiteral("astuce")}));
    EXPECT_TRUE(numeros.isEmpty());
    EXPECT_EQ(lu("HWND", "HWnd"), u"4242");
    EXPECT_EQ(lu("BASE", "APPLICATION"), dossier_.path());
    EXPECT_EQ(lu("BASE", "CHEMIN"), dossier_.path() + u'/');
    EXPECT_EQ(extensions, QStringList{dossier_.path() + QStringLiteral("/|") + dossier_.path() + u'/'});
}

TEST_F(SeanceDebut, TheStepLabelEndsInThreeDots) {
    seance().afficheetape(QStringLiteral("Lecture"));
    EXPECT_EQ(ecrans.journal, QStringList{QStringLiteral("étape Lecture...")});
    seance().afficheetape(QString());
    EXPECT_EQ(ecrans.journal.last(), u"étape ...");
}

TEST_F(SeanceDebut, ASecondInstanceShowsTheFirstAndOpensNothing) {
    autre = true;
    env.lignedecommande = QStringLiteral("CO123");
    stocke("HWND", "HWnd", QStringLiteral("77"));
    EXPECT_EQ(seance().demarre(), Demarrage::AutreInstance);
    EXPECT_EQ(remontes, QStringList{QStringLiteral("77")});
    EXPECT_TRUE(ecrans.journal.isEmpty());
    EXPECT_EQ(lu("BASE", "APPLICATION"), u"(absent)");
}

TEST_F(SeanceDebut, ASecondInstanceWithoutAHandleTakesZero) {
    autre = true;
    EXPECT_EQ(seance().demarre(), Demarrage::AutreInstance);
    EXPECT_EQ(remontes, QStringList{QStringLiteral("0")});
}

TEST_F(SeanceDebut, AReferenceInLowerCaseOpensItsDocument) {
    env.lignedecommande = QStringLiteral("co123");
    seance().demarre();
    EXPECT_EQ(ecrans.parmi(QStringLiteral("navigue")), QStringList{QStringLiteral("navigue TACO000123")});
}

TEST_F(SeanceDebut, ACommandLineOfTwoLettersOpensNothing) {
    env.lignedecommande = QStringLiteral("CO");
    seance().demarre();
    EXPECT_TRUE(ecrans.parmi(QStringLiteral("navigue|dv2|cv2")).isEmpty());
}

TEST_F(SeanceDebut, AnUnknownCommandLineIsIgnored) {
    for (const char* ligne : {"bonjour", "CO12x", "CO 1.5", "COE5", "CO--1", "fichier.txt"})
        seance().traitelignedecommande(QString::fromUtf8(ligne));
    EXPECT_TRUE(ecrans.journal.isEmpty());
}

TEST_F(SeanceDebut, DigitsMayHaveBlanksAndASign) {
    seance().traitelignedecommande(QStringLiteral("CO 12 "));
    seance().traitelignedecommande(QStringLiteral("CO-1"));
    seance().traitelignedecommande(QStringLiteral("ZZ1234567"));
    EXPECT_EQ(ecrans.journal, (QStringList{QStringLiteral("navigue TACO000012"), QStringLiteral("navigue TACO0000-1"),
                                           QStringLiteral("navigue TAZZ234567")}));
}

TEST_F(SeanceDebut, ADossierFileIsRecognisedInAnyCaseAndSuppressesTheTip) {
    env.lignedecommande = QStringLiteral("/tmp/mon dossier.dV2");
    seance().demarre();
    EXPECT_TRUE(ecrans.a(QStringLiteral("dv2 /tmp/mon dossier.dV2")));
    EXPECT_FALSE(ecrans.a(QStringLiteral("astuce")));
}

TEST_F(SeanceDebut, AQuoteThatIsReallyThereStays) {
    env.lignedecommande = QStringLiteral("\"/tmp/a.dv2\"");
    seance().demarre();
    EXPECT_TRUE(ecrans.parmi(QStringLiteral("dv2")).isEmpty());
}

TEST_F(SeanceDebut, ACriteriaFileOpensWhileTheFrameLoads) {
    env.lignedecommande = QStringLiteral("/tmp/recherche.cv2");
    ecrans.surcharge = [this] { seance().ouvrecriteresdelaligne(); };
    seance().demarre();
    const qsizetype charge = ecrans.journal.indexOf(QStringLiteral("charge"));
    EXPECT_EQ(ecrans.journal.indexOf(QStringLiteral("cv2 /tmp/recherche.cv2")), charge + 1);
    EXPECT_LT(charge, ecrans.journal.indexOf(QStringLiteral("montre")));
    EXPECT_TRUE(ecrans.parmi(QStringLiteral("navigue")).isEmpty());
}

TEST_F(SeanceDebut, TheTipIsNotShownWhenTipsAreOff) {
    stocke("OPTIONS", "TIPS", QStringLiteral("0"));
    seance().demarre();
    EXPECT_FALSE(ecrans.a(QStringLiteral("astuce")));
}

TEST_F(SeanceDebut, TheTipIsNotShownWhenTheFrameStartsMinimised) {
    stocke("POSITIONMDI", "WINDOWSSTATE", QStringLiteral("1"));
    ecrans.surcharge = [this] { EXPECT_EQ(seance().positionprincipale().etat, 1); };
    seance().demarre();
    EXPECT_FALSE(ecrans.a(QStringLiteral("astuce")));
}

TEST_F(SeanceDebut, AnEmptyStoreStartsMaximised) {
    seance().demarre();
    const PositionFenetre p = seance().positionprincipale();
    EXPECT_EQ(p.etat, 2);
    EXPECT_EQ(p.gauche, 0);
    EXPECT_EQ(p.haut, 0);
    EXPECT_EQ(p.largeur, 9600);
    EXPECT_EQ(p.hauteur, 7200);
}

TEST_F(SeanceDebut, AnUpdateToolWithALaterProgramFileEndsTheStartAtOnce) {
    const QDateTime jour(QDate(2026, 1, 2), QTime(10, 0));
    ecrit("velm2000", jour);
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("cd")));
    stocke("BASE", "CHEMIN", chemin("cd"));
    ecrit("cd/MAJver.exe", jour);
    ecrit("cd/velm2000.exe", jour.addSecs(60));
    for (const char* nom : {"cd", "cd/MAJver.exe"})
        ASSERT_TRUE(QFile::setPermissions(chemin(nom), QFile::Permissions(0x7755)));
    EXPECT_EQ(seance().demarre(), Demarrage::MiseAJour);
    ASSERT_EQ(lances.size(), 1);
    EXPECT_EQ(lances.first(), chemin("cd/MAJver.exe") + u'|' + dossier_.path() + QStringLiteral("/,") + chemin("cd") +
                                  QStringLiteral("/,velm2000.exe,Velmorante 2000"));
    EXPECT_FALSE(ecrans.a(QStringLiteral("accueil")));
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(SeanceDebut, AnUpdateToolThatOthersMayChangeIsSaidAndNotStarted) {
    const QDateTime jour(QDate(2026, 1, 2), QTime(10, 0));
    ecrit("velm2000", jour);
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("cd")));
    ASSERT_TRUE(QFile::copy(chemin("velm2000.dat"), chemin("cd/velm2000.dat")));
    stocke("BASE", "CHEMIN", chemin("cd"));
    ecrit("cd/MAJver.exe", jour);
    ecrit("cd/velm2000.exe", jour.addSecs(60));
    const QFile::Permissions sur(0x7755);
    for (const auto& [outil, dossier] :
         {std::pair(QFile::Permissions(0x7775), sur), std::pair(QFile::Permissions(0x7757), sur),
          std::pair(sur, QFile::Permissions(0x7775)), std::pair(sur, QFile::Permissions(0x7757))}) {
        ASSERT_TRUE(QFile::setPermissions(chemin("cd/MAJver.exe"), outil));
        ASSERT_TRUE(QFile::setPermissions(chemin("cd"), dossier));
        dialogues.messages.clear();
        EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
        EXPECT_TRUE(lances.isEmpty());
        ASSERT_EQ(dialogues.messages.size(), 1U);
        EXPECT_TRUE(dialogues.messages.front().texte.contains(chemin("cd/MAJver.exe")));
        EXPECT_EQ(dialogues.messages.front().icone, Icone::Exclamation);
    }
    // A tool that would not be started anyway is nobody's concern.
    ecrit("cd/velm2000.exe", jour);
    dialogues.messages.clear();
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(SeanceDebut, AnUpdateToolWithAProgramFileOfTheSameDateLetsTheStartGoOn) {
    const QDateTime jour(QDate(2026, 1, 2), QTime(10, 0));
    ecrit("velm2000", jour);
    ecrit("MAJver.exe", jour);
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("cd")));
    ecrit("cd/MAJver.exe", jour);
    ecrit("cd/velm2000.exe", jour);
    ASSERT_TRUE(QFile::copy(chemin("velm2000.dat"), chemin("cd/velm2000.dat")));
    stocke("BASE", "CHEMIN", chemin("cd"));
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_TRUE(lances.isEmpty());
}

TEST_F(SeanceDebut, AnUpdateToolWithoutAProgramFileDoesNothing) {
    ecrit("MAJver.exe", QDateTime::currentDateTime());
    ecrit("velm2000", QDateTime::currentDateTime());
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_TRUE(lances.isEmpty());
}

TEST_F(SeanceDebut, ThePartnersPictureIsBmpThenRleThenNone) {
    seance().demarre();
    EXPECT_TRUE(seance().fichierpartenaires().isEmpty());
    ecrit("partners.rle", QDateTime::currentDateTime());
    oublie();
    corpus.fermebase();
    seance().demarre();
    EXPECT_TRUE(seance().fichierpartenaires().endsWith(QStringLiteral("/partners.rle")));
    ecrit("partners.bmp", QDateTime::currentDateTime());
    oublie();
    corpus.fermebase();
    seance().demarre();
    EXPECT_TRUE(seance().fichierpartenaires().endsWith(QStringLiteral("/partners.bmp")));
}

TEST_F(SeanceDebut, TheRichTextLibraryIsRenamedOnlyWhenItIsMissing) {
    ecrit("riched32.tmp", QDateTime::currentDateTime());
    seance().demarre();
    EXPECT_TRUE(fileExists(chemin("riched32.dll")));
    EXPECT_FALSE(fileExists(chemin("riched32.tmp")));
    ecrit("riched32.tmp", QDateTime::currentDateTime());
    oublie();
    corpus.fermebase();
    seance().demarre();
    EXPECT_TRUE(fileExists(chemin("riched32.tmp")));
}

TEST_F(SeanceDebut, AMissingBaseAsksForItsPlaceAndMayBeGivenUp) {
    ASSERT_TRUE(QFile::remove(chemin("velm2000.dat")));
    EXPECT_EQ(seance().demarre(), Demarrage::Renonce);
    EXPECT_TRUE(ecrans.a(QStringLiteral("connexion")));
    EXPECT_LT(ecrans.journal.indexOf(QStringLiteral("ferme accueil")),
              ecrans.journal.indexOf(QStringLiteral("connexion")));
    EXPECT_FALSE(fileExists(chemin("velm2000.dat")));
    EXPECT_EQ(lu("BASE", "CHEMIN"), u"(absent)");
}

TEST_F(SeanceDebut, ABaseBesideTheProgramIsFoundWhereTheStoredPlaceIsGone) {
    // The portable folder has been moved, and the settings name where it was.
    for (const QString& ancien : {chemin("ancien"), QStringLiteral("/no/such/folder/"), chemin("velm2000.dat")}) {
        stocke("BASE", "CHEMIN", ancien);
        EXPECT_EQ(seance().demarre(), Demarrage::EnMarche) << ancien.toStdString();
        EXPECT_FALSE(ecrans.a(QStringLiteral("connexion")));
        EXPECT_EQ(lu("BASE", "CHEMIN"), dossier_.path() + u'/');
        EXPECT_EQ(corpus.chemin(), chemin("velm2000.dat"));
    }
}

TEST_F(SeanceDebut, TheStoredPlaceComesFirst) {
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("ailleurs")));
    ASSERT_TRUE(QFile::copy(chemin("velm2000.dat"), chemin("ailleurs/velm2000.dat")));
    stocke("BASE", "CHEMIN", chemin("ailleurs"));
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_EQ(corpus.chemin(), chemin("ailleurs/velm2000.dat"));
    EXPECT_EQ(lu("BASE", "CHEMIN"), chemin("ailleurs/"));
}

TEST_F(SeanceDebut, ADamagedBaseAtTheStoredPlaceIsNotPassedOver) {
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("ailleurs")));
    ecrit("ailleurs/velm2000.dat", QDateTime::currentDateTime());
    stocke("BASE", "CHEMIN", chemin("ailleurs"));
    EXPECT_EQ(seance().demarre(), Demarrage::Renonce);
    EXPECT_TRUE(ecrans.a(QStringLiteral("connexion")));
    EXPECT_EQ(lu("BASE", "CHEMIN"), chemin("ailleurs"));
}

TEST_F(SeanceDebut, WithoutABaseAnywhereTheStoredPlaceIsTheOneAskedAbout) {
    ASSERT_TRUE(QFile::remove(chemin("velm2000.dat")));
    stocke("BASE", "CHEMIN", chemin("ancien"));
    ecrans.surconnexion = [this] {
        EXPECT_EQ(seance().fichierbase(), chemin("ancien/velm2000.dat"));
        return false;
    };
    EXPECT_EQ(seance().demarre(), Demarrage::Renonce);
    EXPECT_TRUE(ecrans.a(QStringLiteral("connexion")));
    EXPECT_EQ(lu("BASE", "CHEMIN"), chemin("ancien"));
}

TEST_F(SeanceDebut, ABaseFoundByTheDialogGoesOnAndIsRemembered) {
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("ailleurs")));
    ASSERT_TRUE(QFile::rename(chemin("velm2000.dat"), chemin("ailleurs/velm2000.dat")));
    ecrans.surconnexion = [this] {
        seance().choisitrepertoiredebase(chemin("ailleurs"));
        return corpus.connecte(seance().fichierbase()) == OpenError::None;
    };
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_EQ(lu("BASE", "CHEMIN"), chemin("ailleurs"));
}

TEST_F(SeanceDebut, AMissingLanguageFileShowsNumbersAndTheStartGoesOn) {
    ASSERT_TRUE(QFile::remove(chemin("langues/RES2000.FR")));
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    // Twelve constant texts come first, then the steps of the start.
    ASSERT_GE(numeros.size(), 15);
    EXPECT_EQ(numeros.first(), u"1400");
    EXPECT_TRUE(numeros.contains(QStringLiteral("500")));
}

TEST_F(SeanceDebut, NoWindowComesBackWhenRestoringIsOff) {
    stocke("POSITIONFORME", "MDICHILD", QStringLiteral("-1XXXXXXXXXXXX"));
    stocke("POSITIONFORME", "MDICHILDCONTENU", QStringLiteral("CO000001").repeated(12));
    ecrans.surcharge = [this] { seance().restaurefenetres(); };
    seance().demarre();
    EXPECT_TRUE(ecrans.parmi(QStringLiteral("navigue")).isEmpty());
}
