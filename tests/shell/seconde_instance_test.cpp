// A second start while the program runs: the first comes to the front, and nothing else happens.
#include "tests/shell/programme_support.h"
#include "tests/support/eventually.h"

#include <QProcess>

using namespace velm;

using SecondeInstance = test::ProgrammeTest;

TEST_F(SecondeInstance, ShowsTheFirstAndDropsItsCommandLine) {
    ASSERT_EQ(demarre(QStringLiteral("CO1")), Demarrage::EnMarche);
    programme->ecran()->showMinimized();
    ASSERT_TRUE(programme->ecran()->isMinimized());

    Programme seconde(
        optionsprogramme(QStringLiteral("CO2")),
        MondeExterieur{dialogues, navigateur, processus, sablier, pressepapiers, courrier, imprimante, lecteurs});
    EXPECT_EQ(seconde.demarre(), Demarrage::AutreInstance);
    EXPECT_EQ(seconde.ecran(), nullptr);
    EXPECT_FALSE(seconde.corpus().connecte());

    EVENTUALLY(!programme->ecran()->isMinimized());
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(SecondeInstance, AFrameMadeAnIconComesBackAsLargeAsItWas) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    ASSERT_TRUE(programme->ecran()->isMaximized());
    programme->ecran()->setWindowState(Qt::WindowMaximized | Qt::WindowMinimized);
    ASSERT_TRUE(programme->ecran()->isMinimized());
    Programme seconde(optionsprogramme(QString()), MondeExterieur{dialogues, navigateur, processus, sablier,
                                                                  pressepapiers, courrier, imprimante, lecteurs});
    EXPECT_EQ(seconde.demarre(), Demarrage::AutreInstance);
    EVENTUALLY(!programme->ecran()->isMinimized());
    EXPECT_TRUE(programme->ecran()->isMaximized());
}

TEST_F(SecondeInstance, TheHandleIsWrittenAtTheStartAndOutlivesTheProgram) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    const QString handle = reglage("HWND", "HWnd");
    EXPECT_EQ(handle, QString::number(programme->ecran()->winId()));
    dialogues.answers = {Bouton::Oui};
    EXPECT_TRUE(programme->quitteprogramme());
    programme.reset();
    EXPECT_EQ(reglage("HWND", "HWnd"), handle);
    // A handle that names nothing any more costs nothing: the lock is free.
    EXPECT_EQ(demarre(QString()), Demarrage::EnMarche);
}

TEST_F(SecondeInstance, AKilledProgramLeavesNothingBehindThatKeepsTheNextFromStarting) {
    constexpr int milliseconds = 60'000;
    const QString reglages = dossier.filePath(QStringLiteral("VELMORANTE2000/VELMORANTE2000.ini"));
    {
        ReglagesStore magasin(reglages);
        magasin.save(u"BASE", u"CHEMIN", dossier.path());
        magasin.save(u"OPTIONS", u"TIPS", QStringLiteral("0"));
    }
    QProcess premiere;
    QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
    for (const char* nom : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        environnement.insert(QString::fromLatin1(nom), dossier.path());
    environnement.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    premiere.setProcessEnvironment(environnement);
    premiere.start(QStringLiteral(VELM_BINARY_DIR "/bin/velm2000"), {QStringLiteral("CO1")});
    ASSERT_TRUE(premiere.waitForStarted(milliseconds));
    // The frame has its handle written down when it stands.
    const auto handle = [&] { return ReglagesStore(reglages).get(u"HWND", u"HWnd"); };
    EVENTUALLY_WITHIN(milliseconds, !handle().isEmpty());

    OptionsProgramme suivante = optionsprogramme(QStringLiteral("JP7"));
    suivante.fichierreglages = reglages;
    const MondeExterieur monde{dialogues,     navigateur, processus,  sablier,
                               pressepapiers, courrier,   imprimante, lecteurs};
    EXPECT_EQ(Programme(suivante, monde).demarre(), Demarrage::AutreInstance) << "the first one runs";
    const QString avant = handle();
    premiere.kill();
    ASSERT_TRUE(premiere.waitForFinished(milliseconds));
    EXPECT_EQ(premiere.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(handle(), avant) << "nobody was there to take it away";

    programme = std::make_unique<Programme>(suivante, monde);
    EXPECT_EQ(programme->demarre(), Demarrage::EnMarche);
    ASSERT_NE(programme->fenetre(2), nullptr);
    EXPECT_EQ(programme->fenetre(2)->referencecourante(), u"JP000007");
    EXPECT_EQ(handle(), QString::number(programme->ecran()->winId()));
    EXPECT_EQ(dialogues.texts(), QStringList());
}
