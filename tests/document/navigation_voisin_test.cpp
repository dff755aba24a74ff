// The neighbours of a document in the order of the titles.
#include "base_support.h"
#include "core/cle.h"
#include "navigation_support.h"

namespace velm::test {
namespace {

class Voisin : public BaseDocument {
protected:
    void SetUp() override {
        BaseDocument::SetUp();
        documents = {{u"CO000001"_s, u"Zone"_s},  {u"CO000002"_s, u"abandon"_s},    {u"CO000003"_s, u"Été"_s},
                     {u"CO000004"_s, u"Étude"_s}, {u"CO000005"_s, u"même titre"_s}, {u"CO000006"_s, u"même titre"_s},
                     {u"AD000001"_s, u"Avant"_s}, {u"DI000009"_s, u"Après"_s},      {u"GL000001"_s, u"seul"_s}};
        ouvre();
        for (const DocumentEssai& document : documents)
            titres[document.cle] = document.titre;
        hote.navigation = &navigation;
    }
    FenetreEssai& fenetre(QStringView code) {
        return static_cast<FenetreEssai&>(*navigation.fenetre(indicedetype(code)));
    }
    void va(QStringView code, bool haut) { navigation.voisin(fenetre(code), code.toString(), haut); }

    QHash<QString, QString> titres;
    HoteEssai hote{titres};
    Navigation navigation{hote, corpus};
};

TEST_F(Voisin, NeighboursFollowTitleOrderAndStopAtTheCollectionsEnds) {
    navigation.navigue(u"TACO000002"_s);
    QStringList chemin{navigation.referencecourante()};
    for (int pas = 0; pas < 5; ++pas) {
        va(u"CO", false);
        chemin << navigation.referencecourante();
        EXPECT_TRUE(fenetre(u"CO").bas);
    }
    EXPECT_EQ(chemin,
              (QStringList{u"CO000002"_s, u"CO000003"_s, u"CO000004"_s, u"CO000005"_s, u"CO000006"_s, u"CO000001"_s}));
    va(u"CO", false);
    EXPECT_EQ(navigation.referencecourante(), u"CO000001"_s);
    EXPECT_FALSE(fenetre(u"CO").bas);
    EXPECT_TRUE(fenetre(u"CO").haut);
    for (int pas = 0; pas < 5; ++pas)
        va(u"CO", true);
    EXPECT_EQ(navigation.referencecourante(), u"CO000002"_s);
}

TEST_F(Voisin, TheButtonOfTheFirstDocumentIsDisabledAndEnabledAgainByTheNextOpen) {
    navigation.navigue(u"TACO000002"_s);
    va(u"CO", true);
    EXPECT_FALSE(fenetre(u"CO").haut);
    EXPECT_TRUE(fenetre(u"CO").bas);
    EXPECT_EQ(navigation.referencecourante(), u"CO000002"_s);
    navigation.navigue(u"TACO000004"_s);
    EXPECT_TRUE(fenetre(u"CO").haut);
}

TEST_F(Voisin, TheEndsOfTheWholeTableAreEndsToo) {
    navigation.navigue(u"TAAD000001"_s);
    va(u"AD", true);
    EXPECT_FALSE(fenetre(u"AD").haut);
    navigation.navigue(u"TAGL000001"_s);
    va(u"GL", true);
    va(u"GL", false);
    EXPECT_FALSE(fenetre(u"GL").haut);
    EXPECT_FALSE(fenetre(u"GL").bas);
    EXPECT_EQ(navigation.referencecourante(), u"GL000001"_s);
}

TEST_F(Voisin, ADocumentThatIsNotInTheBaseHasNoNeighbours) {
    navigation.navigue(u"TACO000003"_s);
    navigation.navigue(u"TACO000999"_s);
    va(u"CO", false);
    EXPECT_FALSE(fenetre(u"CO").bas);
    EXPECT_EQ(navigation.referencecourante(), u"CO000999"_s);
}

TEST_F(Voisin, AWindowWithoutADocumentHasNoNeighbours) {
    navigation.ouvrefenetre(0);
    va(u"CO", true);
    EXPECT_FALSE(fenetre(u"CO").haut);
    EXPECT_TRUE(navigation.referencecourante().isEmpty());
}

TEST_F(Voisin, AStepToANeighbourIsAnOpeningLikeAnyOther) {
    navigation.navigue(u"TACO000003"_s);
    va(u"CO", false);
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000003"_s});
    EXPECT_EQ(navigation.derniersdocuments()[0], u"CO000004"_s);
    EXPECT_FALSE(navigation.prendreplier(0));
}

} // namespace
} // namespace velm::test
