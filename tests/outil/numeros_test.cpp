// Numbers and keywords from the command line, on the sample.
#include "tests/outil/lance.h"

using namespace velm::test;

TEST_F(OutilRechercheTest, AnArticleIsFoundByItsNumberAsPeopleCiteIt) {
    const Sortie json = lance({u"numero"_s, u"R531-2"_s, u"--json"_s});
    ASSERT_EQ(json.code, 0) << json.erreurs.constData();
    const QStringList trouvees = cles(json);
    ASSERT_FALSE(trouvees.isEmpty());
    EXPECT_EQ(json.json().value(u"nombre"_s).toInt(), trouvees.size());
    const QJsonObject premier = json.json().value(u"documents"_s).toArray().at(0).toObject();
    EXPECT_EQ(premier.value(u"numarticle"_s).toString(), u"R. 531-2");
    EXPECT_FALSE(premier.value(u"titre"_s).toString().isEmpty());
    EXPECT_EQ(cles(lance({u"numero"_s, u"r."_s, u"531-2"_s, u"--json"_s})), trouvees) << "words need no quotes";
    const QStringList lignes = lance({u"numero"_s, u"R531-2"_s}).texte.trimmed().split(u'\n');
    ASSERT_EQ(lignes.size(), trouvees.size() + 1);
    EXPECT_TRUE(lignes.first().startsWith(trouvees.first() + u"\tR. 531-2\t"_s));
}

TEST_F(OutilRechercheTest, AStarFindsAllNumbersThatBeginSoAndTypesNarrowThem) {
    const QStringList tous = cles(lance({u"numero"_s, u"r*"_s, u"--json"_s}));
    EXPECT_GT(tous.size(), 3);
    const QStringList codes = cles(lance({u"numero"_s, u"1*"_s, u"--types"_s, u"eu"_s, u"--json"_s}));
    for (const QString& cle : codes)
        EXPECT_TRUE(cle.startsWith(u"EU")) << qPrintable(cle);
    EXPECT_EQ(lance({u"numero"_s, u"zz 9"_s}).texte, u"0 document\n");
}

TEST_F(OutilRechercheTest, TheNumberOfATextIsAnotherThanThatOfAnArticle) {
    const QString numtitre = lance({u"numero"_s, u"R531-2"_s, u"--json"_s})
                                 .json()
                                 .value(u"documents"_s)
                                 .toArray()
                                 .at(0)
                                 .toObject()
                                 .value(u"numtitre"_s)
                                 .toString();
    ASSERT_FALSE(numtitre.isEmpty());
    EXPECT_FALSE(cles(lance({u"numero"_s, numtitre, u"--texte"_s, u"--json"_s})).isEmpty());
    EXPECT_TRUE(cles(lance({u"numero"_s, numtitre, u"--json"_s})).isEmpty());
}

TEST_F(OutilRechercheTest, EachKeywordHasAsManyDocumentsAsItsCountSays) {
    const Sortie json = lance({u"motscles"_s, u"--json"_s});
    ASSERT_EQ(json.code, 0) << json.erreurs.constData();
    const QJsonArray motscles = json.json().value(u"motscles"_s).toArray();
    ASSERT_GT(motscles.size(), 5);
    EXPECT_EQ(json.json().value(u"nombre"_s).toInt(), motscles.size());
    for (qsizetype i = 0; i < motscles.size(); i += 7) {
        const QJsonObject un = motscles.at(i).toObject();
        const QString motcle = un.value(u"motcle"_s).toString();
        const Sortie documents = lance({u"motcle"_s, motcle, u"--json"_s});
        EXPECT_EQ(cles(documents).size(), un.value(u"documents"_s).toInt()) << qPrintable(motcle);
        EXPECT_EQ(documents.json().value(u"mot1"_s).toString(), QString());
    }
    const QStringList lignes = lance({u"motscles"_s}).texte.trimmed().split(u'\n');
    EXPECT_EQ(lignes.size(), motscles.size() + 1);
    EXPECT_TRUE(lignes.last().endsWith(u"mots clés"));
}

TEST_F(OutilRechercheTest, AKeywordThatCannotBeAskedForIsTold) {
    const Sortie sortie = lance({u"motcle"_s, u"dit \"neuf\""_s});
    EXPECT_EQ(sortie.code, 1);
    EXPECT_TRUE(sortie.texte.isEmpty());
    EXPECT_TRUE(QString::fromUtf8(sortie.erreurs).contains(u"dit \"neuf\""));
    EXPECT_EQ(lance({u"motcle"_s, u"absent"_s}).texte, u"0 document\n");
}

TEST_F(OutilRechercheTest, NumbersAndKeywordsTellWhatIsWrongWithTheLine) {
    for (const QStringList& ligne :
         {QStringList{u"numero"_s}, QStringList{u"numero"_s, u"1"_s, u"--types"_s, u"XX"_s},
          QStringList{u"motscles"_s, u"trop"_s}, QStringList{u"motcle"_s}, QStringList{u"motcle"_s, u"--texte"_s}})
        EXPECT_EQ(lance(ligne).code, 2) << qPrintable(ligne.join(u' '));
    EXPECT_EQ(lance({u"numero"_s, u"1"_s, u"--base"_s, dossier.filePath(u"absente.dat"_s)}).code, 1);
}
