// What everybody may expect of the base that all share: how it was opened, and that nobody disturbs the others.
#include "core/schemas.h"
#include "tests/shell/logique/seance_support.h"
#include "tests/support/arret.h"
#include "tests/support/without_rights.h"

#include <QFile>

using namespace velm;

namespace {

constexpr auto lecture = QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther |
                         QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;
constexpr auto ecriture = QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther;

class CorpusPartage : public velm::test::SeanceTest {
protected:
    void SetUp() override {
        SeanceTest::SetUp();
        ASSERT_TRUE(QFile::setPermissions(dossier_.path(), lecture | ecriture));
        const auto base = Database::open(chemin("velm2000.dat"), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter documents(*base.database, QStringLiteral("données"),
                              {QStringLiteral("référence"), QStringLiteral("numart"), QStringLiteral("titre")});
        for (const auto& [code, numero, titre] :
             {std::tuple("CO", "000001", "Zèbre"), std::tuple("CO", "000002", "Âne"),
              std::tuple("JP", "000001", "Mouton")})
            ASSERT_TRUE(documents.add({QString::fromUtf8(code), QString::fromUtf8(numero), QString::fromUtf8(titre)}));
    }
    void TearDown() override { QFile::setPermissions(dossier_.path(), lecture | ecriture); }

    static QString cle(const Recordset& rs) {
        return rs.text(QStringLiteral("référence")) + rs.text(QStringLiteral("numart"));
    }
};

} // namespace

TEST_F(CorpusPartage, AReadOnlyBaseOpensAtTheSecondAttemptWithoutAMessage) {
    // The user's settings lie elsewhere than the base, which no one may write.
    ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("cd")));
    ASSERT_TRUE(QFile::rename(chemin("velm2000.dat"), chemin("cd/velm2000.dat")));
    stocke("BASE", "CHEMIN", chemin("cd"));
    ASSERT_TRUE(QFile::setPermissions(chemin("cd/velm2000.dat"), lecture));
    ASSERT_TRUE(QFile::setPermissions(chemin("cd"), lecture));
    {
        const test::WithoutRights personne;
        EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
        EXPECT_FALSE(corpus.updatable());
        EXPECT_EQ(corpus.donnees().recordCount(), 3);
    }
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_FALSE(ecrans.a(QStringLiteral("connexion")));
    EXPECT_EQ(lu("BASE", "CHEMIN"), chemin("cd") + u'/');
    QFile::setPermissions(chemin("cd"), lecture | ecriture);
}

TEST_F(CorpusPartage, TheBaseDirectoryIsWrittenWhicheverAttemptSucceeds) {
    EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
    EXPECT_TRUE(corpus.updatable());
    EXPECT_EQ(lu("BASE", "CHEMIN"), dossier_.path() + u'/');
    corpus.fermebase();
    stocke("BASE", "CHEMIN", QString());
    ASSERT_TRUE(QFile::setPermissions(chemin("velm2000.dat"), lecture));
    oublie();
    {
        const test::WithoutRights personne;
        EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
        EXPECT_FALSE(corpus.updatable());
    }
    EXPECT_EQ(reglages.getsetting(QStringLiteral("BASE"), QStringLiteral("CHEMIN")), dossier_.path());
}

TEST_F(CorpusPartage, AnIndexChosenByOneReaderDoesNotDisturbAnotherThatSetsItsOwn) {
    ASSERT_EQ(corpus.connecte(chemin("velm2000.dat")), OpenError::None);
    corpus.ouvretables();
    Recordset& rs = corpus.donnees();
    const auto ouvre = [&](const char* code, const char* numero) {
        rs.setIndex(QStringLiteral("primarykey"));
        rs.seek(Seek::Equal, QString::fromUtf8(code), QString::fromUtf8(numero));
        return rs.noMatch() ? QString() : rs.text(QStringLiteral("titre"));
    };
    EXPECT_EQ(ouvre("CO", "000001"), u"Zèbre");
    // A list walks by title and leaves its index and its row behind.
    rs.setIndex(QStringLiteral("icattitre"));
    rs.moveFirst();
    EXPECT_EQ(cle(rs), u"CO000002");
    EXPECT_EQ(ouvre("JP", "000001"), u"Mouton");
    EXPECT_EQ(ouvre("CO", "000009"), QString());
    EXPECT_EQ(ouvre("CO", "000002"), u"Âne");
}

TEST_F(CorpusPartage, TheLinksAreLeftToTheClosingOfTheBase) {
    ASSERT_EQ(corpus.connecte(chemin("velm2000.dat")), OpenError::None);
    corpus.ouvretables();
    Recordset& liens = corpus.liens();
    EXPECT_TRUE(liens.usable());
    corpus.fermebase();
    // Closed with the base all the same: nothing keeps the file open.
    EXPECT_TRUE(QFile::remove(chemin("velm2000.dat")));
    const test::GardeArret garde;
    EXPECT_THROW(corpus.liens(), test::Arret);
}

TEST_F(CorpusPartage, EveryTableCanBeMissingAndFailsOnlyWhereItIsUsed) {
    const struct {
        const char* nom;
        Recordset& (Corpus::*table)() const;
    } tables[] = {
        {"données", &Corpus::donnees}, {"arborescences", &Corpus::arborescences}, {"paramètres", &Corpus::parametres},
        {"motclés", &Corpus::motcles}, {"typedocument", &Corpus::typedocument},   {"liens", &Corpus::liens},
        {"dico", &Corpus::dico},       {"generelien", &Corpus::generelien}};
    for (const auto& une : tables) {
        SCOPED_TRACE(une.nom);
        ASSERT_TRUE(QFile::remove(chemin("velm2000.dat")));
        {
            const auto base = Database::create(chemin("velm2000.dat"), corpusSchema());
            ASSERT_NE(base.database, nullptr);
            ASSERT_TRUE(base.database->execute(QStringLiteral("DROP TABLE \"%1\"").arg(QString::fromUtf8(une.nom))));
        }
        ASSERT_EQ(corpus.connecte(chemin("velm2000.dat")), OpenError::None);
        corpus.ouvretables();
        const test::GardeArret garde;
        for (const auto& presente : tables) {
            if (&presente != &une) {
                EXPECT_EQ((corpus.*presente.table)().recordCount(), 0) << presente.nom;
            }
        }
        EXPECT_THROW((corpus.*une.table)().moveFirst(), test::Arret);
        corpus.fermebase();
    }
}
