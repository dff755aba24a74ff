// The rows of the grids of links and correlates.
#include "base_support.h"
#include "document/liens.h"

namespace velm::test {
namespace {

class GrillesLiens : public BaseDocument {
protected:
    void SetUp() override {
        BaseDocument::SetUp();
        documents = {{u"CO000001"_s, u"Un"_s}, {u"CO000002"_s, u"Deux"_s}, {u"EU000001"_s, u"Directive"_s}};
        liens = {{u"CO000001"_s, u"EU000001"_s}, {u"CO000001"_s, u"EU000009"_s}, {u"CO000001"_s, u"CO000002"_s},
                 {u"CO000001"_s, u"EU000001"_s}, {u"CO000002"_s, u"EU000001"_s}, {u"LT000007"_s, u"EU000001"_s},
                 {u"LT000007"_s, u"XX000001"_s}};
    }
};

TEST_F(GrillesLiens, TheLinksOfADocumentAreListedOnceEach) {
    ouvre();
    const std::vector<LigneLien> attendues = {{u"EU"_s, u"Directive"_s, decoupecle(u"EU000001"_s)},
                                              {u"CO"_s, u"Deux"_s, decoupecle(u"CO000002"_s)}};
    EXPECT_EQ(chargeliens(corpus, decoupecle(u"CO000001"_s)), attendues);
}

TEST_F(GrillesLiens, ALinkToAnAbsentDocumentIsSkippedAndTheNextOneIsShown) {
    liens.insert(liens.begin(), {u"CO000001"_s, u"JP000404"_s});
    ouvre();
    EXPECT_EQ(chargeliens(corpus, decoupecle(u"CO000001"_s)).size(), 2U);
    EXPECT_TRUE(chargeliens(corpus, decoupecle(u"LT000007"_s)).size() == 1U);
}

TEST_F(GrillesLiens, CorrelatesListWhatCitesTheDocument) {
    ouvre();
    const std::vector<LigneLien> attendues = {{u"CO"_s, u"Un"_s, decoupecle(u"CO000001"_s)},
                                              {u"CO"_s, u"Deux"_s, decoupecle(u"CO000002"_s)}};
    EXPECT_EQ(chargecorrelats(corpus, decoupecle(u"EU000001"_s)), attendues);
    EXPECT_TRUE(chargecorrelats(corpus, decoupecle(u"CO000001"_s)).empty());
}

TEST_F(GrillesLiens, TheyAreCountedWithoutBeingRead) {
    ouvre();
    for (const QString& cle : {u"CO000001"_s, u"CO000002"_s, u"EU000001"_s, u"LT000007"_s, u"ZZ999999"_s, u"CO"_s}) {
        const Cle celle = decoupecle(cle);
        EXPECT_EQ(nombredeliens(corpus, celle), static_cast<int>(chargeliens(corpus, celle).size()));
        EXPECT_EQ(nombredecorrelats(corpus, celle), static_cast<int>(chargecorrelats(corpus, celle).size()));
    }
    EXPECT_EQ(nombredeliens(corpus, {}), std::nullopt);
    corpus.fermebase();
    EXPECT_EQ(nombredeliens(corpus, decoupecle(u"CO000001"_s)), std::nullopt);
}

TEST_F(GrillesLiens, AnEmptyKeyFillsNothing) {
    ouvre();
    EXPECT_TRUE(chargeliens(corpus, {}).empty());
    EXPECT_TRUE(chargecorrelats(corpus, {}).empty());
}

TEST_F(GrillesLiens, ADocumentWithoutRowsHasAnEmptyList) {
    ouvre();
    EXPECT_TRUE(chargeliens(corpus, decoupecle(u"EU000001"_s)).empty());
    for (const QString& cle : {u"ZZ999999"_s, u"C"_s, u"CO"_s, u"CO00000100"_s})
        EXPECT_TRUE(chargeliens(corpus, decoupecle(cle)).empty()) << cle.toStdString();
}

TEST_F(GrillesLiens, ABaseWithoutLinksHasEmptyLists) {
    liens.clear();
    ouvre();
    EXPECT_TRUE(chargeliens(corpus, decoupecle(u"CO000001"_s)).empty());
    EXPECT_TRUE(chargecorrelats(corpus, decoupecle(u"CO000001"_s)).empty());
}

TEST_F(GrillesLiens, ALongListIsWhole) {
    constexpr int nombre = 3'000;
    for (int i = 1; i <= nombre; ++i) {
        documents.push_back({u"JP"_s + QString::number(i).rightJustified(6, u'0'), u"Arrêt %1"_s.arg(i)});
        for (int fois = 0; fois < 2; ++fois)
            liens.push_back({u"EU000001"_s, documents.back().cle});
    }
    ouvre();
    const auto lignes = chargeliens(corpus, decoupecle(u"EU000001"_s));
    ASSERT_EQ(static_cast<int>(lignes.size()), nombre);
    EXPECT_EQ(lignes.back(), (LigneLien{u"JP"_s, u"Arrêt 3000"_s, decoupecle(u"JP003000"_s)}));
}

} // namespace
} // namespace velm::test
