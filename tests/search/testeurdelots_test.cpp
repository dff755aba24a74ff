// The second core of the body search, where memory or threads are missing.
#include "search/testeurdelots.h"
#include "tests/search/criteres_support.h"
#include "tests/support/little_memory.h"
#include "tests/support/narrow_space.h"

#include <new>
#include <pthread.h>

using namespace velm;
using namespace velm::test;

namespace {

class TesteurDeLotsTest : public BaseCriteres {
protected:
    /// Short bodies first, so that the helper is at work when the long ones come.
    void SetUp() override {
        BaseCriteres::SetUp();
        for (int numero = 1; numero <= courts + longs; ++numero) {
            const QString corps = numero <= courts ? u"mot"_s : QString(300'000, u'x') + u" mot"_s;
            pieces.push_back({u"CO"_s + sixchiffres(numero), u"Titre"_s, corps});
        }
        ouvrepieces(false);
        criteres.texterech = {u"mot"_s, QString()};
        criteres.emplacement = {false, true, false};
    }

    static constexpr int courts = 40;
    static constexpr int longs = 40;
};

/// While one lives no thread can be begun: none finds room for its stack.
class NoThreads {
public:
    NoThreads() {
        pthread_getattr_default_np(&before_);
        pthread_attr_t attributes;
        pthread_getattr_default_np(&attributes);
        pthread_attr_setstacksize(&attributes, std::size_t(1) << 47);
        EXPECT_EQ(pthread_setattr_default_np(&attributes), 0);
        pthread_attr_destroy(&attributes);
    }
    ~NoThreads() {
        pthread_setattr_default_np(&before_);
        pthread_attr_destroy(&before_);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t before_{};
};

} // namespace

TEST_F(TesteurDeLotsTest, BodiesThatDoNotFitEndTheSearchOnceBothHaveDoneWithTheLot) {
    std::optional<LittleMemory> peu;
    evenement = [&peu] {
        if (!peu)
            peu.emplace(100'000);
    };
    EXPECT_THROW(cherche(), std::bad_alloc);
    peu.reset();
    evenement = {};
    cherche();
    EXPECT_EQ(liste.lignes(), courts + longs);
}

TEST_F(TesteurDeLotsTest, ABodyThatDoesNotFitIsLeftUndecidedByWhoeverHasReadIt) {
    const CriteresLus lus = litcriteres(criteres, types);
    TesteurDeLots testeur(corpus.base(), lus);
    std::vector<FicheTestee> lot;
    for (qint64 rangee = 1; rangee <= courts + longs; ++rangee) {
        FicheCriteres fiche;
        fiche.rangee = rangee;
        lot.push_back({std::move(fiche), false});
    }
    for (const bool peu : {false, true, false}) {
        std::optional<LittleMemory> limite;
        if (peu)
            limite.emplace(100'000);
        testeur.teste(lot);
        for (int rang = 0; rang < courts + longs; ++rang)
            EXPECT_EQ(lot[static_cast<std::size_t>(rang)].passe,
                      peu && rang >= courts ? std::nullopt : std::optional(true))
                << rang;
    }
}

TEST_F(TesteurDeLotsTest, ABodyThatCannotBeDecodedIsLeftUndecidedToo) {
#ifdef VELM_ADDRESS_SANITIZER
    GTEST_SKIP() << "the sanitizer needs room of its own";
#endif
    constexpr qsizetype huge = 40'000'000;
    pieces = {{u"CO000001"_s, u"Titre"_s, QString(huge, u'x') + u" mot"_s}};
    ouvrepieces(false);
    const CriteresLus lus = litcriteres(criteres, types);
    TesteurDeLots testeur(corpus.base(), lus);
    std::vector<FicheTestee> lot(1);
    lot.front().fiche.rangee = 1;
    lot.front().passe = false;
    {
        const NarrowSpace space(huge * 3 / 2); // it can be read; the decoded text is twice as long
        testeur.teste(lot);
    }
    EXPECT_EQ(lot.front().passe, std::nullopt);
    testeur.teste(lot);
    EXPECT_EQ(lot.front().passe, std::optional(true));
}

TEST_F(TesteurDeLotsTest, WhereTheSystemGivesNoThreadTheSearchWorksAlone) {
    const NoThreads seul;
    cherche();
    EXPECT_EQ(liste.lignes(), courts + longs);
}
