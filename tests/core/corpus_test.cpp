#include "core/cle.h"
#include "core/corpus.h"
#include "core/schemas.h"
#include "tests/support/arret.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;

namespace {

class CorpusTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        const auto base = Database::create(chemin(), corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter documents(*base.database, QStringLiteral("données"),
                              {QStringLiteral("référence"), QStringLiteral("numart"), QStringLiteral("titre"),
                               QStringLiteral("contenu")});
        for (const char* numero : {"000001", "000002"})
            ASSERT_TRUE(documents.add({QStringLiteral("CO"), QString::fromLatin1(numero), QStringLiteral("Titre"),
                                       QByteArray("{\\rtf1 x}")}));
        TableWriter parametres(*base.database, QStringLiteral("paramètres"), {QStringLiteral("nbarticles")});
        QString comptes;
        for (int i = 0; i < nombredecollections; ++i)
            comptes += sixchiffres(1000 * i + 7);
        ASSERT_TRUE(parametres.add({comptes}));
    }
    QString chemin() const { return dossier_.filePath(QStringLiteral("velm2000.dat")); }

    QTemporaryDir dossier_;
    Corpus corpus;
};

} // namespace

TEST_F(CorpusTest, CompterarticlesReadsSixCharactersForEachCode) {
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    for (int i = 0; i < nombredecollections; ++i)
        EXPECT_EQ(corpus.compterarticles(typedindice(i)), 1000 * i + 7);
    EXPECT_EQ(corpus.compterarticles(u"IN"), 0);
    EXPECT_EQ(corpus.compterarticles(u"ZZ"), 0);
    EXPECT_EQ(corpus.compterarticles(u""), 0);
}

TEST_F(CorpusTest, DocumentsAreCountedWhateverThePublisherTells) {
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(corpus.nombrededocuments(u"CO"), 2);
    EXPECT_EQ(corpus.nombrededocuments(u"EU"), 0);
    EXPECT_EQ(corpus.nombrededocuments(u"IN"), 0);
    EXPECT_EQ(corpus.nombrededocuments(u""), 0);
}

TEST_F(CorpusTest, AnotherBaseIsCountedAnew) {
    EXPECT_EQ(corpus.nombrededocuments(u"CO"), 0) << "no base yet";
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    EXPECT_EQ(corpus.nombrededocuments(u"CO"), 2);
    const QString autre = dossier_.filePath(QStringLiteral("autre.dat"));
    ASSERT_NE(Database::create(autre, corpusSchema()).database, nullptr);
    ASSERT_EQ(corpus.connecte(autre), OpenError::None);
    EXPECT_EQ(corpus.nombrededocuments(u"CO"), 0);
}

TEST_F(CorpusTest, ABaseWithoutDocumentsTableCountsNone) {
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        ASSERT_TRUE(base.database->execute(QStringLiteral("DROP TABLE données")));
    }
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    EXPECT_EQ(corpus.nombrededocuments(u"CO"), 0);
}

TEST_F(CorpusTest, AMissingBaseFailsBothAttemptsAndCreatesNoFile) {
    const QString absente = dossier_.filePath(QStringLiteral("absente.dat"));
    EXPECT_EQ(corpus.connecte(absente), OpenError::Missing);
    EXPECT_FALSE(corpus.connecte());
    EXPECT_FALSE(QFile::exists(absente));
}

TEST_F(CorpusTest, ABaseOpenElsewhereStillOpens) {
    Corpus autre;
    ASSERT_EQ(autre.connecte(chemin()), OpenError::None);
    autre.ouvretables();
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(corpus.donnees().recordCount(), 2);
}

TEST_F(CorpusTest, ClosingTwiceClosesOnceAndTheBaseOpensAgain) {
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    corpus.fermebase();
    EXPECT_FALSE(corpus.connecte());
    const test::GardeArret garde;
    EXPECT_THROW(corpus.donnees(), test::Arret);
    EXPECT_NO_THROW(corpus.fermebase());
    EXPECT_FALSE(corpus.connecte());
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(corpus.donnees().recordCount(), 2);
}

TEST_F(CorpusTest, AMissingTableIsNotReportedAtOpeningButAtItsFirstUse) {
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        ASSERT_TRUE(base.database->execute(QStringLiteral("DROP TABLE liens")));
    }
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(corpus.donnees().recordCount(), 2);
    const test::GardeArret garde;
    EXPECT_THROW(corpus.liens().moveFirst(), test::Arret);
}

TEST_F(CorpusTest, ABaseWithoutATitleGivesNone) {
    const test::GardeArret garde; // nothing here is a run-time error
    EXPECT_EQ(corpus.titre(), QString()) << "no base at all";
    const auto ordre = [this](const QString& sql) {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database && base.database->execute(sql));
    };
    const auto titre = [this] {
        EXPECT_EQ(corpus.connecte(chemin()), OpenError::None);
        return corpus.titre();
    };
    ordre(QStringLiteral("UPDATE paramètres SET titre='Ma  base\n'"));
    EXPECT_EQ(titre(), u"Ma base");
    corpus.fermebase();
    ordre(QStringLiteral("ALTER TABLE paramètres DROP COLUMN titre"));
    EXPECT_EQ(titre(), QString()) << "a base older than the field";
    corpus.fermebase();
    ordre(QStringLiteral("DROP TABLE paramètres"));
    EXPECT_EQ(titre(), QString());
}

TEST_F(CorpusTest, ADocumentIsKnownByItsKey) {
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        ASSERT_TRUE(base.database->execute(QStringLiteral(
            "UPDATE données SET titre='Un', motclé1='vente', motclé2='prix', motclé3='délai', Source='JO', "
            "Date='2001-02-03', datecreation='2002', datemodif='2003', typededocument='Loi', numeroarborescence=17, "
            "BackColor=255 WHERE numart='000001'")));
        ASSERT_TRUE(base.database->execute(QStringLiteral("UPDATE données SET titre=NULL WHERE numart='000002'")));
    }
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    const Notice une{QStringLiteral("Un"),
                     QStringLiteral("vente"),
                     QStringLiteral("prix"),
                     QStringLiteral("délai"),
                     QStringLiteral("JO"),
                     QStringLiteral("2001-02-03"),
                     QStringLiteral("2002"),
                     QStringLiteral("2003"),
                     QStringLiteral("Loi"),
                     QStringLiteral("17"),
                     255};
    EXPECT_EQ(corpus.document(decoupecle(u"CO000001")), une);
    EXPECT_EQ(corpus.document(decoupecle(u"CO000002")), Notice()) << "Null everywhere";
    for (const QStringView absente : {u"CO000003", u"EU000001", u"CO", u"", u"CO00000100"})
        EXPECT_EQ(corpus.document(decoupecle(absente)), std::nullopt) << absente.toString().toStdString();
}

TEST_F(CorpusTest, ABodyAndARowAreFoundWhateverStoodInTheTableBefore) {
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    const Cle cle = decoupecle(u"CO000002");
    corpus.donnees().setIndex(QStringLiteral("icattitre"));
    EXPECT_EQ(corpus.corps(cle), QByteArray("{\\rtf1 x}"));
    EXPECT_EQ(corpus.donnees().index(), u"primarykey");
    corpus.donnees().setIndex(QStringLiteral("idate"));
    const Recordset* rangee = corpus.rangee(cle);
    ASSERT_NE(rangee, nullptr);
    EXPECT_EQ(rangee->text(QStringLiteral("numart")), u"000002");
    EXPECT_EQ(corpus.corps(decoupecle(u"CO000009")), std::nullopt);
    EXPECT_EQ(corpus.rangee(decoupecle(u"CO000009")), nullptr);
}

TEST_F(CorpusTest, AnUnopenedCorpusIsARunTimeError) {
    const test::GardeArret garde;
    EXPECT_THROW(corpus.donnees(), test::Arret);
    EXPECT_THROW(corpus.base(), test::Arret);
}

TEST_F(CorpusTest, TheKeywordTableStandsOnItsPrimaryKeyFromTheOpeningOn) {
    ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(corpus.motcles().index(), u"primarykey");
}
