#include "platform/text/frenchorder.h"
#include "platform/text/letters.h"
#include "tests/support/rounds.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(FrenchOrderTest, EqualsAStableSortByTheKeys) {
    std::mt19937 moteur(17);
    const QString alphabet = u"aAéb\u0000œz"_s;
    const QString commun = u"Un long début commun"_s;
    for (int ronde = 0; ronde < velm::test::rounds(400); ++ronde) {
        QStringList textes;
        for (int i = 0; i < ronde; ++i) {
            QString texte = i % 3 == 0 ? QString() : commun.left(static_cast<qsizetype>(moteur() % 21));
            for (auto n = moteur() % 12; n > 0; --n)
                texte += alphabet[static_cast<qsizetype>(moteur() % 7)];
            textes << texte;
        }
        for (const bool descendant : {false, true}) {
            std::vector<int> attendu(static_cast<std::size_t>(textes.size()));
            for (std::size_t i = 0; i < attendu.size(); ++i)
                attendu[i] = static_cast<int>(i);
            std::stable_sort(attendu.begin(), attendu.end(), [&](int a, int b) {
                const QByteArray ka = sortKey(textes[a]);
                const QByteArray kb = sortKey(textes[b]);
                return descendant ? kb < ka : ka < kb;
            });
            ASSERT_EQ(frenchOrder(
                          static_cast<int>(textes.size()), [&](int i) { return textes[i]; }, descendant),
                      attendu)
                << ronde;
        }
    }
}
