// A second start while the program runs: the first comes to the front, and nothing else happens.
#include "tests/gui/programme_support.h"
#include "tests/support/eventually.h"

using namespace velm;

namespace {

class SecondeInstance : public test::ProgrammeTest {
protected:
    OptionsProgramme options(const QString& ligne) const {
        OptionsProgramme o;
        o.dossierprogramme = dossier.path();
        o.fichierprogramme = dossier.filePath(QStringLiteral("velm2000"));
        o.lignedecommande = ligne;
        o.fichierreglages = dossier.filePath(QStringLiteral("reglages.ini"));
        o.dossierinstance = dossier.path();
        o.dossierdonnees = dossier.filePath(QStringLiteral("donnees"));
        return o;
    }
};

} // namespace

TEST_F(SecondeInstance, ShowsTheFirstAndDropsItsCommandLine) {
    ASSERT_EQ(demarre(QStringLiteral("CO1")), Demarrage::EnMarche);
    programme->ecran()->showMinimized();
    ASSERT_TRUE(programme->ecran()->isMinimized());

    Programme seconde(options(QStringLiteral("CO2")), MondeExterieur{dialogues, navigateur, processus, sablier,
                                                                     pressepapiers, courrier, imprimante, lecteurs});
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
    Programme seconde(options(QString()), MondeExterieur{dialogues, navigateur, processus, sablier, pressepapiers,
                                                         courrier, imprimante, lecteurs});
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

TEST_F(SecondeInstance, ACrashLeavesNothingBehindThatKeepsTheNextFromStarting) {
    {
        ReglagesStore reglages(dossier.filePath(QStringLiteral("reglages.ini")));
        reglages.save(u"HWND", u"HWnd", QStringLiteral("123456"));
    }
    EXPECT_EQ(demarre(QStringLiteral("JP7")), Demarrage::EnMarche);
    EXPECT_NE(programme->fenetre(2), nullptr);
}
