// Searching by words and by short fields from the command line.
#include "tests/outil/lance.h"

using namespace velm::test;

TEST_F(OutilRechercheTest, WordsAreCountedAndTheirDocumentsListed) {
    const Sortie json = lance({u"mots"_s, u"consommateur contrat zut3"_s, u"--json"_s});
    ASSERT_EQ(json.code, 0) << json.erreurs.constData();
    const QJsonArray lignes = json.json().value(u"lignes"_s).toArray();
    ASSERT_EQ(lignes.size(), 3);
    EXPECT_TRUE(lignes.at(0).toString().startsWith(u"consommateur : "_s));
    const qsizetype tous = cles(json).size();
    ASSERT_GT(tous, 0);
    EXPECT_EQ(json.json().value(u"nombre"_s).toInt(), tous);
    const Sortie texte = lance({u"mots"_s, u"consommateur contrat zut3"_s});
    const QStringList ecrites = texte.texte.trimmed().split(u'\n');
    EXPECT_EQ(ecrites.size(), 3 + tous + 1);
    EXPECT_TRUE(ecrites.at(3).startsWith(cles(json).first() + u'\t'));
    EXPECT_GT(cles(lance({u"mots"_s, u"consommateur contrat"_s, u"--ou"_s, u"--json"_s})).size(), tous);
}

TEST_F(OutilRechercheTest, TypesAndLimitNarrowTheResult) {
    const QStringList deux =
        cles(lance({u"mots"_s, u"con*"_s, u"--types"_s, u"coeu"_s, u"--limite"_s, u"2"_s, u"--json"_s}));
    EXPECT_EQ(deux.size(), 2);
    for (const QString& cle : cles(lance({u"mots"_s, u"con*"_s, u"--types"_s, u"EU"_s, u"--json"_s})))
        EXPECT_TRUE(cle.startsWith(u"EU")) << qPrintable(cle);
    EXPECT_EQ(cles(lance({u"rapide"_s, u"a"_s, u"--types"_s, u"EU"_s, u"--limite"_s, u"1"_s, u"--json"_s})).size(), 1);
}

TEST_F(OutilRechercheTest, ATextIsFoundWithoutRegardToCase) {
    const QStringList petites = cles(lance({u"rapide"_s, u"garantie"_s, u"--json"_s}));
    EXPECT_FALSE(petites.isEmpty());
    EXPECT_EQ(cles(lance({u"rapide"_s, u"GARANTIE"_s, u"--json"_s})), petites);
    const Sortie rien = lance({u"rapide"_s, u"zyxwvut"_s});
    EXPECT_EQ(rien.code, 0);
    EXPECT_EQ(rien.texte, u"0 document\n");
}

TEST_F(OutilRechercheTest, WrongOptionsAndTooManyWordsAreTold) {
    for (const QStringList& ligne :
         {QStringList{u"mots"_s}, QStringList{u"mots"_s, u"un"_s}, QStringList{u"rapide"_s},
          QStringList{u"mots"_s, u"mot"_s, u"--types"_s, u"XX"_s},
          QStringList{u"mots"_s, u"mot"_s, u"--limite"_s, u"0"_s},
          QStringList{u"rapide"_s, u"mot"_s, u"--limite"_s, u"dix"_s}, QStringList{u"rapide"_s, u"mot"_s, u"--ou"_s}}) {
        const Sortie sortie = lance(ligne);
        EXPECT_EQ(sortie.code, 2) << qPrintable(ligne.join(u' '));
        EXPECT_TRUE(sortie.texte.isEmpty());
        EXPECT_FALSE(sortie.erreurs.isEmpty());
    }
    EXPECT_EQ(lance({u"rapide"_s, u"mot"_s, u"--base"_s, dossier.filePath(u"absente.dat"_s)}).code, 1);
    const Sortie trop = lance({u"mots"_s, u"consommateur "_s.repeated(21)});
    EXPECT_EQ(trop.code, 1);
    EXPECT_TRUE(trop.erreurs.contains("21"));
}
