// Files of dossiers: their lines, both ways, and what comes into the store.
#include "dossiers/echangedossiers.h"
#include "gestion_banc.h"

namespace velm::test {
namespace {

const QByteArray entete = "VELMORante 2000 - DV2\r\n";
const QByteArray deux =
    entete + "Baux d'habitation\r\nCO000001 1\r\nArticle un\r\nEU000002 7 1204 310P\r\nDirective [extrait]\r\n";

TEST(FichierDossier, HoldsItsSignatureTheNameAndPairs) {
    const FichierDossier fichier{
        u"Baux d'habitation"_s,
        {{u"CO000001 1"_s, u"Article un"_s}, {u"EU000002 7 1204 310P"_s, u"Directive [extrait]"_s}}};
    EXPECT_EQ(ecritfichierdossier(fichier), deux);
    EXPECT_EQ(litfichierdossier(deux), fichier);
    EXPECT_EQ(ecritfichierdossier({}), entete + "\r\n");
}

TEST(FichierDossier, AccentedNamesReadBackUnchanged) {
    const FichierDossier fichier{u"Été – « œuvre » à 5 €"_s, {{u"CO000001 1"_s, u"Délai de rétractation’"_s}}};
    EXPECT_EQ(litfichierdossier(ecritfichierdossier(fichier)), fichier);
}

TEST(FichierDossier, ALineBreakInATitleDoesNotPartThePairs) {
    const auto lu =
        litfichierdossier(ecritfichierdossier({u"n"_s, {{u"CO000001 1"_s, u"a\r\nb"_s}, {u"k"_s, u"c"_s}}}));
    ASSERT_TRUE(lu);
    ASSERT_EQ(lu->elements.size(), 2U);
    EXPECT_EQ(lu->elements[0].second, u"a b");
}

TEST(FichierDossier, AnotherFirstLineIsNone) {
    EXPECT_FALSE(litfichierdossier(""));
    EXPECT_FALSE(litfichierdossier("VELMORante 2000 - CV2\r\n"));
    EXPECT_FALSE(litfichierdossier("VELMORante 2000 - DV2 \r\n"));
    EXPECT_FALSE(litfichierdossier("\0VELMORante 2000 - DV2\r\n"));
}

TEST(FichierDossier, EndsBehindAnyOfItsLines) {
    const QList<QByteArray> lignes{"VELMORante 2000 - DV2", "nom", "CO000001 1", "un", "CO000002 2", "deux"};
    for (qsizetype n = 1; n <= lignes.size(); ++n) {
        const QByteArray octets = QByteArrayList(lignes.first(n)).join("\r\n");
        for (const QByteArray& fin : {QByteArray(), QByteArray("\r\n"), QByteArray("\r")}) {
            const auto lu = litfichierdossier(octets + fin);
            ASSERT_TRUE(lu) << n;
            EXPECT_EQ(lu->nom, n > 1 ? u"nom"_s : QString());
            EXPECT_EQ(lu->elements.size(), static_cast<std::size_t>(n < 2 ? 0 : (n - 2) / 2));
            EXPECT_EQ(lu->interrompu, n > 2 && n % 2 == 1);
        }
    }
}

TEST(FichierDossier, LoneEndsOfLinesAndZeroBytesAreTakenAsTheyCome) {
    const auto lu = litfichierdossier(QByteArrayView("VELMORante 2000 - DV2\na\0b\rk\nt\r\n", 31));
    ASSERT_TRUE(lu);
    EXPECT_EQ(lu->nom, u"a\0b"_s);
    EXPECT_EQ(lu->elements, (ContenuDossier::Paires{{u"k"_s, u"t"_s}}));
}

class FichierTest : public GestionTest {
protected:
    EchangeDossiers echange{gestion};

    int importe(const QByteArray& octets) {
        const auto lu = litfichierdossier(octets);
        EXPECT_TRUE(lu && echange.importe(*lu));
        return noeuds.selected();
    }
    std::vector<RangeeElement> elementsde(qint64 dossier) {
        std::vector<RangeeElement> siens;
        for (const RangeeElement& r : elements()) {
            if (r.dossier == dossier)
                siens.push_back(r);
        }
        return siens;
    }
};

TEST_F(FichierTest, TheSelectedDossierIsWrittenWithoutItsCount) {
    clique(1);
    EXPECT_EQ(ecritfichierdossier(echange.fichier()),
              entete + "Baux\r\nCO000001 1\r\nArticle un\r\nEU000002 2 1204 310P\r\nDirective [extrait]\r\n");
}

TEST_F(FichierTest, IsReadAsANewDossierUnderTheRootWithNumbersOfItsOwn) {
    const int neuf = importe(deux);
    EXPECT_EQ(noeuds.parent(neuf), racine());
    EXPECT_EQ(noeuds.text(neuf), u"Baux d'habitation [2]");
    EXPECT_EQ(noeuds.key(neuf), u"X  5");
    EXPECT_TRUE(noeuds.tag(neuf).startsWith(u"+A"));
    EXPECT_EQ(elementsde(5), (std::vector<RangeeElement>{{5, 1, u"CO000001"_s, u"Article un"_s, 0, 0},
                                                         {5, 2, u"EU000002"_s, u"Directive [extrait]"_s, 1204, 310}}));
    EXPECT_EQ(elementsdeliste.key(2), u"EU000002 7 1204 310P") << "the number of its origin";
    EXPECT_EQ(vue.commandes.contenu, true);
    gestion.noeudclique(neuf);
    EXPECT_EQ(elementsdeliste.key(2), u"EU000002 2 1204 310P");
    EXPECT_EQ(elementsdeliste.text(2), u"Directive [extrait] [extrait]") << "its word is doubled";
}

TEST_F(FichierTest, HasItsRowBeforeTheTreeIsSaved) {
    importe(deux);
    EXPECT_EQ(nomenregistre(5), u"Baux d'habitation/0");
    EXPECT_TRUE(gestion.enregistre());
    EXPECT_EQ(nomenregistre(5), u"Baux d'habitation/2");
    EXPECT_EQ(dossiers().size(), 5U) << "and no second one";
}

TEST_F(FichierTest, OfTwoLinesGivesAnEmptyDossier) {
    const int neuf = importe(entete + "Vide\r\n");
    EXPECT_EQ(noeuds.text(neuf), u"Vide");
    EXPECT_EQ(elementsdeliste.count(), 0);
    EXPECT_FALSE(vue.commandes.contenu);
}

TEST_F(FichierTest, ReadTwiceGivesTwoDossiers) {
    const int un = importe(deux);
    const int autre = importe(deux);
    EXPECT_NE(un, autre);
    EXPECT_EQ(noeuds.text(un), noeuds.text(autre));
    EXPECT_EQ(elementsde(6).size(), 2U);
}

TEST_F(FichierTest, ThatEndsBehindAKeyStopsThereAndIsNotCounted) {
    const int neuf = importe(entete + "Court\r\nCO000001 1\r\nun\r\nCO000002 2\r\n");
    EXPECT_EQ(noeuds.text(neuf), u"Court");
    EXPECT_EQ(elementsde(5).size(), 1U);
}

TEST_F(FichierTest, KeysOfAnyShapeComeInAsTheyAre) {
    importe(entete + "n\r\n\r\nvide\r\nP\r\np\r\nCO\r\ncode\r\nCO0000012345P\r\nlong\r\nCO000001 9 x yP\r\nmots\r\n"
                     "CO000001 1 99999999999999999999 -5P\r\nloin\r\nk\r\nun\r\nk\r\nencore\r\n");
    EXPECT_EQ(elementsde(5).size(), 8U) << "none is lost, not even those of equal keys";
}

TEST_F(FichierTest, ThatCannotBeStoredLeavesNothing) {
    const auto avant = dossiers();
    magasin.dbdossiers().execute(u"PRAGMA query_only=ON"_s);
    EXPECT_FALSE(echange.importe(*litfichierdossier(deux)));
    magasin.dbdossiers().execute(u"PRAGMA query_only=OFF"_s);
    EXPECT_EQ(dialogues.messages.size(), 1U);
    EXPECT_EQ(dossiers(), avant);
    EXPECT_EQ(elementsde(5).size(), 0U);
    EXPECT_EQ(noeud(5), 0);
    EXPECT_TRUE(echange.importe(*litfichierdossier(deux)));
}

} // namespace
} // namespace velm::test
