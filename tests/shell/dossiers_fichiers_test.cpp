// Files of dossiers, mail and repair, from the window and from the command line.
#include "shell/selection.h"
#include "tests/shell/dossiers_support.h"

#include <QFile>
#include <QLabel>

namespace velm::test {
namespace {

const QByteArray contenu =
    "VELMORante 2000 - DV2\r\nRe\xE7us\r\nCO000001 4 5 9P\r\nUn [extrait]\r\nJP000007 9\r\nDeux\r\n";

class DossiersFichiersTest : public DossiersTest {
protected:
    QString pose(const QString& nom, const QByteArray& octets) const {
        QFile fichier(dossier.filePath(nom));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
        return fichier.fileName();
    }
    QByteArray lit(const QString& nom) const {
        QFile fichier(dossier.filePath(nom));
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("(none)");
    }
    Toolbar& outils() const { return *fenetre()->findChild<Toolbar*>(u"Toolbar1"_s); }
    /// A dossier "A" that holds the document in front, selected.
    void commenceavecun() {
        commence();
        ouvre();
        nouveau(u"A"_s);
        ferme();
        range();
        clique(u"A"_s);
        clique(u"A"_s);
    }
};

TEST_F(DossiersFichiersTest, ADossierIsSavedAndAnExistingFileAsksFirst) {
    commenceavecun();
    dialogues.saveFiles = {dossier.filePath(u"a.dv2"_s)};
    presse(outils(), "enregistrerdossier");
    const QByteArray attendu = "VELMORante 2000 - DV2\r\nA\r\nCO000001 1\r\nArticle premier\r\n";
    EXPECT_EQ(lit(u"a.dv2"_s), attendu);
    EXPECT_EQ(dialogues.fileQuestions.back().filtre, mots(4000) + u"(*.dv2)|*.dv2"_s);
    EXPECT_EQ(dialogues.fileQuestions.back().nom, u"A.dv2");
    pose(u"b.dv2"_s, "autre");
    dialogues.saveFiles = {dossier.filePath(u"b.dv2"_s)};
    dialogues.answers = {Bouton::Non};
    presse(outils(), "enregistrerdossier");
    EXPECT_EQ(dialogues.texts(), QStringList{mots(2620) + u' ' + dossier.filePath(u"b.dv2"_s) + u' ' + mots(2621)});
    EXPECT_EQ(dialogues.messages.back().titre, mots(2622));
    EXPECT_EQ(lit(u"b.dv2"_s), "autre");
    dialogues.answers = {Bouton::Oui};
    dialogues.saveFiles = {dossier.filePath(u"b.dv2"_s)};
    presse(outils(), "enregistrerdossier");
    EXPECT_EQ(lit(u"b.dv2"_s), attendu);
    dialogues.saveFiles = {std::nullopt};
    presse(outils(), "enregistrerdossier");
    ferme();
}

TEST_F(DossiersFichiersTest, CancellingWritesNothing) {
    commenceavecun();
    const QDir ici(dossier.path());
    const QStringList avant = ici.entryList({u"*.dv2"_s});
    const int noeuds = arbre().nodes().count();
    dialogues.saveFiles = {std::nullopt};
    presse(outils(), "enregistrerdossier");
    dialogues.openFiles = {std::nullopt};
    presse(outils(), "ouvrirdossier");
    EXPECT_EQ(dialogues.fileQuestions.size(), 2U);
    EXPECT_EQ(ici.entryList({u"*.dv2"_s}), avant);
    EXPECT_EQ(arbre().nodes().count(), noeuds);
    EXPECT_TRUE(dialogues.messages.empty());
    ferme();
}

TEST_F(DossiersFichiersTest, AWrongSignatureChangesNothing) {
    commenceavecun();
    const QStringList liste = titres();
    const int noeuds = arbre().nodes().count();
    dialogues.openFiles = {pose(u"r.dv2"_s, QByteArray(contenu).replace("DV2", "DV3"))};
    presse(outils(), "ouvrirdossier");
    EXPECT_EQ(dialogues.texts(), QStringList{mots(2615)});
    EXPECT_EQ(dialogues.messages[0].titre, mots(601));
    EXPECT_EQ(arbre().nodes().count(), noeuds);
    EXPECT_EQ(titres(), liste);
    ferme();
}

TEST_F(DossiersFichiersTest, WithoutItemsNothingIsSavedOrSent) {
    commence();
    ouvre();
    EXPECT_TRUE(outils().isButtonEnabled(u"ouvrirdossier"_s));
    EXPECT_FALSE(outils().isButtonEnabled(u"enregistrerdossier"_s));
    EXPECT_FALSE(outils().isButtonEnabled(u"envoyerdossier"_s));
    ferme();
}

TEST_F(DossiersFichiersTest, AFileIsOpenedAsANewDossier) {
    commence();
    ouvre();
    dialogues.openFiles = {pose(u"r.dv2"_s, contenu)};
    presse(outils(), "ouvrirdossier");
    EXPECT_EQ(dialogues.fileQuestions.back().filtre, mots(2612) + u"(*.dv2)|*.dv2"_s);
    EXPECT_EQ(texte(u"Reçus"_s), u"Reçus [2]");
    EXPECT_EQ(arbre().nodes().selected(), noeud(u"Reçus"_s));
    EXPECT_EQ(titres(), (QStringList{u"Un [extrait]"_s, u"Deux"_s}));
    EXPECT_TRUE(outils().isButtonEnabled(u"enregistrerdossier"_s));
    ferme();
    redemarre();
    ouvre();
    EXPECT_EQ(texte(u"Reçus"_s), u"Reçus [2]");
    ferme();
}

TEST_F(DossiersFichiersTest, AnotherExtensionAsksAndStillNeedsTheSignature) {
    commence();
    ouvre();
    const int avant = arbre().nodes().count();
    dialogues.openFiles = {pose(u"r.txt"_s, "VELMORante 2000 - CV2\r\n")};
    dialogues.answers = {Bouton::Oui, Bouton::Ok};
    presse(outils(), "ouvrirdossier");
    EXPECT_EQ(dialogues.texts(), (QStringList{mots(1361), mots(2615)}));
    EXPECT_EQ(dialogues.messages[0].titre, mots(2616));
    EXPECT_EQ(dialogues.messages[1].titre, mots(601));
    EXPECT_EQ(arbre().nodes().count(), avant);
    ferme();
}

TEST_F(DossiersFichiersTest, IsMailedOnlyWithRowsInTheResultList) {
    commenceavecun();
    presse(outils(), "envoyerdossier");
    EXPECT_TRUE(courrier.mails.empty());
    ferme();
    programme->selection().liste().resultat().lignes.ajoute({.titre = u"t", .cle = u"CO000001"});
    ouvre();
    clique(u"A"_s);
    presse(outils(), "envoyerdossier");
    ASSERT_EQ(courrier.mails.size(), 1U);
    EXPECT_EQ(courrier.mails[0].fileName, u"VELM2000.DV2");
    EXPECT_EQ(courrier.mails[0].body, u" ");
    EXPECT_TRUE(courrier.mails[0].file.startsWith("VELMORante 2000 - DV2\r\nA\r\n"));
    ferme();
}

TEST_F(DossiersFichiersTest, AFileNamedAtTheStartIsTakenInSavedAndTheWindowGone) {
    ASSERT_EQ(demarre(pose(u"Recus.Dv2"_s, contenu)), Demarrage::EnMarche);
    EVENTUALLY(fenetre() == nullptr);
    EXPECT_TRUE(dialogues.messages.empty());
    ouvre();
    EXPECT_EQ(texte(u"Reçus"_s), u"Reçus [2]");
    ferme();
}

TEST_F(DossiersFichiersTest, AMissingFileNamedAtTheStartIsReported) {
    const QString chemin = dossier.filePath(u"absent.dv2"_s);
    ASSERT_EQ(demarre(chemin), Demarrage::EnMarche);
    EVENTUALLY(fenetre() == nullptr);
    EXPECT_EQ(dialogues.texts(), QStringList{mots(2620) + u' ' + chemin + u' ' + mots(2181)});
    EXPECT_EQ(dialogues.messages[0].titre, mots(2029));
}

TEST_F(DossiersFichiersTest, RepairAsksSavesAndTellsWhatItDid) {
    commenceavecun();
    const QString question = mots(2166);
    dialogues.answers = {Bouton::Non};
    presse(u"Command1"_s);
    EXPECT_EQ(dialogues.texts(), QStringList{question});
    clique(mots(4201));
    nouveau(u"B"_s);
    dialogues.answers = {Bouton::Oui};
    presse(u"Command1"_s);
    EXPECT_EQ(ligne(), mots(9608));
    EXPECT_NE(noeud(u"B"_s), 0) << "it was saved first";
    EXPECT_EQ(arbre().nodes().selected(), 1);
    clique(u"A"_s);
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    // A confirmed rename loses the count; repair gives it back.
    presse(u"renommer"_s);
    ecrit(u"C"_s);
    EXPECT_EQ(texte(u"C"_s), u"C");
    dialogues.answers = {Bouton::Oui};
    presse(u"Command1"_s);
    EXPECT_EQ(texte(u"C"_s), u"C [1]");
    EXPECT_EQ(ligne(), mots(9607, {u"0"_s, u"0"_s, u"1"_s}));
    ferme();
}

} // namespace
} // namespace velm::test
