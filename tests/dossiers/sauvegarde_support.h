#pragma once
// Saves of a tree, and the numbers of what they leave.
#include "differences.h"

namespace velm::test {

class SauvegardeTest : public ArbreTest {
protected:
    using Rangees = std::vector<RangeeDossier>;

    void sauve() { ASSERT_TRUE(arbre.Sauvearbre().ok()); }
    std::vector<qint64> numeros() {
        std::vector<qint64> tous;
        for (const RangeeDossier& r : dossiers())
            tous.push_back(r.numero);
        return tous;
    }
    std::vector<qint64> proprietaires() {
        std::vector<qint64> tous;
        for (const RangeeElement& r : elements())
            tous.push_back(r.dossier);
        return tous;
    }
    using Numeros = std::vector<qint64>;
};

} // namespace velm::test
