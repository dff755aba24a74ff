#include "platform/system/files.h"
#include "search/dialoguescriteres.h"
#include "tests/search/recherche_support.h"
#include "tests/support/full_disk.h"
#include "tests/support/odd_files.h"
#include "tests/support/outside_script.h"

#include <QDir>
#include <QFile>

using namespace velm;
using namespace velm::test;

namespace {

class DialoguesCriteresTest : public BaseRecherche {
protected:
    static FichierCriteres fichier(int rangees = 1) {
        FichierCriteres f;
        f.texterapide = u"rapide"_s;
        f.coldata = {0, 1, 2, 3, 5, 4};
        for (int i = 1; i <= rangees; ++i)
            f.lignes.push_back(
                {{u"Titre"_s, u"a"_s, u"b"_s, u"c"_s, u"CO"_s, sixchiffres(i)}, u"CO"_s + sixchiffres(i)});
        return f;
    }
    QString ecrit(const QString& nom, const QByteArray& octets) const {
        const QString chemin = dossier.filePath(nom);
        EXPECT_EQ(writeWhole(chemin, octets).kind, Obstacle::None);
        return chemin;
    }
    static QByteArray lus(const QString& chemin) {
        QFile f(chemin);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    std::vector<Message>& messages() { return dialogues.messages; }

    CourrierScript courrier;
    FichiersCriteres fichiers{dialogues, sablier, courrier,
                              [](Texte lequel) { return lequel == Texte{9470} ? u"écrit: %1, %2"_s : textes(lequel); }};
};

} // namespace

TEST_F(DialoguesCriteresTest, WhatIsSavedOpensAgain) {
    const QString chemin = dossier.filePath(u"recherche.cv2"_s);
    dialogues.saveFiles = {chemin};
    ASSERT_TRUE(fichiers.sauvercriteres(fichier(3)));
    dialogues.openFiles = {chemin};
    EXPECT_EQ(fichiers.ouvrircriteres(), fichier(3));
    EXPECT_TRUE(messages().empty());
    for (const ChoixFichier& choix : dialogues.fileQuestions)
        EXPECT_EQ(choix.filtre, u"t2612(*.cv2)|*.cv2");
    ASSERT_EQ(dialogues.fileQuestions.size(), 2U);
    EXPECT_EQ(dialogues.fileQuestions.front().titre, u"t9778");
    EXPECT_EQ(dialogues.fileQuestions.back().titre, u"t9779");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(DialoguesCriteresTest, AnExistingFileAsksBeforeItIsReplaced) {
    const QString chemin = ecrit(u"vieux.cv2"_s, "vieux");
    dialogues.saveFiles = {chemin, chemin};
    dialogues.answers = {Bouton::Non, Bouton::Oui};
    EXPECT_FALSE(fichiers.sauvercriteres(fichier()));
    EXPECT_EQ(lus(chemin), "vieux");
    EXPECT_TRUE(fichiers.sauvercriteres(fichier()));
    EXPECT_EQ(lus(chemin), ecritcriteres(fichier()));
    ASSERT_EQ(messages().size(), 2U);
    EXPECT_EQ(messages().front().texte, u"t2620 "_s + chemin + u" t2621"_s);
    EXPECT_EQ(messages().front().titre, u"t2622");
    EXPECT_EQ(messages().front().icone, Icone::Aucune);
    EXPECT_EQ(messages().front().boutons, Bouton::Oui | Bouton::Non);
    // The question is put once: the file dialog leaves it out.
    EXPECT_FALSE(dialogues.fileQuestions.front().demanderemplacement);
}

TEST_F(DialoguesCriteresTest, TheNameProposedIsMadeOfTheWordsSearched) {
    FichierCriteres f = fichier();
    dialogues.saveFiles = {std::nullopt, std::nullopt};
    f.texterapide = u"garantie : vice/caché"_s;
    EXPECT_FALSE(fichiers.sauvercriteres(f));
    f.texterapide = u"???"_s;
    EXPECT_FALSE(fichiers.sauvercriteres(f));
    ASSERT_EQ(dialogues.fileQuestions.size(), 2U);
    EXPECT_EQ(dialogues.fileQuestions.front().nom, u"garantie vice caché.cv2");
    EXPECT_EQ(dialogues.fileQuestions.back().nom, u"t9780.cv2");
}

TEST_F(DialoguesCriteresTest, AnEmptyFileIsReplacedWithoutAQuestion) {
    const QString chemin = ecrit(u"vide.cv2"_s, "");
    dialogues.saveFiles = {chemin};
    EXPECT_TRUE(fichiers.sauvercriteres(fichier()));
    EXPECT_TRUE(messages().empty());
}

TEST_F(DialoguesCriteresTest, CancellingWritesNothing) {
    dialogues.saveFiles = {std::nullopt};
    EXPECT_FALSE(fichiers.sauvercriteres(fichier()));
    dialogues.openFiles = {std::nullopt};
    EXPECT_FALSE(fichiers.ouvrircriteres());
    EXPECT_TRUE(messages().empty());
    EXPECT_TRUE(QDir(dossier.path()).isEmpty());
}

TEST_F(DialoguesCriteresTest, AFileIsWrittenWholeOrNotAtAll) {
    const QString chemin = ecrit(u"vieux.cv2"_s, "vieux");
    dialogues.saveFiles = {chemin};
    dialogues.answers = {Bouton::Oui};
    dialogues.acceptPlainBoxes = true;
    {
        const FullDisk disque(100);
        dialogues.answers = {Bouton::Oui, Bouton::Ok};
        EXPECT_FALSE(fichiers.sauvercriteres(fichier(50)));
    }
    EXPECT_EQ(lus(chemin), "vieux");
    EXPECT_EQ(QDir(dossier.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"vieux.cv2"_s));
    ASSERT_EQ(messages().size(), 2U);
    EXPECT_EQ(messages().back().texte, u"écrit: %1, t9536"_s.arg(chemin));
    EXPECT_EQ(messages().back().icone, Icone::Stop);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(DialoguesCriteresTest, AWrongExtensionAsksAndTheUserMayOpenIt) {
    const QString chemin = ecrit(u"recherche.txt"_s, ecritcriteres(fichier()));
    dialogues.openFiles = {chemin, chemin};
    dialogues.answers = {Bouton::Non, Bouton::Oui};
    EXPECT_FALSE(fichiers.ouvrircriteres());
    EXPECT_EQ(fichiers.ouvrircriteres(), fichier());
    ASSERT_EQ(messages().size(), 2U);
    EXPECT_EQ(messages().front().texte, u"t1361");
    EXPECT_EQ(messages().front().titre, u"t2615");
    EXPECT_EQ(messages().front().boutons, Bouton::Oui | Bouton::Non);
}

TEST_F(DialoguesCriteresTest, TheExtensionMayStandInAnyLettersAndIsNotAskedOfANamedFile) {
    dialogues.openFiles = {ecrit(u"a.CV2"_s, ecritcriteres(fichier())), ecrit(u"b.cV2"_s, ecritcriteres(fichier()))};
    EXPECT_TRUE(fichiers.ouvrircriteres());
    EXPECT_TRUE(fichiers.ouvrircriteres());
    EXPECT_TRUE(fichiers.ouvrircriteres(ecrit(u"c.txt"_s, ecritcriteres(fichier()))));
    EXPECT_TRUE(messages().empty());
}

TEST_F(DialoguesCriteresTest, AMissingFileNamedAtStartIsReported) {
    for (const QString& nom : {dossier.filePath(u"absent.cv2"_s), dossier.path()}) {
        messages().clear();
        EXPECT_FALSE(fichiers.ouvrircriteres(nom));
        ASSERT_EQ(messages().size(), 1U);
        EXPECT_EQ(messages().front().texte, u"t2620 "_s + nom + u" t2181"_s);
        EXPECT_EQ(messages().front().titre, u"t2029");
        EXPECT_EQ(messages().front().icone, Icone::Stop);
    }
}

TEST_F(DialoguesCriteresTest, WhatIsNoPlainFileIsReportedLikeAMissingOne) {
    const NobodyWaits watch;
    const QString chemin = dossier.filePath(u"recherche.cv2"_s);
    for (const auto& autre : {putPipe, putDevice, putFolder}) {
        autre(chemin);
        EXPECT_FALSE(fichiers.ouvrircriteres(chemin));
        ASSERT_EQ(messages().size(), 1U);
        EXPECT_EQ(messages().front().texte, u"t2620 "_s + chemin + u" t2181"_s);
        messages().clear();
    }
}

TEST_F(DialoguesCriteresTest, AWrongFirstLineIsReportedAndGivesNothing) {
    dialogues.openFiles = {ecrit(u"faux.cv2"_s, QByteArray("x").repeated(100'000))};
    EXPECT_FALSE(fichiers.ouvrircriteres());
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_EQ(messages().front().texte, u"t2615");
    EXPECT_EQ(messages().front().titre, u"t601");
    EXPECT_EQ(messages().front().icone, Icone::Stop);
    EXPECT_FALSE(fichiers.ouvrircriteres(ecrit(u"vide.cv2"_s, "")));
    EXPECT_FALSE(fichiers.ouvrircriteres(ecrit(u"presque.cv2"_s, "VELMORante 2000 - CV2x\r\n1\r\n")));
    EXPECT_EQ(dialogues.texts(), QStringList(3, u"t2615"_s));
}

TEST_F(DialoguesCriteresTest, MailingNeedsRows) {
    fichiers.envoyercriteres(fichier(0));
    EXPECT_TRUE(courrier.mails.empty());
    fichiers.envoyercriteres(fichier(1));
    ASSERT_EQ(courrier.mails.size(), 1U);
    EXPECT_EQ(courrier.mails[0].file, ecritcriteres(fichier(1)));
    EXPECT_EQ(courrier.mails[0].fileName, u"VELM2000.CV2");
    EXPECT_TRUE(courrier.mails[0].subject.isEmpty());
    EXPECT_EQ(courrier.mails[0].body, u" ");
    EXPECT_TRUE(messages().empty());
}

TEST_F(DialoguesCriteresTest, AMissingMailProgramIsSaidOnce) {
    courrier.failure = Courrier::Failure::NoMailProgram;
    fichiers.envoyercriteres(fichier(1));
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_EQ(messages().back().texte, u"t9471");
    EXPECT_EQ(messages().back().titre, u"t9472");
    courrier.failure = Courrier::Failure::NotWritten;
    courrier.error = {Obstacle::Other, u"plein"_s};
    fichiers.envoyercriteres(fichier(1));
    EXPECT_EQ(messages().back().texte, u"écrit: VELM2000.CV2, plein.");
}
