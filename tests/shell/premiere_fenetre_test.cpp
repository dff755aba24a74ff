#include "core/schemas.h"
#include "platform/base/failure.h"
#include "shell/bureau.h"
#include "tests/shell/programme_support.h"
#include "tests/support/arret.h"
#include "tests/support/eventually.h"

#include <QMenuBar>

using namespace velm;
using PremiereFenetre = velm::test::ProgrammeTest;

TEST_F(PremiereFenetre, AReferenceOnTheCommandLineShowsItsDocument) {
    ASSERT_EQ(demarre(QStringLiteral("co1")), Demarrage::EnMarche);
    Textes* fenetre = programme->fenetre(0);
    ASSERT_NE(fenetre, nullptr);
    EXPECT_EQ(fenetre->referencecourante(), u"CO000001");
    EXPECT_EQ(fenetre->vue().control().text(), QStringLiteral("Voir l’article 2 et le site ou nous."));
    EXPECT_EQ(fenetre->vue().toPlainText(), QStringLiteral("Voir l’article 2 et le site ou nous."));
    EXPECT_EQ(fenetre->windowTitle(), u"Code de la consommation - Article premier");
    EXPECT_TRUE(fenetre->isVisible());
    EXPECT_TRUE(fenetre->lecture().menusactifs());
    EXPECT_TRUE(programme->ecran()->windowTitle().startsWith(mots(8)));
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(PremiereFenetre, AReferenceToAnAbsentDocumentOpensAWindowAndSaysSo) {
    ASSERT_EQ(demarre(QStringLiteral("CO999")), Demarrage::EnMarche);
    Textes* fenetre = programme->fenetre(0);
    ASSERT_NE(fenetre, nullptr);
    EXPECT_TRUE(fenetre->vue().control().text().isEmpty());
    EXPECT_EQ(fenetre->windowTitle(), u"Code de la consommation");
    EXPECT_TRUE(fenetre->lecture().menusactifs());
    EXPECT_EQ(dialogues.texts(), QStringList(mots(9334, {QStringLiteral("CO000999")})));
}

TEST_F(PremiereFenetre, ALinkOpensItsTarget) {
    demarre(QStringLiteral("CO1"));
    Textes* fenetre = programme->fenetre(0);
    ASSERT_NE(fenetre, nullptr);
    clique(*fenetre, 7);
    EXPECT_EQ(fenetre->referencecourante(), u"CO000002");
    EXPECT_EQ(fenetre->vue().control().text(), u"Deux.");
    EXPECT_EQ(fenetre->vue().control().backColor(), 0xF0FFFF);
}

TEST_F(PremiereFenetre, WebAndMailLinksGoToTheUsersPrograms) {
    demarre(QStringLiteral("CO1"));
    Textes* fenetre = programme->fenetre(0);
    ASSERT_NE(fenetre, nullptr);
    clique(*fenetre, fenetre->vue().control().text().indexOf(QStringLiteral("le site")) + 2);
    EXPECT_EQ(navigateur.urls, QStringList{QStringLiteral("http://https://example.org")});
    clique(*fenetre, fenetre->vue().control().text().indexOf(QStringLiteral("nous")) + 1);
    EXPECT_EQ(navigateur.mails, QStringList{QStringLiteral("a@example.org")});
    clique(*fenetre, 1);
    EXPECT_EQ(fenetre->referencecourante(), u"CO000001");
}

TEST_F(PremiereFenetre, DecliningTheQuestionKeepsTheFrameOpen) {
    demarre(QStringLiteral("CO1"));
    dialogues.answers = {Bouton::Non};
    EXPECT_FALSE(programme->ecran()->close());
    EXPECT_TRUE(programme->ecran()->isVisible());
    EXPECT_NE(programme->fenetre(0), nullptr);
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"(absent)");
}

TEST_F(PremiereFenetre, AcceptingItClosesTheFrameAndLeavesTheSettings) {
    demarre(QStringLiteral("JP7"));
    dialogues.answers = {Bouton::Oui};
    EXPECT_TRUE(programme->ecran()->close());
    EVENTUALLY(!programme->ecran()->isVisible());
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"02  X         ");
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILDCONTENU"),
              (QString(16, u' ') + QStringLiteral("JP000007")).leftJustified(96));
    EXPECT_EQ(reglage("POSITIONMDI", "WINDOWSSTATE"), u"2");
    EXPECT_EQ(reglage("BASE", "CHEMIN"), dossier.path() + u'/');
    EXPECT_FALSE(programme->corpus().connecte());
}

TEST_F(PremiereFenetre, TheQuitEntryAsksOnce) {
    demarre(QStringLiteral("CO1"));
    dialogues.answers = {Bouton::Oui};
    auto* entree = programme->ecran()->menuBar()->findChild<QAction*>(QStringLiteral("mfichier3"));
    if (!entree)
        entree = programme->ecran()->findChild<QAction*>(QStringLiteral("mfichier3"));
    ASSERT_NE(entree, nullptr);
    entree->trigger();
    EXPECT_FALSE(programme->ecran()->isVisible());
    EXPECT_EQ(dialogues.texts(), QStringList{questiondefin()});
}

TEST_F(PremiereFenetre, WindowsOfTheLastRunComeBackWhenAsked) {
    {
        ReglagesStore reglages(dossier.filePath(QStringLiteral("reglages.ini")));
        reglages.save(u"GENERALITES", u"RESTAUREFEN", QStringLiteral("1"));
        reglages.save(u"POSITIONFORME", u"MDICHILD", QStringLiteral("00X X         "));
        reglages.save(u"POSITIONFORME", u"MDICHILDCONTENU",
                      (QStringLiteral("CO000002        JP000007")).leftJustified(96));
    }
    demarre(QString());
    ASSERT_NE(programme->fenetre(0), nullptr);
    ASSERT_NE(programme->fenetre(2), nullptr);
    EXPECT_EQ(programme->fenetre(2)->referencecourante(), u"JP000007");
    EXPECT_EQ(programme->bureau().active(), programme->fenetre(0));
}

TEST_F(PremiereFenetre, SettingsThatCannotBeWrittenAreSaidOnceAndTheProgramGoesOn) {
    ASSERT_TRUE(QFile::remove(dossier.filePath(QStringLiteral("reglages.ini"))));
    ASSERT_TRUE(QDir(dossier.path()).mkpath(QStringLiteral("reglages.ini"))); // a folder stands in the file's place
    EXPECT_EQ(demarre(QStringLiteral("CO1")), Demarrage::EnMarche);
    EXPECT_EQ(dialogues.texts(),
              QStringList{mots(9402, {dossier.filePath(QStringLiteral("reglages.ini")), mots(9534)})});
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
}

TEST_F(PremiereFenetre, AMissingTableFailsWhereItIsUsedWithOneMessage) {
    {
        const auto base =
            Database::open(dossier.filePath(QStringLiteral("velm2000.dat")), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(QStringLiteral("DROP TABLE \"données\"")));
    }
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    RuntimeFailure erreur{};
    const auto avant = setRuntimeErrorHandler([&](const RuntimeFailure& celle) {
        erreur = celle;
        throw test::Arret("la table manque");
    });
    EXPECT_THROW(programme->ouvre(decoupecle(u"CO000001")), test::Arret);
    setRuntimeErrorHandler(avant);
    programme->erreurfatale(erreur);
    EXPECT_EQ(dialogues.texts(), QStringList{mots(9401, {mots(9407, {QStringLiteral("données")})})});
}

TEST_F(PremiereFenetre, AFatalErrorIsSaidInOneBoxAndClosesTheBase) {
    demarre(QStringLiteral("CO1"));
    programme->erreurfatale({Failure::MissingTable, {QStringLiteral("dico")}});
    ASSERT_EQ(dialogues.messages.size(), 1u);
    EXPECT_TRUE(dialogues.messages.front().texte.contains(QStringLiteral("dico")));
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Stop);
    EXPECT_FALSE(programme->corpus().connecte());
}

TEST_F(PremiereFenetre, StoredPlacesOffAnyScreenAreMovedOntoOne) {
    {
        ReglagesStore reglages(dossier.filePath(QStringLiteral("reglages.ini")));
        reglages.save(u"POSITIONMDI", u"WINDOWSSTATE", QStringLiteral("0"));
        reglages.save(u"POSITIONMDI", u"WINDOWSLEFT", QStringLiteral("9000000"));
        reglages.save(u"POSITIONMDI", u"WINDOWSTOP", QStringLiteral("-9000000"));
        reglages.save(u"POSITIONMDI", u"WINDOWSWIDTH", QStringLiteral("-5"));
    }
    demarre(QString());
    const QRect place = programme->ecran()->geometry();
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(place));
    EXPECT_GE(place.width(), 320);
}

TEST_F(PremiereFenetre, HelpOpensTheFileInEitherSpelling) {
    demarre(QString());
    programme->ouvreaide();
    EXPECT_TRUE(navigateur.files.isEmpty());
    EXPECT_EQ(dialogues.texts(), QStringList{mots(7030)});
    QFile aide(dossier.filePath(QStringLiteral("Velm2000.chm")));
    ASSERT_TRUE(aide.open(QIODevice::WriteOnly));
    programme->ouvreaide();
    EXPECT_EQ(navigateur.files, QStringList{aide.fileName()});
}
