#include "search/postings.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>
#include <random>

using namespace velm;

namespace {

// ---- the rules word for word, kept as the measure of the fast forms

QByteArray intersectionlitterale(const QByteArray& a, const QByteArray& b) {
    if (a.isEmpty() || b.isEmpty())
        return {};
    const QByteArray& marchee = b.size() < a.size() ? b : a;
    const QByteArray& autre = b.size() < a.size() ? a : b;
    QByteArray resultat;
    for (qsizetype i = 1; i <= marchee.size(); i += 4) {
        const QByteArray piece = marchee.mid(i - 1, 4);
        qsizetype depart = 1;
        for (;;) {
            const qsizetype p = depart > autre.size() ? 0 : autre.indexOf(piece, depart - 1) + 1;
            if (p == 0)
                break;
            if (p % 4 == 1) {
                resultat += piece;
                break;
            }
            ++depart;
        }
    }
    return resultat;
}

QByteArray unionlitterale(const QByteArray& a, const QByteArray& b) {
    const QByteArray& marchee = b.size() < a.size() ? b : a;
    QByteArray resultat = b.size() < a.size() ? a : b;
    for (qsizetype i = 1; i <= marchee.size(); i += 4) {
        const QByteArray piece = marchee.mid(i - 1, 4);
        qsizetype depart = 1;
        for (;;) {
            const qsizetype p = depart > resultat.size() ? 0 : resultat.indexOf(piece, depart - 1) + 1;
            if (p == 0) {
                resultat += piece;
                break;
            }
            if (p % 4 != 0)
                break;
            ++depart;
        }
    }
    return resultat;
}

/// Bytes from a small alphabet, so that stretches across two postings are found by chance.
QByteArray hasard(std::mt19937& moteur, int plusgrande, int alphabet, bool reguliere) {
    qsizetype taille = std::uniform_int_distribution<int>(0, plusgrande)(moteur);
    if (reguliere)
        taille -= taille % 4;
    QByteArray liste(taille, 0);
    std::uniform_int_distribution<int> octet(0, alphabet - 1);
    for (char& c : liste)
        c = static_cast<char>(octet(moteur));
    return liste;
}

} // namespace

TEST(PostingsTest, TheFastFormsEqualTheRulesOnRandomLists) {
    std::mt19937 moteur(7);
    const int rondes = qEnvironmentVariableIsSet("VELM_LONG") ? 1'000'000 : test::rounds(60'000);
    for (int ronde = 0; ronde < rondes; ++ronde) {
        const int alphabet = 2 + ronde % 5;
        const bool reguliere = ronde % 7 != 0;
        const QByteArray a = hasard(moteur, 60, alphabet, reguliere);
        const QByteArray b = hasard(moteur, 60, alphabet, reguliere);
        ASSERT_EQ(intersectionlistes(a, b), intersectionlitterale(a, b)) << ronde;
        ASSERT_EQ(unionlistes(a, b), unionlitterale(a, b)) << ronde;
    }
}

TEST(PostingsTest, TheUnionOfManyListsEqualsJoiningThemInPairs) {
    std::mt19937 moteur(11);
    for (int ronde = 0; ronde < test::rounds(4'000); ++ronde) {
        UnionDeListes rapide;
        QByteArray litterale;
        const int nombre = ronde % 12;
        for (int i = 0; i < nombre; ++i) {
            const QByteArray liste = hasard(moteur, 40 + ronde % 60, 2 + ronde % 6, ronde % 9 != 0);
            rapide.ajoute(liste);
            litterale = unionlitterale(litterale, liste);
            ASSERT_EQ(rapide.liste(), litterale) << ronde;
        }
    }
}

TEST(PostingsTest, AnEmptyArgumentGivesAnEmptyIntersection) {
    EXPECT_TRUE(intersectionlistes({}, "A111").isEmpty());
    EXPECT_TRUE(intersectionlistes("A111", {}).isEmpty());
    EXPECT_EQ(unionlistes({}, "A111"), "A111");
    EXPECT_EQ(unionlistes("A111", {}), "A111");
}

TEST(PostingsTest, TheIntersectionKeepsOrderAndRepetitionsOfTheShorterList) {
    EXPECT_EQ(intersectionlistes("A333A111A333", "A111A222A333A444"), "A333A111A333");
    EXPECT_EQ(intersectionlistes("B222A111", "A111B222"), "B222A111");
}

TEST(PostingsTest, AHitAcrossTwoPostingsIsNoHitOfTheIntersection) {
    EXPECT_TRUE(intersectionlistes("A1B2", "xA1B2yyy").isEmpty());
    EXPECT_EQ(intersectionlistes("A1B2", "xA1B2yyyA1B2"), "A1B2");
}

TEST(PostingsTest, TheUnionDropsAPostingThatStandsAcrossTwoOthers) {
    EXPECT_EQ(unionlistes("A1B2", "xA1B2yyy"), "xA1B2yyy");
    EXPECT_EQ(unionlistes("A1B2", "xxA1B2yy"), "xxA1B2yy");
    EXPECT_EQ(unionlistes("A1B2", "xxxA1B2y"), "xxxA1B2yA1B2");
}

TEST(PostingsTest, TheUnionPutsTheLongerListFirst) {
    EXPECT_EQ(unionlistes("A111", "B222C333"), "B222C333A111");
    EXPECT_EQ(unionlistes("A111", "B222"), "B222A111");
}

TEST(PostingsTest, OnlyPostingsOfTheWantedLettersStay) {
    EXPECT_EQ(filtretypes("A111B222A333C444", "AC"), "A111A333C444");
    EXPECT_TRUE(filtretypes("A111", "").isEmpty());
    EXPECT_TRUE(filtretypes("", "A").isEmpty());
    EXPECT_EQ(filtretypes("A111A2", "A"), "A111A2");
    EXPECT_TRUE(filtretypes(QByteArray("\xFF\x01\x02\x03"), "A").isEmpty());
}

TEST(PostingsTest, ListsAreSortedByLengthWithTheirCompanions) {
    std::mt19937 moteur(3);
    const auto hasardentre0et1 = [&] { return std::uniform_real_distribution<double>(0, 1)(moteur); };
    for (int ronde = 0; ronde < test::rounds(2'000); ++ronde) {
        const int nombre = ronde % 21;
        std::vector<QByteArray> listes(21);
        std::vector<QString> mots(21);
        std::vector<qsizetype> tailles;
        for (std::size_t i = 1; i <= static_cast<std::size_t>(nombre); ++i) {
            listes[i] = hasard(moteur, 30, 3, true);
            mots[i] = QString::number(listes[i].size());
            tailles.push_back(listes[i].size());
        }
        trierlistes(listes, mots, 1, nombre, hasardentre0et1);
        std::ranges::sort(tailles);
        for (std::size_t i = 1; i <= tailles.size(); ++i) {
            EXPECT_EQ(listes[i].size(), tailles[i - 1]);
            EXPECT_EQ(mots[i], QString::number(listes[i].size()));
        }
    }
}

TEST(PostingsTest, ListsOfEqualLengthComeInAnyOrder) {
    QStringList ordres;
    for (const double tirage : {0.0, 0.4, 0.99}) {
        std::vector<QByteArray> listes{{}, "A111", "A222", "A333"};
        std::vector<QString> mots{{}, QStringLiteral("un"), QStringLiteral("deux"), QStringLiteral("trois")};
        trierlistes(listes, mots, 1, 3, [tirage] { return tirage; });
        const QString ordre = mots[1] + u' ' + mots[2] + u' ' + mots[3];
        if (!ordres.contains(ordre))
            ordres << ordre;
        // Each list keeps its companion wherever it goes.
        for (std::size_t i = 1; i < listes.size(); ++i)
            EXPECT_EQ(listes[i], mots[i] == u"un" ? "A111" : mots[i] == u"deux" ? "A222" : "A333");
    }
    EXPECT_GT(ordres.size(), 1) << "the draw decides nothing";
}
