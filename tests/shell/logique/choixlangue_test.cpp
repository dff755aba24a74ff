#include "core/parametres.h"
#include "platform/text/ansi.h"
#include "shell/logique/choixlangue.h"
#include "tests/support/dialogues_script.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;

namespace {

class ChoixLangueTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("langues")));
        ecrit("langues/RES2000.FR", "[VELMORANTE 2000]\r\n600=introuvable\r\n601=erreur\r\n602=la garder ?\r\n"
                                    "603=langue\r\n7=sept\r\n");
        ecrit("langues/RES2000.EN", "[VELMORANTE 2000]\r\n7=seven\r\n");
        ecrit("langues/fr.svg", "<svg/>");
        maitre("[LANGUE]\r\nTEXT1=Français\r\nEXT1=FR\r\nFLAG1=fr.svg\r\nTEXT2=English\r\nEXT2=EN\r\nFLAG2=en.svg\r\n");
        langue_.choisitfichier(dossier_.path(), dossier_.path(), courante_);
    }

    void ecrit(const char* nom, const char* texte) const {
        QFile fichier(dossier_.filePath(QString::fromLatin1(nom)));
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(ansi::encode(QString::fromUtf8(texte)));
    }
    void maitre(const char* texte) {
        ecrit("master.ini", texte);
        reglages_.choisitmaitre(dossier_.filePath(QStringLiteral("master.ini")));
    }

    ChoixLangue choisit(const char* extension) {
        return choisitlangue(QString::fromLatin1(extension), courante_, dossier_.path(), reglages_, langue_,
                             dialogues_);
    }
    QString stockee() const {
        return reglages_.getsetting(QStringLiteral("LANGUE"), QStringLiteral("EXTENSION"), QStringLiteral("(absent)"));
    }

    QTemporaryDir dossier_;
    ReglagesStore magasin_{dossier_.filePath(QStringLiteral("reglages.ini"))};
    Reglages reglages_{magasin_};
    Langue langue_{[](const QString& numero) { ADD_FAILURE() << "missing text " << numero.toStdString(); }};
    test::DialoguesScript dialogues_;
    QString courante_ = QStringLiteral("FR");
};

} // namespace

TEST_F(ChoixLangueTest, TheListComesFromTheSettingsWithTheFlagsThatAreThere) {
    const auto langues = languesoffertes(reglages_, dossier_.path());
    ASSERT_EQ(langues.size(), 2u);
    EXPECT_EQ(langues[0].texte, u"Français");
    EXPECT_EQ(langues[0].extension, u"FR");
    EXPECT_EQ(langues[0].drapeau, dossier_.filePath(QStringLiteral("langues/fr.svg")));
    EXPECT_EQ(langues[1].extension, u"EN");
    EXPECT_TRUE(langues[1].drapeau.isEmpty());
}

TEST_F(ChoixLangueTest, AGapInTheListOfLanguagesIsSkipped) {
    maitre("[LANGUE]\r\nTEXT1=Un\r\nEXT1=U1\r\nTEXT2=Deux\r\nEXT2=U2\r\nEXT3=U3\r\nTEXT4=Quatre\r\nEXT4=U4\r\n"
           "TEXT20=Vingt\r\nEXT20=V0\r\nTEXT21=Trop\r\nEXT21=V1\r\n");
    QStringList extensions;
    for (const LangueOfferte& langue : languesoffertes(reglages_, dossier_.path()))
        extensions.append(langue.extension);
    EXPECT_EQ(extensions,
              (QStringList{QStringLiteral("U1"), QStringLiteral("U2"), QStringLiteral("U4"), QStringLiteral("V0")}));
}

TEST_F(ChoixLangueTest, AUsersNameBeatsThePublishers) {
    ASSERT_TRUE(reglages_.savesetting(QStringLiteral("LANGUE"), QStringLiteral("TEXT2"), QStringLiteral("Anglais")));
    EXPECT_EQ(languesoffertes(reglages_, dossier_.path()).at(1).texte, u"Anglais");
}

TEST_F(ChoixLangueTest, ChoosingTheCurrentLanguageAsksNothing) {
    EXPECT_EQ(choisit("FR"), ChoixLangue::Identique);
    EXPECT_TRUE(dialogues_.messages.empty());
    EXPECT_EQ(stockee(), u"(absent)");
}

TEST_F(ChoixLangueTest, ChoosingALanguageWithoutAFileChangesNothingAndSaysSo) {
    EXPECT_EQ(choisit("DE"), ChoixLangue::SansFichier);
    ASSERT_EQ(dialogues_.messages.size(), 1u);
    EXPECT_EQ(dialogues_.messages.front().texte, u"introuvable");
    EXPECT_EQ(dialogues_.messages.front().titre, u"erreur");
    EXPECT_EQ(dialogues_.messages.front().icone, Icone::Stop);
    EXPECT_EQ(stockee(), u"(absent)");
    EXPECT_EQ(courante_, u"FR");
}

TEST_F(ChoixLangueTest, AnExtensionOfOtherThanTwoLettersCannotBeChosen) {
    ecrit("langues/RES2000.ENG", "[VELMORANTE 2000]\r\n7=seven\r\n");
    EXPECT_EQ(choisit("ENG"), ChoixLangue::SansFichier);
    EXPECT_EQ(dialogues_.messages.size(), 1u);
    EXPECT_EQ(stockee(), u"(absent)");
}

TEST_F(ChoixLangueTest, ChoosingALanguageAndAnsweringNoKeepsTheSetting) {
    dialogues_.answers = {Bouton::Non};
    EXPECT_EQ(choisit("EN"), ChoixLangue::Refuse);
    ASSERT_EQ(dialogues_.messages.size(), 1u);
    EXPECT_EQ(dialogues_.messages.front().texte, u"la garder ?");
    EXPECT_EQ(dialogues_.messages.front().titre, u"langue");
    EXPECT_EQ(dialogues_.messages.front().boutons, Bouton::Oui | Bouton::Non | Bouton::Aide);
    EXPECT_EQ(dialogues_.messages.front().contexteAide, 13);
    EXPECT_EQ(stockee(), u"(absent)");
}

TEST_F(ChoixLangueTest, AChosenLanguageTakesEffectAtTheNextStart) {
    dialogues_.answers = {Bouton::Oui};
    EXPECT_EQ(choisit("EN"), ChoixLangue::Retenu);
    EXPECT_EQ(stockee(), u"EN");
    EXPECT_EQ(courante_, u"EN");
    EXPECT_EQ(langue_.lireressource(Texte{7}), u"sept");

    Langue suivante([](const QString&) {});
    EXPECT_EQ(litparametres(reglages_, suivante, dossier_.path()).extensionlangue, u"EN");
    EXPECT_EQ(suivante.lireressource(Texte{7}), u"seven");
}

TEST_F(ChoixLangueTest, AChoiceCanBeTakenBackBeforeTheNextStart) {
    dialogues_.answers = {Bouton::Oui, Bouton::Oui};
    EXPECT_EQ(choisit("EN"), ChoixLangue::Retenu);
    EXPECT_EQ(choisit("FR"), ChoixLangue::Retenu);
    EXPECT_EQ(stockee(), u"FR");
}

TEST(Remplace, MarksInsideAPartStayAsTheyAre) {
    EXPECT_EQ(remplace(QStringLiteral("%1 et %2"), {QStringLiteral("%2"), QStringLiteral("b")}), u"%2 et b");
    EXPECT_EQ(remplace(QStringLiteral("%3 %% 100 %"), {QStringLiteral("a")}), u"%3 %% 100 %");
}

TEST(LanguesLivrees, TheOfferedLanguagesHaveTheirFilesAndFlags) {
    const QString racine = QStringLiteral(VELM_SOURCE_DIR);
    ReglagesStore vide{QString()};
    Reglages reglages(vide);
    reglages.choisitmaitre(racine + QStringLiteral("/master.ini"));
    const auto langues = languesoffertes(reglages, racine);
    ASSERT_GE(langues.size(), 2u);
    for (const LangueOfferte& langue : langues) {
        EXPECT_EQ(langue.extension.size(), 2); // the French file's name is made of the name less two characters
        EXPECT_TRUE(QFile::exists(Langue::cheminfichier(racine, langue.extension))) << qPrintable(langue.extension);
        EXPECT_FALSE(langue.drapeau.isEmpty()) << qPrintable(langue.extension);
    }
}
