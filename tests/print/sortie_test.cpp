// What leaves a document window: to a file, to the clipboard, by mail.
#include "print/fichiertemporaire.h"
#include "print/nomdefichier.h"
#include "print/sortietextes.h"
#include "tests/support/dialogues_script.h"
#include "tests/support/full_disk.h"
#include "tests/support/outside_script.h"
#include "tests/support/without_rights.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Chooses one of the filters, as a user does.
class DialoguesFiltre final : public Dialogues {
public:
    using Dialogues::message;
    DialoguesScript script;
    int filtre = 1;

    Bouton message(const Message& m) override { return script.message(m); }
    std::optional<QString> openFile(const ChoixFichier& choix) override { return script.openFile(choix); }
    std::optional<QString> saveFile(const ChoixFichier& choix) override {
        if (choix.filtrechoisi)
            *choix.filtrechoisi = filtre;
        std::optional<QString> chemin = script.saveFile(choix);
        // What it points to does not outlive the question.
        script.fileQuestions.back().filtrechoisi = nullptr;
        return chemin;
    }
    std::optional<QString> chooseFolder(const QString& titre, const QString& dossier) override {
        return script.chooseFolder(titre, dossier);
    }
};

class Sortie : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier.isValid());
        rtf.setTextRtf("{\\rtf1 Un {\\b gras} texte\\par et \\u8364?}");
    }
    bool enregistre(const std::optional<QString>& ou, const QString& titre = u"Titre"_s) {
        dialogues.script.saveFiles = {ou};
        return sortie.enregistresous(titre, rtf);
    }
    QString chemin(const QString& nom) const { return dossier.filePath(nom); }
    QByteArray contenu(const QString& nom) const { return readPlain(chemin(nom)).bytes; }
    QStringList fichiers() const { return QDir(dossier.path()).entryList(QDir::Files | QDir::Hidden); }
    void choisit(qsizetype debut, qsizetype longueur) {
        rtf.setSelStart(debut);
        rtf.setSelLength(longueur);
    }
    /// The name that the dialog is given; "(rien)" where none is shown.
    QString propose(const QString& titre) {
        dialogues.script.fileQuestions.clear();
        dialogues.script.saveFiles = {std::nullopt};
        EXPECT_FALSE(sortie.enregistresous(titre, rtf));
        return dialogues.script.fileQuestions.empty() ? u"(rien)"_s : dialogues.script.fileQuestions.front().nom;
    }

    QTemporaryDir dossier;
    RichTextControl rtf;
    DialoguesFiltre dialogues;
    SablierMuet sablier;
    CourrierScript courrier;
    SortieTextes sortie{{dialogues, sablier, courrier, [](Texte lequel) {
                             const QString parties = lequel == Texte::FichierPasEnregistre ? u"%1: %2"_s : QString();
                             return u"<"_s + QString::number(static_cast<int>(lequel)) + u'>' + parties;
                         }}};
};

// ---- to a file

TEST_F(Sortie, TheProposedNameHasBlanksForColons) {
    EXPECT_EQ(propose(u"Art. 1 : objet:suite"_s), u"Art. 1   objet suite");
    EXPECT_EQ(propose({}), u"") << "nothing to cut";
}

TEST_F(Sortie, ARefusedNameIsShortenedUntilItIsAccepted) {
    EXPECT_EQ(propose(u"Loi 89/462 du 6"_s), u"Loi 89");
    EXPECT_EQ(propose(u"Quoi ? Rien"_s), u"Quoi ");
    for (const QChar c : u"\\/*?\"<>|"_s)
        EXPECT_EQ(propose(u"Titre"_s + c + u"suite"_s), u"Titre") << static_cast<int>(c.unicode());
    EXPECT_EQ(propose(u"Titre\tsuite"_s), u"Titre");
}

TEST_F(Sortie, ANameThatIsTooLongIsShortened) {
    EXPECT_EQ(propose(QString(300, u'a')), QString(244, u'a'));
    EXPECT_EQ(propose(QString(300, u'é')), QString(122, u'é')) << "its bytes count";
    const QString courte = propose(u"\U0001F600"_s.repeated(100));
    EXPECT_EQ(courte, u"\U0001F600"_s.repeated(61)) << "no half of a character is left";
}

TEST_F(Sortie, ANameUsedUpEndsTheSave) {
    EXPECT_EQ(propose(u"/Titre"_s), u"(rien)");
    EXPECT_EQ(propose(u"???"_s), u"(rien)");
}

TEST_F(Sortie, TheSaveFiltersWordsAreLiterals) {
    enregistre(std::nullopt);
    EXPECT_EQ(dialogues.script.fileQuestions.front().filtre, u"Rich Text Files (*.rtf)|*.rtf|Text (*.txt)|*.txt");
    EXPECT_TRUE(dialogues.script.fileQuestions.front().demanderemplacement);
}

TEST_F(Sortie, CancellingWritesNothing) {
    EXPECT_FALSE(enregistre(std::nullopt));
    EXPECT_TRUE(fichiers().isEmpty());
}

TEST_F(Sortie, TheFirstFilterWritesRichTextTheSecondPlainText) {
    EXPECT_TRUE(enregistre(chemin(u"a.rtf"_s)));
    EXPECT_EQ(contenu(u"a.rtf"_s), rtf.textRtf());
    dialogues.filtre = 2;
    EXPECT_TRUE(enregistre(chemin(u"a.txt"_s)));
    EXPECT_EQ(contenu(u"a.txt"_s), "Un gras texte\r\net \xE2\x82\xAC");
    EXPECT_TRUE(enregistre(chemin(u"b.rtf"_s)));
    EXPECT_EQ(contenu(u"b.rtf"_s), contenu(u"a.txt"_s)) << "the filter decides, not the name";
}

TEST_F(Sortie, SavingIgnoresTheSelection) {
    choisit(3, 4);
    EXPECT_TRUE(enregistre(chemin(u"a.rtf"_s)));
    EXPECT_EQ(contenu(u"a.rtf"_s), rtf.textRtf());
}

TEST_F(Sortie, ANameWithoutAnExtensionGetsThatOfItsForm) {
    EXPECT_TRUE(enregistre(chemin(u"Art. L. 121-1"_s)));
    EXPECT_TRUE(enregistre(chemin(u"Art. L"_s)));
    EXPECT_TRUE(enregistre(chemin(u"n.12"_s)));
    EXPECT_TRUE(enregistre(chemin(u"a.DOC"_s)));
    dialogues.filtre = 2;
    EXPECT_TRUE(enregistre(chemin(u"Loi"_s)));
    for (const QString& nom : {u"Art. L. 121-1.rtf"_s, u"Art. L.rtf"_s, u"n.12.rtf"_s, u"a.DOC"_s, u"Loi.txt"_s})
        EXPECT_TRUE(fichiers().contains(nom)) << nom.toStdString();
}

TEST_F(Sortie, AFileThatOnlyThatExtensionNamesIsNotReplacedUnasked) {
    ASSERT_TRUE(writeWhole(chemin(u"a.rtf"_s), "avant").ok());
    dialogues.script.answers = {Bouton::Non};
    EXPECT_FALSE(enregistre(chemin(u"a"_s)));
    EXPECT_EQ(contenu(u"a.rtf"_s), "avant");
    dialogues.script.answers = {Bouton::Oui};
    EXPECT_TRUE(enregistre(chemin(u"a"_s)));
    EXPECT_EQ(contenu(u"a.rtf"_s), rtf.textRtf());
}

TEST_F(Sortie, AFileThatCannotBeWrittenIsFalseWithoutAMessage) {
    ASSERT_TRUE(QDir(dossier.path()).mkdir(u"pris.rtf"_s));
    EXPECT_FALSE(enregistre(chemin(u"pris.rtf"_s))) << "a folder's name";
    ASSERT_TRUE(QDir(dossier.path()).mkdir(u"fermé"_s));
    ASSERT_TRUE(QFile::setPermissions(chemin(u"fermé"_s), QFile::ReadOwner | QFile::ExeOwner));
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), QFile::Permissions(0x7777)));
    {
        const WithoutRights personne;
        EXPECT_FALSE(enregistre(chemin(u"fermé/a.rtf"_s))) << "a folder that is read only";
    }
    EXPECT_FALSE(enregistre(chemin(QString(300, u'a')))) << "a name that is too long";
    EXPECT_TRUE(dialogues.script.messages.empty());
}

TEST_F(Sortie, AFullDiskLeavesWhatWasThere) {
    ASSERT_TRUE(writeWhole(chemin(u"a.rtf"_s), "avant").ok());
    rtf.setText(QString(100'000, u'a'));
    {
        const FullDisk plein(4096);
        EXPECT_FALSE(enregistre(chemin(u"a.rtf"_s)));
    }
    EXPECT_EQ(contenu(u"a.rtf"_s), "avant");
    EXPECT_EQ(fichiers(), QStringList(u"a.rtf"_s));
}

TEST_F(Sortie, TheLongestNameThatIsProposedCanBeWritten) {
    EXPECT_TRUE(enregistre(chemin(propose(QString(400, u'é')))));
    EXPECT_EQ(fichiers().size(), 1);
}

// ---- to the clipboard

// ---- by mail

TEST_F(Sortie, TheSentTextIsTheSelectionOrTheWhole) {
    sortie.envoietexte(u"Titre"_s, rtf);
    choisit(3, 4);
    sortie.envoietexte(u"Titre"_s, rtf);
    ASSERT_EQ(courrier.mails.size(), 2U);
    EXPECT_EQ(courrier.mails[0].subject, u"Titre");
    EXPECT_EQ(courrier.mails[0].body, rtf.text());
    EXPECT_EQ(courrier.mails[1].body, u"gras");
    EXPECT_TRUE(courrier.mails[1].fileName.isEmpty());
    EXPECT_TRUE(courrier.mails[1].file.isEmpty());
}

TEST_F(Sortie, TheAttachmentIsTheSelectionOrTheWhole) {
    sortie.envoiefichier(u"Titre"_s, rtf);
    choisit(3, 4);
    sortie.envoiefichier(u"Titre"_s, rtf);
    ASSERT_EQ(courrier.mails.size(), 2U);
    EXPECT_EQ(courrier.mails[0].subject, u"Titre");
    EXPECT_EQ(courrier.mails[0].body, u" ");
    EXPECT_EQ(courrier.mails[0].fileName, u"Titre.RTF");
    EXPECT_EQ(courrier.mails[0].file, rtf.textRtf());
    EXPECT_EQ(courrier.mails[1].file, rtf.selRtf());
}

TEST_F(Sortie, AfterTheFallBackToTempTheAttachmentKeepsTheTitleAsName) {
    sortie.envoiefichier(u"Loi 89/462"_s, rtf);
    ASSERT_EQ(courrier.mails.size(), 1U);
    EXPECT_EQ(courrier.mails[0].fileName, u"Loi 89/462.RTF");
    EXPECT_EQ(courrier.mails[0].file, rtf.textRtf());
}

TEST_F(Sortie, ABodyTooLongIsAttachedAndTold) {
    rtf.setText(QString(40'000, u'é'));
    sortie.envoietexte(u"Titre"_s, rtf);
    ASSERT_EQ(courrier.mails.size(), 1U);
    EXPECT_EQ(courrier.mails[0].fileName, u"Titre.RTF");
    EXPECT_EQ(courrier.mails[0].file, rtf.textRtf());
    EXPECT_EQ(dialogues.script.texts(), QStringList(u"<9648>"_s));
    choisit(0, 100);
    sortie.envoietexte(u"Titre"_s, rtf);
    EXPECT_EQ(courrier.mails[1].body.size(), 100) << "a short selection of it goes as a body";
}

TEST_F(Sortie, ATextThatNothingStandsInIsSentAsItIs) {
    rtf.setText(u"");
    sortie.envoietexte({}, rtf);
    sortie.envoiefichier({}, rtf);
    ASSERT_EQ(courrier.mails.size(), 2U);
    EXPECT_EQ(courrier.mails[0].body, u"");
    EXPECT_EQ(courrier.mails[1].fileName, u".RTF");
}

// ---- the temporary file

class SortieTemporaire : public Sortie {
protected:
    void SetUp() override {
        Sortie::SetUp();
        avant_ = qgetenv("TMPDIR");
        ASSERT_TRUE(QDir(dossier.path()).mkdir(u"tmp"_s));
        qputenv("TMPDIR", QFile::encodeName(chemin(u"tmp"_s)));
    }
    void TearDown() override {
        if (avant_.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", avant_);
    }
    QStringList restes() const {
        return QDir(chemin(u"tmp"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static QString nom(const QString& titre) {
        const FichierTemporaire fichier(titre, "{\\rtf1 x}");
        EXPECT_TRUE(fichier.erreur().ok());
        EXPECT_EQ(readPlain(fichier.chemin()).bytes, "{\\rtf1 x}");
        return QFileInfo(fichier.chemin()).fileName();
    }

private:
    QByteArray avant_;
};

TEST_F(SortieTemporaire, ItBearsTheTitleAndLiesInTheTemporaryFolder) {
    const FichierTemporaire fichier(u"Art. L. 121"_s, "x");
    EXPECT_TRUE(fichier.chemin().startsWith(chemin(u"tmp/"_s)));
    EXPECT_EQ(nom(u"Art. L. 121"_s), u"Art. L. 121.rtf");
}

TEST_F(SortieTemporaire, ATitleThatIsNoFileNameFallsBackToTemp) {
    for (const QString& titre : {u"Loi 89/462"_s, u"Quoi ?"_s, u"a:b"_s, QString(300, u'a')})
        EXPECT_EQ(nom(titre), u"temp.rtf") << titre.toStdString();
}

TEST_F(SortieTemporaire, AnEmptyTitleGivesTemp) {
    EXPECT_EQ(nom({}), u"temp.rtf");
}

TEST_F(SortieTemporaire, ItIsDeletedEvenWhenTheMailIsRefused) {
    sortie.envoiefichier(u"Titre"_s, rtf);
    EXPECT_TRUE(restes().isEmpty());
    courrier.failure = Courrier::Failure::NoMailProgram;
    sortie.envoiefichier(u"Titre"_s, rtf);
    EXPECT_TRUE(restes().isEmpty());
    EXPECT_EQ(dialogues.script.texts(), QStringList(u"<9471>"_s)) << "there is none, which is told";
}

TEST_F(SortieTemporaire, AFolderWithoutRoomIsTold) {
    ASSERT_TRUE(writeWhole(chemin(u"fichier"_s), "x").ok());
    qputenv("TMPDIR", QFile::encodeName(chemin(u"fichier"_s)));
    sortie.envoiefichier(u"Titre"_s, rtf);
    EXPECT_TRUE(courrier.mails.empty());
    ASSERT_EQ(dialogues.script.messages.size(), 1U);
    const QString dit = dialogues.script.texts().first();
    EXPECT_TRUE(dit.startsWith(u"<9470>"_s)) << dit.toStdString();
    EXPECT_EQ(dit.count(u'<'), 1) << "in the system's words, which are not those of a missing file";
}

} // namespace
} // namespace velm::test
