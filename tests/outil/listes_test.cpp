// The lists of all documents from the command line, on the sample.
#include "tests/outil/lance.h"

using namespace velm::test;

TEST_F(OutilRechercheTest, TheIndexListsAllDocumentsOrThoseOfSomeTypes) {
    const Sortie tous = lance({u"index"_s, u"--json"_s});
    ASSERT_EQ(tous.code, 0) << tous.erreurs.constData();
    const QStringList toutes = cles(tous);
    ASSERT_GT(toutes.size(), 10);
    EXPECT_EQ(tous.json().value(u"nombre"_s).toInt(), toutes.size());
    QStringList rangees = toutes;
    rangees.sort();
    EXPECT_EQ(toutes, rangees);
    EXPECT_FALSE(tous.json().value(u"documents"_s).toArray().at(0).toObject().value(u"titre"_s).toString().isEmpty());
    const QStringList deux = cles(lance({u"index"_s, u"--types"_s, u"eujp"_s, u"--json"_s}));
    EXPECT_FALSE(deux.isEmpty());
    for (const QString& cle : deux)
        EXPECT_TRUE(cle.startsWith(u"EU") || cle.startsWith(u"JP")) << qPrintable(cle);
    const QStringList lignes = lance({u"index"_s, u"--types"_s, u"EU"_s}).texte.trimmed().split(u'\n');
    EXPECT_TRUE(lignes.first().startsWith(u"EU"));
    EXPECT_EQ(lignes.first().count(u'\t'), 4);
    EXPECT_TRUE(lignes.last().contains(u"document"));
}

TEST_F(OutilRechercheTest, TheChronologicalListIsBoundedByDates) {
    const auto annees = [](const Sortie& sortie) {
        QStringList toutes;
        for (const QJsonValue& document : sortie.json().value(u"documents"_s).toArray())
            toutes << document.toObject().value(u"année"_s).toString();
        return toutes;
    };
    const Sortie tous = lance({u"chrono"_s, u"--json"_s});
    ASSERT_EQ(tous.code, 0) << tous.erreurs.constData();
    const QStringList toutes = annees(tous);
    ASSERT_GT(toutes.size(), 2);
    QStringList rangees = toutes;
    rangees.sort();
    EXPECT_EQ(toutes, rangees) << "in the order of the dates";
    const QString milieu = toutes.at(toutes.size() / 2);
    const QStringList une = annees(lance({u"chrono"_s, u"--de"_s, milieu, u"--a"_s, milieu, u"--json"_s}));
    EXPECT_EQ(une.size(), toutes.count(milieu));
    EXPECT_EQ(lance({u"chrono"_s, u"--de"_s, u"9998"_s}).texte, u"0 document\n");
}

TEST_F(OutilRechercheTest, WrongOptionsOfTheListsAreTold) {
    for (const QStringList& ligne :
         {QStringList{u"index"_s, u"--types"_s, u"XX"_s}, QStringList{u"index"_s, u"--de"_s, u"1999"_s},
          QStringList{u"chrono"_s, u"--de"_s, u"hier"_s}, QStringList{u"chrono"_s, u"--a"_s, u"1999-1"_s},
          QStringList{u"index"_s, u"mot"_s}}) {
        const Sortie sortie = lance(ligne);
        EXPECT_EQ(sortie.code, 2) << qPrintable(ligne.join(u' '));
        EXPECT_FALSE(sortie.erreurs.isEmpty());
    }
    EXPECT_EQ(lance({u"chrono"_s, u"--base"_s, dossier.filePath(u"absente.dat"_s)}).code, 1);
}
