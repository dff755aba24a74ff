// Whole collections: the sample that comes with the program, and the real one where it is at hand.
#include "collection/corps.h"
#include "collection/jetons.h"
#include "collection/source.h"
#include "platform/richtext/rtf.h"
#include "tests/collection/dossier.h"

namespace velm::test {
namespace {

class Collections : public DossierSource {
protected:
    static QString dossier(const QString& chemin) { return QString::fromUtf8(VELM_SOURCE_DIR) + u'/' + chemin; }

    /// What is shown of each stored body is what was indexed.
    static void comparetextes(const QString& source) {
        const SourceDossier collection(source);
        FaiseurDeCorps faiseur(collection);
        CorpsFait corps;
        int differents = 0;
        for (qsizetype i = 0; i < collection.nombre(); ++i) {
            faiseur.fait(i, corps);
            const QString texte = rtfToText(corps.contenu);
            QString montre;
            bool inclut = false;
            for (const Jeton& jeton : decoupejetons(texte)) {
                inclut = inclut || jeton.genre == Jeton::Genre::Inclusion;
                if (jeton.genre == Jeton::Genre::Texte)
                    montre += jeton.texte;
                else if (jeton.genre == Jeton::Genre::SautDePage)
                    montre += u"\r\n"_s;
            }
            differents += !inclut && montre != corps.montre ? 1 : 0;
        }
        EXPECT_EQ(differents, 0);
    }
};

TEST_F(Collections, TheSampleCompilesWithoutAProblem) {
    const QString source = dossier(u"collection/exemple"_s);
    ASSERT_TRUE(QFile::exists(source + u"/documents.jsonl"_s));
    const ResultatCompilation resultat = velm::compile(source, base());
    EXPECT_TRUE(resultat.faite());
    EXPECT_EQ(textes(resultat), QStringList{});
    EXPECT_GE(resultat.comptes.documents, 300);
    for (const qint64 nombre : resultat.comptes.parcollection)
        EXPECT_GT(nombre, 0);
    comparetextes(source);
}

TEST_F(Collections, TheRealCollectionCompiles) {
    const QString source = dossier(u"../shared/corpus"_s);
    if (!QFile::exists(source + u"/documents.jsonl"_s))
        GTEST_SKIP() << "the real collection is not at hand";
    const ResultatCompilation resultat = velm::compile(source, base());
    ASSERT_TRUE(resultat.faite());
    EXPECT_EQ(resultat.erreurs(), 0);
    EXPECT_EQ(resultat.comptes.documents, 18402);
    EXPECT_EQ(resultat.comptes.noeuds, 5656);
    EXPECT_EQ(resultat.comptes.liens, 20466);
    EXPECT_EQ(resultat.comptes.parcollection[2], 0);
    EXPECT_TRUE(ouvre()->check());
    comparetextes(source);
}

} // namespace
} // namespace velm::test
