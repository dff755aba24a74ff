#pragma once
// A window that can take changes back, with its journal.
#include "dossiers/reprises.h"
#include "gestion_banc.h"

namespace velm::test {

/// The root with 1 and 4; the first one is selected.
class ReprisesTest : public FenetreTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        ouvre({{1, 0, 1, u"Baux"_s, 2}, {4, 0, 2, u"Vente"_s, 1}}, {{1, 1, u"CO000001"_s, u"Article un"_s, 0, 0},
                                                                    {1, 2, u"EU000002"_s, u"Directive"_s, 1204, 310},
                                                                    {4, 1, u"CO000003"_s, u"Garantie"_s, 0, 0}});
        journal.ouvre(magasin.cheminbasedossiers());
        gestion.charge(true);
        avant = elements();
        clique(1);
    }
    void choisit(int index) {
        liste.select(index);
        gestion.listefocus();
    }
    QString texte(qint64 numero) const { return textedunoeud(numero); }
    void annule() {
        const auto fait = reprises.annule();
        EXPECT_TRUE(fait.fait && fait.echec.ok());
    }
    JournalDossiers relu() {
        JournalDossiers autre([this] { return maintenant; });
        autre.ouvre(magasin.cheminbasedossiers());
        return autre;
    }
    QString fichier() const { return dossier() + u"/dossiers-journal.dat"_s; }

    QDateTime maintenant = QDateTime(QDate(2026, 11, 23), QTime(9, 0), Qt::UTC);
    ListItems& liste = elementsdeliste;
    JournalDossiers journal{[this] { return maintenant; }};
    Reprises reprises{gestion, magasin, noeuds, journal};
    std::vector<RangeeElement> avant;
};

} // namespace velm::test
