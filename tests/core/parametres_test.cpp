#include "parametres_support.h"

using namespace velm;

TEST_F(ParametresTest, AnEmptyStoreWithoutMasterIniGivesTheBuiltInDefaults) {
    const Parametres p = premiers();
    for (const qint64 marge : {p.impression.margehaute, p.impression.margebasse, p.impression.margedroite,
                               p.impression.margegauche, p.impression.margeentete, p.impression.margepieddepage})
        EXPECT_EQ(marge, 567);
    EXPECT_EQ(p.impression.nopageentete, 0);
    EXPECT_TRUE(p.impression.textentete.isEmpty());
    for (const LigneImpression& ligne : {p.impression.lignenopageentete, p.impression.ligneentete,
                                         p.impression.lignenopagepied, p.impression.lignepied}) {
        EXPECT_EQ(ligne.cadrage, 2);
        EXPECT_EQ(ligne.police.fonte, u"Arial");
        EXPECT_EQ(ligne.police.taille, 10);
        EXPECT_EQ(ligne.police.gras, 0);
        EXPECT_EQ(ligne.police.italique, 0);
    }
    EXPECT_TRUE(p.impression.choiximprimante);
    EXPECT_TRUE(p.impression.ejectionautomatique);
    EXPECT_TRUE(p.impression.ligneseparatrice);
    EXPECT_EQ(p.unite, 0);
    EXPECT_EQ(p.multifenetre, 1);
    EXPECT_EQ(p.testconnect, 1);
    EXPECT_EQ(p.majcommande, u"UpdNet.exe");
    EXPECT_EQ(p.majchemin, programme() + QStringLiteral("/internet"));
    EXPECT_EQ(p.webaide, u"https://www.example.org/velmorante/aide");
    EXPECT_TRUE(p.outils.empty());

    const Preferences q = seconds();
    EXPECT_TRUE(q.menuediteur);
    EXPECT_EQ(q.barrecommande, 1);
    EXPECT_EQ(q.barreoutils, 4);
    EXPECT_EQ(q.barreecran, 3);
    EXPECT_EQ(q.commandesvisibles, 1);
    EXPECT_TRUE(q.barreetat);
    EXPECT_EQ(q.fond, 1);
    EXPECT_EQ(q.fondno, 0);
    EXPECT_EQ(q.fondcouleur, 12648447);
    EXPECT_EQ(q.checkquit, 0);
    EXPECT_EQ(q.restaurefen, 0);
    EXPECT_EQ(q.marquecouleur, 8388863);
    EXPECT_EQ(q.marquebold, 1);
    EXPECT_EQ(q.marqueitalic, 0);
    EXPECT_EQ(q.marqueauto, 1);
    EXPECT_EQ(q.combonombre, 0);
    EXPECT_EQ(q.largeurselection, 4305);
    EXPECT_EQ(q.aidechemin, programme());
    EXPECT_EQ(q.aidefichier, u"VELM2000.CHM");
    EXPECT_EQ(q.fichieraide, programme() + QStringLiteral("/VELM2000.CHM"));
    EXPECT_EQ(q.impressiondossier.margehaute, 567);
}

TEST_F(ParametresTest, ALineOfMasterIniReplacesTheBuiltInDefault) {
    maitre(QStringLiteral("[EDITEUR]\r\nPRINTERMARGEHAUTE=800\r\nTEXTENTETE=Publié\r\n[BARRE]\r\nOUTILS=2\r\n"));
    EXPECT_EQ(premiers().impression.margehaute, 800);
    EXPECT_EQ(premiers().impression.textentete, u"Publié");
    EXPECT_EQ(seconds().barreoutils, 2);
}

TEST_F(ParametresTest, AUsersValueBeatsMasterIni) {
    maitre(QStringLiteral("[EDITEUR]\r\nPRINTERMARGEHAUTE=800\r\n"));
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "900");
    EXPECT_EQ(premiers().impression.margehaute, 900);
}

TEST_F(ParametresTest, AKeyOutsideMasterIniIgnoresALineOfThatName) {
    maitre(QStringLiteral("[GENERALITES]\r\nFONDNO=3\r\nFONDCOULEUR=5\r\n[RECHERCHE]\r\nCOMBONOMBRE=2\r\n"
                          "[AIDE]\r\nCHEMIN=/ailleurs\r\n"));
    premiers();
    const Preferences q = seconds();
    EXPECT_EQ(q.fondno, 0);
    EXPECT_EQ(q.fondcouleur, 12648447);
    EXPECT_EQ(q.combonombre, 0);
    EXPECT_EQ(q.aidechemin, programme());
}

TEST_F(ParametresTest, MarqueBold0InMasterIniGivesMarksThatAreNotBold) {
    maitre(QStringLiteral("[RECHERCHE]\r\nMARQUEBOLD=0\r\n"));
    premiers();
    EXPECT_EQ(seconds().marquebold, 0);
}

TEST_F(ParametresTest, TheCommandBarIsReadUnderOneSpellingAndSavedUnderAnother) {
    stocke("BARRE", "COMMANDESVISISIBLES", "0");
    stocke("BARRE", "ECRANVISIBLE", "0");
    stocke("BARRE", "OUTILSVISIBLES", "0");
    const Preferences q = seconds();
    EXPECT_EQ(q.commandesvisibles, 1);
    EXPECT_EQ(q.ecranvisible, 0);
    EXPECT_EQ(q.outilsvisibles, 0);
}

TEST_F(ParametresTest, DossierVariantsHaveTheirOwnKeys) {
    stocke("EDITEUR", "PRINTERMARGEHAUTEDOSSIER", "111");
    stocke("EDITEUR", "NOPAGEPIEDFONTEDOSSIER", "Courier");
    stocke("EDITEUR", "CADRAGETEXTPIEDDOSSIER", "1");
    stocke("EDITEUR", "CHOIXIMPRIMANTEDOSSIER", "0");
    stocke("EDITEUR", "TEXTENTETEDOSSIER", "{DOSSIER}");
    const Preferences q = seconds();
    EXPECT_EQ(q.impressiondossier.margehaute, 111);
    EXPECT_EQ(q.impressiondossier.lignenopagepied.police.fonte, u"Courier");
    EXPECT_EQ(q.impressiondossier.lignepied.cadrage, 1);
    EXPECT_FALSE(q.impressiondossier.choiximprimante);
    EXPECT_EQ(q.impressiondossier.textentete, u"{DOSSIER}");
    EXPECT_EQ(premiers().impression.margehaute, 567);
}

TEST_F(ParametresTest, NoToolKeyIsReadWhenTheNumberOfToolsIsZero) {
    stocke("TOOLS", "COMMANDE1", "calc");
    EXPECT_TRUE(premiers().outils.empty());
}

TEST_F(ParametresTest, TwentyToolsAreReadAndTheTwentyFirstIsFatal) {
    stocke("TOOLS", "NOMBRE", "20");
    stocke("TOOLS", "COMMANDE20", "outil");
    stocke("TOOLS", "INFO-BULLE20", "bulle");
    const Parametres p = premiers();
    ASSERT_EQ(p.outils.size(), 20u);
    EXPECT_EQ(p.outils[19].commande, u"outil");
    EXPECT_EQ(p.outils[19].infobulle, u"bulle");
    stocke("TOOLS", "NOMBRE", "21");
    const test::GardeArret garde;
    EXPECT_THROW(premiers(), test::Arret);
}

TEST_F(ParametresTest, AToolThatDoesNotExistIsTakenFromTheApplicationsFolder) {
    QFile outil(dossier_.filePath(QStringLiteral("present")));
    ASSERT_TRUE(outil.open(QIODevice::WriteOnly));
    stocke("TOOLS", "NOMBRE", "3");
    stocke("TOOLS", "CHEMIN1", "monoutil.exe");
    stocke("TOOLS", "CHEMIN2", outil.fileName().toUtf8().constData());
    const Parametres p = premiers();
    EXPECT_EQ(p.outils[0].chemin, programme() + QStringLiteral("/monoutil.exe"));
    EXPECT_EQ(p.outils[1].chemin, outil.fileName());
    EXPECT_TRUE(p.outils[2].chemin.isEmpty());
}

TEST_F(ParametresTest, AStoredTextThatIsNoNumberIsFatal) {
    const test::GardeArret garde;
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "large");
    EXPECT_THROW(premiers(), test::Arret);
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "");
    EXPECT_THROW(premiers(), test::Arret);
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "99999999999");
    EXPECT_THROW(premiers(), test::Arret);
    for (const char* mot : {"nan", "inf", "-inf"}) {
        stocke("EDITEUR", "PRINTERMARGEHAUTE", mot);
        EXPECT_THROW(premiers(), test::Arret) << mot;
    }
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "567");
    stocke("EDITEUR", "LARGEURSELECTION", "nan");
    EXPECT_THROW(seconds(), test::Arret);
    stocke("EDITEUR", "CHOIXIMPRIMANTE", "peut-être");
    EXPECT_THROW(premiers(), test::Arret);
}

TEST_F(ParametresTest, AnEmptyLanguageExtensionBecomesFR) {
    EXPECT_EQ(premiers().extensionlangue, u"FR");
    stocke("LANGUE", "EXTENSION", "");
    EXPECT_EQ(premiers().extensionlangue, u"FR");
    EXPECT_TRUE(langue_.fichier().endsWith(QStringLiteral("langues/RES2000.FR")));
    stocke("LANGUE", "EXTENSION", "EN");
    EXPECT_EQ(premiers().extensionlangue, u"EN");
    EXPECT_TRUE(langue_.fichier().endsWith(QStringLiteral("langues/RES2000.EN")));
    stocke("LANGUE", "EXTENSION", "ENG");
    EXPECT_EQ(premiers().extensionlangue, u"FR") << "the tips too";
    EXPECT_TRUE(langue_.fichier().endsWith(QStringLiteral("langues/RES2000.FR")));
}

TEST_F(ParametresTest, Unit0Gives567TwipsUnit1Gives1440AnotherGives0) {
    EXPECT_EQ(premiers().uniteentwips, 567);
    stocke("EDITEUR", "UNITE", "1");
    EXPECT_EQ(premiers().uniteentwips, 1440);
    stocke("EDITEUR", "UNITE", "2");
    EXPECT_EQ(premiers().uniteentwips, 0);
    stocke("EDITEUR", "UNITE", "-1");
    EXPECT_EQ(premiers().uniteentwips, 0);
}

TEST_F(ParametresTest, TheWordSeparatorsStandInTheirExactOrder) {
    const QString attendu = QStringLiteral("\r\n ,.[]/»«“`@&¶§") + QChar(u'"') + QChar(u'\t') +
                            QStringLiteral("()'{}:!;?-+=<>_°%…|") + QChar(0xFF) + QChar(0xA0);
    const Parametres p = premiers();
    EXPECT_EQ(p.separateurs, attendu);
    EXPECT_EQ(p.separateurs.size(), 39);
    EXPECT_EQ(p.separateursjoker, attendu + u'*');
}

TEST_F(ParametresTest, DirectoriesEndInASeparatorAfterReading) {
    stocke("BASE", "CHEMIN", "/media/disque");
    stocke("EDITEUR", "CHEMIN", "/opt/editeur/");
    stocke("BASE", "APPLICATION", "");
    stocke("BASE", "DOSSIERS", "/home/moi");
    const Parametres p = premiers();
    EXPECT_EQ(p.repertoiredebase, u"/media/disque/");
    EXPECT_EQ(p.repertoireediteur, u"/opt/editeur/"); // one that is there already is not doubled
    EXPECT_TRUE(p.repertoireapplication.isEmpty());
    EXPECT_EQ(seconds().repertoiredossiers, u"/home/moi/");
}

TEST_F(ParametresTest, NumericDefaultsAreReadAsWholeNumbersFromMasterIni) {
    maitre(QStringLiteral("[EDITEUR]\r\nLARGEURSELECTION=12.7\r\nEJECTIONAUTOMATIQUE=True\r\nLIGNESEPARATRICE=-1\r\n"
                          "[MASTER]\r\nEDITEUR=0\r\n"));
    EXPECT_EQ(seconds().largeurselection, 12);
    const Parametres p = premiers();
    EXPECT_FALSE(p.impression.ejectionautomatique); // the integer reader gives 0 for a word
    EXPECT_TRUE(p.impression.ligneseparatrice);
    EXPECT_FALSE(seconds().menuediteur);
    EXPECT_EQ(reglages_.lireparametre(QStringLiteral("X"), QStringLiteral("Y"), true).toLongLong(), -1);
    EXPECT_EQ(reglages_.lireparametre(QStringLiteral("X"), QStringLiteral("Y"), 7).toLongLong(), 7);
}

TEST_F(ParametresTest, AnEmptyLineOfMasterIniGivesTheDefaultOfAText) {
    maitre(QStringLiteral("[WEB]\r\nMAJCOMMANDE=\r\n"));
    EXPECT_EQ(
        reglages_.lireparametre(QStringLiteral("WEB"), QStringLiteral("MAJCOMMANDE"), QStringLiteral("d")).toString(),
        u"d");
}

TEST_F(ParametresTest, BooleansAreReadAsWordsOrNumbers) {
    for (const char* vrai : {"True", "true", "1", "-1", "2"}) {
        stocke("BARRE", "ETAT", vrai);
        EXPECT_TRUE(seconds().barreetat) << vrai;
    }
    for (const char* faux : {"False", "0"}) {
        stocke("BARRE", "ETAT", faux);
        EXPECT_FALSE(seconds().barreetat) << faux;
    }
}

TEST_F(ParametresTest, AnEmptyHelpFolderIsTheProgramsFolder) {
    stocke("AIDE", "CHEMIN", "");
    EXPECT_EQ(seconds().aidechemin, programme());
}

TEST_F(ParametresTest, TheTreePicturesDependOnTheDepth) {
    const Parametres p = premiers();
    EXPECT_EQ(p.imagesfermees[1], u"collectionfermée");
    EXPECT_EQ(p.imagesouvertes[1], u"collectionouverte");
    EXPECT_EQ(p.imagesfermees[2], u"livrefermé");
    EXPECT_EQ(p.imagesouvertes[2], u"livreouvert");
    for (const std::size_t i : {std::size_t{0}, std::size_t{3}, std::size_t{10}}) {
        EXPECT_EQ(p.imagesfermees[i], u"chapitrefermé");
        EXPECT_EQ(p.imagesouvertes[i], u"chapitreouvert");
    }
}

TEST_F(ParametresTest, AFailedWriteIsSaidOnce) {
    QFile obstacle(dossier_.filePath(QStringLiteral("obstacle")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    ReglagesStore perdu(obstacle.fileName() + QStringLiteral("/reglages.ini"));
    Reglages reglages(perdu);
    std::vector<Obstacle> dits;
    reglages.surechec([&](const FileError& raison) { dits.push_back(raison.kind); });
    EXPECT_FALSE(reglages.savesetting(QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("1")));
    EXPECT_FALSE(reglages.savesetting(QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")));
    EXPECT_EQ(dits, std::vector{Obstacle::NoFolder});
    EXPECT_EQ(reglages.getsetting(QStringLiteral("A"), QStringLiteral("B")), u"1");
}
