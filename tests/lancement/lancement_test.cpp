// What the main function has around the program, seen from outside the process.
#include "core/langue.h"
#include "platform/engine/recordset.h"
#include "platform/system/settings.h"
#include "tests/lancement/banc.h"

#include <csignal>

namespace velm::test {

namespace {

class Lancement : public BancDeLancement {
protected:
    /// A run-time error in the running program: one box that says this, and the end.
    void finitsur(const QString& ligne, const QString& faits, const QString& raison) {
        const Essai essai = lance(ligne, {}, faits + u",quitte"_s, true);
        ASSERT_EQ(essai.boites().size(), 1) << essai.sortie.constData();
        const QJsonObject boite = essai.boites().first();
        EXPECT_EQ(boite[u"titre"_s].toString(), texte(9400));
        EXPECT_TRUE(boite[u"texte"_s].toString().contains(raison)) << boite[u"texte"_s].toString().toStdString();
        EXPECT_EQ(essai.code, 1);
        EXPECT_EQ(essai.erreurs.toStdString(), "");
        EXPECT_TRUE(saine());
    }
    /// Nothing is left half done: the next start and its end are ordinary.
    bool saine() {
        ReglagesStore(reglages()).save(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        return ReglagesStore(reglages()).lastError().ok() &&
               QDir(dossier.path()).entryList({u"*.lock"_s, u"reglages.ini.*"_s}, QDir::Files) ==
                   QStringList(u"velm2000.lock"_s);
    }
};

} // namespace

// ---- a setting that cannot be used

TEST_F(Lancement, ASettingThatKeepsItFromStartingIsAskedAboutAndARefusalEndsIt) {
    const std::array<QString, 3> reglages_fautifs[] = {{u"TOOLS"_s, u"NOMBRE"_s, u"21"_s},
                                                       {u"GENERALITES"_s, u"CHECKQUIT"_s, u"abc"_s},
                                                       {u"EDITEUR"_s, u"PRINTERMARGEHAUTE"_s, u"large"_s},
                                                       {u"EDITEUR"_s, u"STYLE00-EXPOSANT"_s, u"40000"_s},
                                                       {u"POSITIONMDI"_s, u"WINDOWSLEFT"_s, u"gauche"_s},
                                                       {u"OPTIONS"_s, u"TIPS"_s, u"oui"_s}};
    for (const auto& [section, cle, valeur] : reglages_fautifs) {
        videreglages();
        regle(section, cle, valeur);
        const Essai essai = lance({}, u"non"_s, {});
        ASSERT_EQ(essai.boites().size(), 1) << cle.toStdString() << essai.sortie.constData();
        const QString boite = essai.boites().first()[u"texte"_s].toString();
        for (const QString& partie : {reglages(), section, cle, valeur})
            EXPECT_TRUE(boite.contains(u"«\u00A0"_s + partie + u"\u00A0»"_s)) << boite.toStdString();
        EXPECT_EQ(essai.code, 1) << cle.toStdString();
        EXPECT_EQ(essai.erreurs.toStdString(), "");
        EXPECT_EQ(reglage(section, cle), valeur);
    }
}

TEST_F(Lancement, WithItsDefaultTheProgramStartsAndTheSettingStaysInItsFile) {
    regle(u"TOOLS"_s, u"NOMBRE"_s, u"21"_s);
    regle(u"GENERALITES"_s, u"CHECKQUIT"_s, u"abc"_s);
    regle(u"EDITEUR"_s, u"PRINTERMARGEHAUTE"_s, u"large"_s);
    regle(u"EDITEUR"_s, u"LARGEURSELECTION"_s, u"large"_s);
    // The second question offers to answer for all others; then the question of an ordinary end.
    const Essai essai = lance({}, u"oui,oui+,oui"_s, u"quitte"_s);
    EXPECT_EQ(essai.boites().size(), 3) << essai.sortie.constData();
    EXPECT_EQ(essai.boites().value(1)[u"option"_s].toString(), texte(9516));
    EXPECT_EQ(essai.boites().value(2)[u"titre"_s].toString(), texte(401));
    EXPECT_EQ(essai.code, 0);
    EXPECT_EQ(essai.erreurs.toStdString(), "");
    EXPECT_EQ(reglage(u"TOOLS"_s, u"NOMBRE"_s), u"21");
    EXPECT_EQ(reglage(u"GENERALITES"_s, u"CHECKQUIT"_s), u"abc");
    EXPECT_EQ(reglage(u"EDITEUR"_s, u"PRINTERMARGEHAUTE"_s), u"large");
    EXPECT_EQ(reglage(u"EDITEUR"_s, u"LARGEURSELECTION"_s), u"large");
    EXPECT_EQ(reglage(u"POSITIONMDI"_s, u"WINDOWSSTATE"_s), u"2") << "an ordinary end";
}

TEST_F(Lancement, ThePublishersLineIsNamedWithItsFile) {
    ecrit(u"master.ini"_s, "[TOOLS]\r\nNOMBRE=21\r\n");
    const Essai essai = lance({}, u"non"_s, {});
    EXPECT_TRUE(essai.boites().value(0)[u"texte"_s].toString().contains(dossier.filePath(u"master.ini"_s)));
    EXPECT_EQ(essai.code, 1);
}

TEST_F(Lancement, ASettingThatFailsAfterTheStartEndsItAndTellsWhatToMend) {
    finitsur({}, u"astucefautive"_s, texte(9517));
    EXPECT_EQ(reglage(u"OPTIONS"_s, u"TIPS"_s), u"jamais");
}

// ---- the base

TEST_F(Lancement, AMissingTableEndsItInOneBox) {
    const std::pair<QString, QString> tables[] = {{u"liens"_s, u"navigue=TACO000002,liens=CO000002"_s},
                                                  {u"données"_s, u"navigue=TACO000002"_s},
                                                  {u"arborescences"_s, u"navigue=TACO000002"_s},
                                                  {u"dico"_s, u"mots=consommateur"_s},
                                                  {u"motclés"_s, u"mots=consommateur"_s}};
    for (const auto& [table, fait] : tables) {
        SCOPED_TRACE(table.toStdString());
        remetbase();
        regle(u"POSITIONFORME"_s, u"WINDOWSARBRE0"_s, u"1"_s); // the tree is loaded with the window
        ordonne(u"DROP TABLE "_s + table);
        finitsur({}, fait, u"«\u00A0"_s + table + u"\u00A0»"_s);
    }
}

TEST_F(Lancement, AMissingTableEndsItAtTheStartAsWell) {
    ordonne(u"DROP TABLE données"_s);
    finitsur(u"CO2"_s, {}, u"«\u00A0données\u00A0»"_s);
}

TEST_F(Lancement, ADamagedPageEndsItInOneBox) {
    abimebase();
    finitsur({}, u"navigue=TACO000002"_s, texte(9408).section(u'%', 0, 0));
}

TEST_F(Lancement, TheTwentyFirstWordEndsItInOneBox) {
    const QString mots = motsdelabase(21).join(u' ');
    finitsur({}, u"mots="_s + mots, remplace(texte(9405), {u"21"_s, u"20"_s}));
}

TEST_F(Lancement, WhatFailsWhileTheBoxStandsLeavesItStanding) {
    const Essai essai = lance({}, {}, u"echecenboite"_s);
    ASSERT_EQ(essai.boites().size(), 1) << essai.sortie.constData();
    EXPECT_TRUE(essai.boites().first()[u"texte"_s].toString().contains(u"premiere"));
    EXPECT_TRUE(essai.sortie.contains(R"({"visible":true})")) << "it was taken away before its answer";
    EXPECT_EQ(essai.code, 1);
    EXPECT_EQ(essai.erreurs.toStdString(), "");
}

// ---- no memory

TEST_F(Lancement, AnEventWithoutMemoryIsOneMessageAndTheRunGoesOn) {
    const Essai essai = lance({}, {}, u"memoire,navigue=TACO000002,quitte"_s, true);
    EXPECT_EQ(essai.textes(), QStringList{texte(9519)}) << essai.sortie.constData();
    EXPECT_EQ(essai.code, 0);
    EXPECT_EQ(essai.erreurs.toStdString(), "");
    EXPECT_EQ(reglage(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002") << "the run went on";
}

TEST_F(Lancement, WhatLacksMemoryWhileThatIsSaidIsNotSaidAgain) {
    // The empty deeds let a second box have its turn.
    const Essai essai = lance({}, {}, u"memoireenboite,memoire,"_s + u"rien,"_s.repeated(20) + u"quitte"_s, true);
    EXPECT_EQ(essai.textes(), QStringList{texte(9519)}) << essai.sortie.constData();
    EXPECT_EQ(essai.code, 0);
}

// ---- an end that nobody is asked about

TEST_F(Lancement, EachSignalWritesWhatAnOrdinaryEndWrites) {
    for (const int numero : {SIGTERM, SIGHUP, SIGINT}) {
        SCOPED_TRACE(numero);
        videreglages();
        const Essai essai = lancepuis(u"navigue=TACO000002"_s, [numero](qint64 pid) { ::kill(pid_t(pid), numero); });
        EXPECT_TRUE(essai.boites().isEmpty()) << essai.sortie.constData();
        EXPECT_EQ(essai.code, 0);
        EXPECT_EQ(essai.erreurs.toStdString(), "");
        EXPECT_EQ(reglage(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002");
        EXPECT_EQ(reglage(u"POSITIONFORME"_s, u"MDICHILDCONTENU"_s).left(8), u"CO000002");
        EXPECT_TRUE(ReglagesStore(reglages()).contains(u"POSITIONFORME", u"WINDOWSSTATE0")) << "windows wrote theirs";
        EXPECT_TRUE(ReglagesStore(reglages()).contains(u"POSITIONMDI", u"WINDOWSHEIGHT"));
        EXPECT_TRUE(saine());
    }
}

TEST_F(Lancement, ASignalEndsAProgramThatStandsOnAQuestion) {
    const Essai essai = lancepuis(u"navigue=TACO000002,question"_s, [](qint64 pid) { ::kill(pid_t(pid), SIGTERM); });
    EXPECT_EQ(essai.code, 0);
    EXPECT_EQ(reglage(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002");
    EXPECT_FALSE(essai.sortie.contains("rendu")) << "the question would have gone on";
}

TEST_F(Lancement, ASignalDuringTheStartIsHeardAfterIt) {
    const Essai essai = lancepuis(
        {}, [](qint64 pid) { ::kill(pid_t(pid), SIGTERM); }, u"HWnd"_s);
    EXPECT_EQ(essai.code, 0);
    EXPECT_TRUE(ReglagesStore(reglages()).contains(u"POSITIONMDI", u"WINDOWSHEIGHT"));
}

TEST_F(Lancement, ASignalHeardBeforeTheStartIsOverEndsTheProgramAfterIt) {
    regle(u"TOOLS"_s, u"NOMBRE"_s, u"21"_s);
    const Essai essai = lance({}, u"oui!"_s, u"quitte"_s, true);
    EXPECT_EQ(essai.boites().size(), 1) << essai.sortie.constData();
    EXPECT_FALSE(essai.sortie.contains("fait")) << "the run went on: " << essai.sortie.constData();
    EXPECT_EQ(essai.code, 0);
    EXPECT_EQ(essai.erreurs.toStdString(), "");
    EXPECT_TRUE(ReglagesStore(reglages()).contains(u"POSITIONMDI", u"WINDOWSHEIGHT"));
    EXPECT_EQ(reglage(u"TOOLS"_s, u"NOMBRE"_s), u"21");
}

TEST_F(Lancement, TheDesktopsWishToEndIsNoQuestion) {
    const Essai essai = lance({}, {}, u"navigue=TACO000002,finbureau"_s);
    EXPECT_TRUE(essai.boites().isEmpty()) << essai.sortie.constData();
    EXPECT_EQ(essai.code, 0);
    EXPECT_EQ(reglage(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002");
}

TEST_F(Lancement, TheEndOfTheSessionIsWrittenAndMayBeCalledOff) {
    for (const QString& demande : {u"session"_s, u"etat"_s}) {
        SCOPED_TRACE(demande.toStdString());
        videreglages();
        // The process dies right after; what it wrote when it was asked is there.
        const Essai essai =
            lancepuis(u"navigue=TACO000002,"_s + demande, [](qint64 pid) { ::kill(pid_t(pid), SIGKILL); });
        EXPECT_TRUE(essai.boites().isEmpty());
        EXPECT_EQ(reglage(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002");
        EXPECT_EQ(reglage(u"POSITIONFORME"_s, u"MDICHILDCONTENU"_s).left(8), u"CO000002");
        EXPECT_TRUE(ReglagesStore(reglages()).contains(u"POSITIONFORME", u"WINDOWSSTATE0"));
        EXPECT_TRUE(ReglagesStore(reglages()).contains(u"POSITIONMDI", u"WINDOWSHEIGHT"));
    }
    const Essai essai = lance({}, u"oui"_s, u"session,navigue=TAJP000001,quitte"_s);
    EXPECT_EQ(essai.boites().size(), 1) << "it went on, to an end that asks";
    EXPECT_EQ(essai.code, 0);
    EXPECT_EQ(reglage(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"JP000001");
}

} // namespace velm::test
