#include "search/rechercheimmediate.h"
#include "tests/search/recherche_support.h"

using namespace velm;
using namespace velm::test;

namespace {

class RechercheImmediateTest : public BaseRecherche {
protected:
    struct Dit {
        QStringList cles;
        bool finie;
        friend bool operator==(const Dit&, const Dit&) = default;
    };
    void note(const Resultat& resultat, bool finie) {
        Dit dit{{}, finie};
        for (int rang = 1; rang <= resultat.lignes.nombre(); ++rang)
            dit.cles << resultat.lignes.cle(rang);
        dits.push_back(dit);
        total = resultat.total;
    }
    /// Turns at each step.
    RechercheImmediate tournante(std::function<void()> evenements) {
        return RechercheImmediate(
            corpus, std::move(evenements), [this](const Resultat& r, bool finie) { note(r, finie); },
            std::chrono::milliseconds(0));
    }

    std::vector<Dit> dits;
    std::optional<qint64> total; ///< as it was told last
};

} // namespace

TEST_F(RechercheImmediateTest, AllCollectionsAreSearchedUpToTheLimit) {
    documents = {{u"CO000001"_s, u"Garantie"_s}, {u"EU000001"_s, u"La garantie"_s}, {u"DI000001"_s, u"garantie"_s}};
    ouvre();
    RechercheImmediate recherche(corpus, {}, [this](const Resultat& r, bool finie) { note(r, finie); });
    recherche.cherche(u"garantie"_s, 10);
    ASSERT_FALSE(dits.empty());
    EXPECT_EQ(dits.back(), (Dit{{u"CO000001"_s, u"EU000001"_s, u"DI000001"_s}, true}));
    recherche.cherche(u"garantie"_s, 2);
    EXPECT_EQ(dits.back(), (Dit{{u"CO000001"_s, u"EU000001"_s}, true}));
    EXPECT_EQ(total, 3) << "how many there are";
    recherche.cherche(u"nulle part"_s, 2);
    EXPECT_EQ(dits.back(), (Dit{{}, true}));
}

TEST_F(RechercheImmediateTest, RowsAreToldAsTheyAreFoundAndOnlyThen) {
    documents = {{u"CO000001"_s, u"oui"_s},
                 {u"CO000002"_s, u"non"_s},
                 {u"CO000003"_s, u"non"_s},
                 {u"CO000004"_s, u"oui"_s},
                 {u"CO000005"_s, u"non"_s}};
    ouvre();
    RechercheImmediate recherche = tournante({});
    recherche.cherche(u"oui"_s, 10);
    EXPECT_EQ(dits, (std::vector<Dit>{{{u"CO000001"_s}, false},
                                      {{u"CO000001"_s, u"CO000004"_s}, false},
                                      {{u"CO000001"_s, u"CO000004"_s}, true}}));
}

TEST_F(RechercheImmediateTest, ANewTextStopsTheOneBefore) {
    ajoutedocuments(20);
    documents.push_back({u"DI000001"_s, u"autre"_s});
    ouvre();
    RechercheImmediate* celle = nullptr;
    bool demandee = false;
    RechercheImmediate recherche = tournante([&] {
        if (!std::exchange(demandee, true))
            celle->cherche(u"autre"_s, 10);
    });
    celle = &recherche;
    recherche.cherche(u"Titre"_s, 100);
    ASSERT_FALSE(dits.empty());
    EXPECT_EQ(dits.back(), (Dit{{u"DI000001"_s}, true}));
    EXPECT_EQ(std::ranges::count(dits, true, &Dit::finie), 1) << "nothing more is told of what was stopped";
}

TEST_F(RechercheImmediateTest, AStoppedSearchTouchesTheBaseNoMore) {
    ajoutedocuments(20);
    ouvre();
    RechercheImmediate* celle = nullptr;
    RechercheImmediate recherche = tournante([&] {
        celle->arrete();
        corpus.fermebase();
    });
    celle = &recherche;
    recherche.cherche(u"Titre"_s, 100);
    EXPECT_EQ(std::ranges::count(dits, true, &Dit::finie), 0);
}
