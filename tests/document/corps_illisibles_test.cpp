// Bodies that cannot be read while a document is shown: an included one is passed over, and where the memory does not
// suffice nothing is left of the document.
#include "core/schemas.h"
#include "document/affichage.h"
#include "document_support.h"
#include "fenetre_document.h"
#include "tests/support/arret.h"
#include "tests/support/little_memory.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class CorpsIllisibles : public testing::Test {
protected:
    static constexpr qsizetype longueur = 60'000;

    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        const auto base = Database::create(chemin(), corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter documents(*base.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
        const auto ajoute = [&documents](const QString& code, const QString& numero, const QString& texte) {
            ASSERT_TRUE(documents.add({code, numero, u"Titre"_s, rtfde(texte)}));
        };
        ajoute(u"CO"_s, u"000001"_s, u"avant {I=GL000002}|{I=GL000003} après {L=lien|CO000001}"_s);
        ajoute(u"GL"_s, u"000002"_s, QString(longueur, u'#'));
        ajoute(u"GL"_s, u"000003"_s, u"inclus"_s);
    }

    QString chemin() const { return dossier_.filePath(u"velm2000.dat"_s); }

    /// Breaks the chain of pages that the long included body lies in.
    void abime() {
        constexpr qsizetype page = 4096;
        QFile fichier(chemin());
        ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
        const QByteArray octets = fichier.readAll();
        int abimees = 0;
        for (qsizetype debut = 0; debut + page <= octets.size(); debut += page) {
            if (octets.mid(debut + 4, page - 4) != QByteArray(page - 4, '#'))
                continue;
            fichier.seek(debut);
            fichier.write("\x7F\xFF\xFF\xF0");
            ++abimees;
        }
        ASSERT_GT(abimees, 5);
    }

    /// One whose body is many times as long.
    void ajoutelong() const {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter documents(*base.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
        ASSERT_TRUE(documents.add({u"TA"_s, u"000004"_s, u"Titre"_s, rtfde(QString(200 * longueur, u'x'))}));
    }

    void ouvre() {
        ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
        corpus.ouvretables();
    }

    void affiche(const QString& code, const QString& numero) {
        affichedocument(fenetre, {code, numero}, false, {},
                        {corpus, styles, sablier, [](int) { return u"Collection"_s; }, {}});
    }

    QTemporaryDir dossier_;
    Corpus corpus;
    SablierMuet sablier;
    TableStyles styles = stylesdessai();
    FenetreDeDocument fenetre;
};

} // namespace

TEST_F(CorpsIllisibles, AnIncludedBodyThatCannotBeReadIsPassedOver) {
    abime();
    ouvre();
    const GardeArret garde;
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.controle.text(), u"avant |inclus après lien"_s);
    EXPECT_EQ(fenetre.liens.Listehyperlien, QStringList{u"CO000001"_s});
    EXPECT_EQ(corpus.donnees().index(), u"primarykey"_s);
}

TEST_F(CorpsIllisibles, ADocumentThatCannotBeReadItselfIsARunTimeError) {
    abime();
    ouvre();
    const GardeArret garde;
    EXPECT_THROW(affiche(u"GL"_s, u"000002"_s), Arret);
}

TEST_F(CorpsIllisibles, WhereTheMemoryDoesNotSufficeNothingIsLeftOfTheDocument) {
    ajoutelong();
    ouvre();
    const GardeArret garde;
    affiche(u"CO"_s, u"000001"_s);
    ASSERT_FALSE(fenetre.liens.Listehyperlien.isEmpty());
    {
        const LittleMemory peu;
        EXPECT_THROW(affiche(u"TA"_s, u"000004"_s), std::bad_alloc);
    }
    EXPECT_EQ(fenetre.controle.text(), QString());
    EXPECT_EQ(fenetre.liens, ListesLiens());
    EXPECT_TRUE(fenetre.controle.redraw());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
    // The next one is shown as ever.
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_TRUE(fenetre.controle.text().endsWith(u"|inclus après lien"_s));
    affiche(u"TA"_s, u"000004"_s);
    EXPECT_EQ(fenetre.controle.text().size(), 200 * longueur);
}

} // namespace velm::test
