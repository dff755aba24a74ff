// Rows of documents, without a list around them.
#include "search/lignes.h"
#include "tests/support/narrow_space.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class LignesTest : public testing::Test {
protected:
    bool ajoute(const QString& titre) { return lignes.ajoute({u"CO", u"000001", titre, u"a", u"", u"c", u"CO000001"}); }
    QStringList titres() const {
        QStringList tous;
        for (int rang = 1; rang <= lignes.nombre(); ++rang)
            tous << lignes.champ(rang, Lignes::Titre);
        return tous;
    }
    void ajoutetous(const QStringList& voulus) {
        for (const QString& titre : voulus)
            ASSERT_TRUE(ajoute(titre));
    }
    Lignes lignes;
};

} // namespace

TEST_F(LignesTest, EachFieldStandsUnderItsName) {
    ajoutetous({u"avant"_s});
    lignes.ajoute({u"EU", u"000002", u"Titre", u"un", u"deux", u"trois", u"EU000002"});
    const std::pair<Lignes::Champ, QString> champs[] = {{Lignes::Titre, u"Titre"_s},   {Lignes::Motcle1, u"un"_s},
                                                        {Lignes::Motcle2, u"deux"_s},  {Lignes::Motcle3, u"trois"_s},
                                                        {Lignes::Numart, u"000002"_s}, {Lignes::Reference, u"EU"_s},
                                                        {Lignes::Clef, u"EU000002"_s}};
    for (const auto& [champ, texte] : champs)
        EXPECT_EQ(lignes.champ(2, champ), texte);
    EXPECT_EQ(lignes.cle(2), u"EU000002");
    EXPECT_EQ(lignes.champ(1, Lignes::Motcle2), QString());
}

TEST_F(LignesTest, RowsAndFieldsThatAreNoneAreEmpty) {
    ajoutetous({u"un"_s});
    for (const int rang : {-1, 0, 2})
        EXPECT_TRUE(lignes.cle(rang).isEmpty());
    EXPECT_TRUE(lignes.champ(1, static_cast<Lignes::Champ>(-1)).isEmpty());
    EXPECT_TRUE(lignes.champ(1, static_cast<Lignes::Champ>(Lignes::Clef + 1)).isEmpty());
}

TEST_F(LignesTest, NoMoreRowsAreTakenThanTheLimit) {
    lignes.limite(2);
    ajoutetous({u"a"_s, u"b"_s});
    EXPECT_FALSE(ajoute(u"c"_s));
    EXPECT_EQ(titres(), (QStringList{u"a"_s, u"b"_s}));
    lignes.supprime({1});
    EXPECT_TRUE(ajoute(u"d"_s));
}

TEST_F(LignesTest, ARowThatTheMemoryDoesNotSufficeForLeavesTheOthersAsTheyWere) {
#ifdef VELM_ADDRESS_SANITIZER
    GTEST_SKIP() << "the sanitizer needs room of its own";
#endif
    ajoutetous({u"a"_s, u"b"_s});
    const QString longue(40'000'000, u'x');
    {
        const NarrowSpace peu(10'000'000);
        EXPECT_FALSE(ajoute(longue));
    }
    EXPECT_EQ(titres(), (QStringList{u"a"_s, u"b"_s}));
    ajoutetous({u"c"_s});
    EXPECT_EQ(titres(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

TEST_F(LignesTest, RemovedRowsLeaveTheirPlaceToThoseBelow) {
    ajoutetous({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    lignes.supprime({1, 4});
    EXPECT_EQ(titres(), (QStringList{u"b"_s, u"c"_s, u"e"_s}));
    lignes.supprime(2, 3);
    EXPECT_EQ(titres(), QStringList{u"b"_s});
    lignes.supprime(1, 1);
    EXPECT_EQ(lignes.nombre(), 0);
    ajoutetous({u"f"_s});
    EXPECT_EQ(titres(), QStringList{u"f"_s});
}

TEST_F(LignesTest, AnotherOrderNamesThePresentPlaces) {
    ajoutetous({u"a"_s, u"b"_s, u"c"_s});
    lignes.range({2, 0, 1});
    EXPECT_EQ(titres(), (QStringList{u"c"_s, u"a"_s, u"b"_s}));
    lignes.range({2, 0, 1});
    EXPECT_EQ(titres(), (QStringList{u"b"_s, u"c"_s, u"a"_s}));
    lignes.supprime({2});
    EXPECT_EQ(titres(), (QStringList{u"b"_s, u"a"_s}));
}

TEST_F(LignesTest, ACopyIsAValueOfItsOwn) {
    ajoutetous({u"a"_s, u"b"_s});
    const Lignes copie = lignes;
    lignes.vide();
    EXPECT_EQ(lignes.nombre(), 0);
    EXPECT_EQ(copie.nombre(), 2);
    EXPECT_EQ(copie.champ(2, Lignes::Titre), u"b");
}
