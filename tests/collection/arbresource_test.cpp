#include "collection/arbresource.h"

#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A node of the first collection, labelled by its number.
Noeud noeud(qint64 numero, qint64 parent, int collection = 0) {
    return {numero, parent, collection, 0, u"noeud %1"_s.arg(numero)};
}

ArbreSource arbre(const std::vector<Noeud>& noeuds) {
    ArbreSource fait;
    qint64 ligne = 10;
    for (const Noeud& n : noeuds)
        EXPECT_TRUE(fait.ajoute(n, ++ligne));
    return fait;
}

std::vector<Texte> genres(const Problemes& problemes) {
    std::vector<Texte> textes;
    for (const Probleme& p : problemes)
        textes.push_back(p.texte);
    return textes;
}

} // namespace

TEST(ArbreSource, ANumberComesOnce) {
    ArbreSource a = arbre({noeud(7, 0)});
    EXPECT_FALSE(a.ajoute({7, 0, 3, 0, u"autre"_s}, 20));
    ASSERT_EQ(a.noeuds().size(), 1U);
    EXPECT_EQ(a.trouve(7)->libelle, u"noeud 7");
    EXPECT_EQ(a.trouve(8), nullptr);
    EXPECT_TRUE(a.aunebranche(0));
    EXPECT_FALSE(a.aunebranche(3));
}

TEST(ArbreSource, TheHeadOfABranchIsTheFirstWithoutParent) {
    const ArbreSource a = arbre({noeud(3, 2), noeud(1, 0), noeud(2, 1), noeud(9, 88)});
    EXPECT_EQ(a.libelledetete(3), u"noeud 1");
    EXPECT_EQ(a.libelledetete(1), u"noeud 1");
    EXPECT_EQ(a.libelledetete(9), u"noeud 9") << "its parent is missing";
    EXPECT_EQ(a.libelledetete(4), QString());
}

TEST(ArbreSource, ParentsThatGoRoundEndTheSearchOfTheHead) {
    EXPECT_FALSE(arbre({noeud(1, 2), noeud(2, 1)}).libelledetete(1).isEmpty());
}

TEST(ArbreSource, AWholeTreeHasNoProblem) {
    EXPECT_TRUE(arbre({noeud(3, 2), noeud(1, 0), noeud(2, 1), noeud(5, 0, 4), noeud(6, 5, 4)}).verifie(u"f"_s).empty());
}

TEST(ArbreSource, ProblemsTellTheirFileAndLine) {
    const Problemes problemes = arbre({noeud(1, 0), noeud(2, 40), noeud(3, 1, 5)}).verifie(u"arbre"_s);
    ASSERT_EQ(genres(problemes), (std::vector<Texte>{Texte::ParentAbsent, Texte::AutreCollection}));
    EXPECT_EQ(problemes[0].fichier, u"arbre");
    EXPECT_EQ(problemes[0].ligne, 12);
    EXPECT_EQ(problemes[0].arguments, QStringList{u"40"_s});
    EXPECT_EQ(problemes[1].ligne, 13);
    EXPECT_EQ(problemes[1].arguments, (QStringList{u"1"_s, typedindice(0)}));
    EXPECT_FALSE(problemes[0].avertissement);
}

TEST(ArbreSource, EachCircleIsToldOnceWhereverItIsEntered) {
    const Problemes problemes =
        arbre({noeud(5, 1), noeud(1, 2), noeud(2, 3), noeud(3, 1), noeud(9, 9)}).verifie(u"f"_s);
    EXPECT_EQ(genres(problemes), (std::vector<Texte>{Texte::NoeudsEnBoucle, Texte::NoeudsEnBoucle}));
    EXPECT_EQ(problemes[0].arguments, QStringList{u"3"_s}) << "the one whose parent was met before";
    EXPECT_EQ(problemes[1].arguments, QStringList{u"9"_s});
}

TEST(ArbreSource, AChainOfTenIsNotTooDeepAndOneOfElevenIsToldOnce) {
    std::vector<Noeud> chaine;
    for (int n = 1; n <= 10; ++n)
        chaine.push_back(noeud(n, n - 1));
    EXPECT_TRUE(arbre(chaine).verifie(u"f"_s).empty());
    chaine.push_back(noeud(11, 10));
    chaine.push_back(noeud(12, 11));
    std::reverse(chaine.begin(), chaine.end());
    const Problemes problemes = arbre(chaine).verifie(u"f"_s);
    ASSERT_EQ(genres(problemes), std::vector<Texte>{Texte::NumeroHorsLimites});
    EXPECT_EQ(problemes[0].arguments, QStringList{u"11"_s});
    EXPECT_EQ(problemes[0].ligne, 12) << "of the eleventh";
}

} // namespace velm
