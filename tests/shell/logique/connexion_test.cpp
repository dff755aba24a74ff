// The search for a base that does not open: discs, another try, another place.
#include "shell/logique/connexion.h"
#include "tests/shell/logique/seance_support.h"
#include "tests/support/full_disk.h"
#include "tests/support/outside_script.h"
#include "tests/support/without_rights.h"

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ConnexionTest : public velm::test::SeanceTest {
protected:
    void SetUp() override {
        SeanceTest::SetUp();
        // The base lies on a disc, and nowhere else.
        ASSERT_TRUE(QDir(dossier_.path()).mkpath(u"disque"_s));
        ASSERT_TRUE(QFile::rename(chemin("velm2000.dat"), chemin("disque/velm2000.dat")));
        langue.choisitfichier(dossier_.path(), dossier_.path(), u"FR"_s);
        seance().choisitrepertoiredebase(chemin("absent"));
    }
    Connexion connexion() {
        Connexion::Copie copie;
        copie.commence = [this](const QString& etape) { etapes << etape; };
        copie.avance = [this](double pourcentage) { avance = pourcentage; };
        copie.finit = [this] { etapes << u"fini"_s; };
        return Connexion({seance(), corpus, dialogues, lecteurs, langue, dossier_.path(), copie});
    }
    void disque(const char* nom, Lecteur::Genre genre = Lecteur::Genre::Optique, bool pret = true) {
        lecteurs.lecteurs << Lecteur{chemin(nom), genre, pret};
    }
    QString repertoire() { return seance().parametres().repertoiredebase; }

    test::LecteursScript lecteurs;
    QStringList etapes;
    double avance = 0;
};

} // namespace

TEST_F(ConnexionTest, WithoutADiscNothingIsFound) {
    disque("disque", Lecteur::Genre::Amovible);
    disque("disque", Lecteur::Genre::Optique, false);
    disque("langues");
    EXPECT_FALSE(connexion().parcourtlecteurs());
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_EQ(repertoire(), chemin("absent"));
}

TEST_F(ConnexionTest, ABaseOnADiscIsReadThereWhenTheUserWantsNoCopy) {
    disque("langues");
    disque("disque");
    dialogues.answers = {Bouton::Non};
    EXPECT_TRUE(connexion().parcourtlecteurs());
    EXPECT_EQ(repertoire(), chemin("disque"));
    EXPECT_EQ(corpus.chemin(), chemin("disque/velm2000.dat"));
    ASSERT_EQ(dialogues.messages.size(), 1U);
    const Message& question = dialogues.messages.front();
    EXPECT_EQ(question.titre, langue.lireressource(Texte{7400}) + u' ' + chemin("disque"));
    EXPECT_EQ(question.texte, langue.lireressource(Texte{7401}) + u"\r\n"_s + langue.lireressource(Texte{7402}) +
                                  u"\r\n\r\n"_s + langue.lireressource(Texte{7403}));
    EXPECT_EQ(question.boutons, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(question.defaut, Bouton::Non);
    EXPECT_EQ(question.icone, Icone::Question);
    EXPECT_TRUE(etapes.isEmpty());
}

TEST_F(ConnexionTest, ACopyLandsBesideTheProgramAndMayBeWritten) {
    ASSERT_TRUE(QFile::setPermissions(chemin("disque/velm2000.dat"), QFile::Permissions(0x4444)));
    disque("disque");
    dialogues.answers = {Bouton::Oui};
    EXPECT_TRUE(connexion().parcourtlecteurs());
    EXPECT_EQ(repertoire(), dossier_.path());
    EXPECT_EQ(corpus.chemin(), chemin("velm2000.dat"));
    EXPECT_TRUE(QFile::permissions(chemin("velm2000.dat")).testFlag(QFile::WriteOwner));
    EXPECT_EQ(etapes, (QStringList{langue.lireressource(Texte{7404}), u"fini"_s}));
    EXPECT_EQ(avance, 100);
}

TEST_F(ConnexionTest, ACopyThatFailsIsSaidAndTheDiscIsRead) {
    disque("disque");
    dialogues.answers = {Bouton::Oui, Bouton::Ok};
    Connexion c = connexion();
    bool trouvee = false;
    {
        const test::FullDisk plein(4096);
        trouvee = c.parcourtlecteurs();
    }
    EXPECT_TRUE(trouvee);
    ASSERT_EQ(dialogues.messages.size(), 2U);
    EXPECT_EQ(dialogues.messages.back().texte, u"Erreur de copie");
    EXPECT_EQ(repertoire(), chemin("disque"));
    EXPECT_FALSE(QFile::exists(chemin("velm2000.dat")));
    EXPECT_EQ(etapes.last(), u"fini");
}

TEST_F(ConnexionTest, EachDiscIsAskedAboutUntilOneOpens) {
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(u"faux"_s));
    ecrit("faux/velm2000.dat", QDateTime::currentDateTime());
    disque("faux");
    disque("disque");
    disque("faux");
    dialogues.answers = {Bouton::Non, Bouton::Non};
    EXPECT_TRUE(connexion().parcourtlecteurs());
    EXPECT_EQ(repertoire(), chemin("disque"));
}

TEST_F(ConnexionTest, AnotherTryLooksAtTheSamePlace) {
    Connexion c = connexion();
    EXPECT_FALSE(c.reessaie());
    ASSERT_TRUE(QDir().rename(chemin("disque"), chemin("absent")));
    EXPECT_TRUE(c.reessaie());
    EXPECT_EQ(repertoire(), chemin("absent"));
}

TEST_F(ConnexionTest, TheFolderOfTheChosenFileCounts) {
    Connexion c = connexion();
    dialogues.openFiles = {std::nullopt, chemin("langues/RES2000.FR"), chemin("disque/autre.txt")};
    EXPECT_FALSE(c.cherche());
    EXPECT_EQ(repertoire(), chemin("absent")) << "none was chosen";
    EXPECT_FALSE(c.cherche());
    EXPECT_EQ(repertoire(), chemin("langues")) << "the next look begins there";
    EXPECT_TRUE(c.cherche());
    EXPECT_EQ(repertoire(), chemin("disque"));
    ASSERT_EQ(dialogues.fileQuestions.size(), 3U);
    EXPECT_EQ(dialogues.fileQuestions[0].dossier, chemin("absent"));
    EXPECT_EQ(dialogues.fileQuestions[2].dossier, chemin("langues"));
    EXPECT_EQ(dialogues.fileQuestions[0].filtre, langue.lireressource(Texte{2152}) + u" (*.DAT)|*.DAT|"_s +
                                                     langue.lireressource(Texte{2405}) + u" (*.*)|*.*"_s);
}

TEST_F(ConnexionTest, WhyItDoesNotOpenIsSaid) {
    const auto cause = [this] { return connexion().cause(); };
    const QString fichier = chemin("ici/velm2000.dat");
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(u"ici"_s));
    seance().choisitrepertoiredebase(chemin("ici"));
    EXPECT_EQ(connexion().lieu(), langue.lireressource(Texte{7101}) + u'"' + chemin("ici") + u"\"."_s);
    EXPECT_EQ(cause(), langue.lireressource(Texte{7102}));
    ecrit("ici/velm2000.dat", QDateTime::currentDateTime());
    EXPECT_EQ(cause(), remplace(langue.lireressource(Texte{9404}), {fichier}));
    QFile base(fichier);
    ASSERT_TRUE(base.open(QIODevice::WriteOnly));
    base.write(QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4096, 'x'));
    base.close();
    EXPECT_EQ(cause(), remplace(langue.lireressource(Texte{9403}), {fichier}));
    ASSERT_TRUE(QFile::setPermissions(dossier_.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(base.setPermissions(QFile::Permissions()));
    const test::WithoutRights personne;
    EXPECT_EQ(cause(), remplace(langue.lireressource(Texte{9330}), {fichier, langue.lireressource(Texte{9533})}));
}
