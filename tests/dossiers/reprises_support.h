#pragma once
// A window that can take changes back, with its journal.
#include "disqueenpanne.h"
#include "dossiers/echangedossiers.h"
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

/// With windows that come and go, repairs and a disk that fails.
class ReprisesNumerosTest : public ReprisesTest {
protected:
    /// Marks a dossier, saves and opens the window anew.
    void supprimedossier(qint64 numero) {
        clique(numero);
        gestion.supprimer();
        recommence();
    }
    void recommence(bool developpe = true) {
        ASSERT_TRUE(gestion.ferme());
        rouvre(developpe);
    }
    void rouvre(bool developpe = true) {
        ASSERT_TRUE(gestion.charge(developpe));
        noeuds.select(racine());
    }
    bool repare(const Reparation::Progres& progres = {}) {
        dialogues.answers = {Bouton::Oui};
        return EchangeDossiers(gestion).repare(true, progres).has_value();
    }
    /// A new dossier below another one; its number.
    qint64 nouveau(qint64 parent, const QString& nom) {
        clique(parent);
        gestion.ajouter();
        noeuds.setText(noeuds.selected(), nom);
        return gestion.arbre().numero(noeuds.selected());
    }
    void range(qint64 dossier) {
        gestion.active({u"JP000009"_s, u"Arrêt"_s, 0, 0});
        gestion.depose(noeud(dossier));
        gestion.arbrefocus();
    }
    /// A new dossier with an item in it, which a move of its parent keeps from getting its row.
    qint64 perddossier() {
        const qint64 neuf = nouveau(1, u"Neuf"_s);
        range(neuf);
        clique(1);
        gestion.bas();
        return neuf;
    }
    void remettout() { EXPECT_TRUE(reprises.remet(journal.pertes()).fait); }
    QStringList noms() {
        QStringList tous;
        for (const RangeeDossier& un : dossiers())
            tous << QString::number(un.numero) + u' ' + un.nom + u'/' + QString::number(un.compte);
        return tous;
    }
    std::size_t elementsde(qint64 dossier) {
        const auto tous = elements();
        return static_cast<std::size_t>(
            std::count_if(tous.begin(), tous.end(), [&](const RangeeElement& un) { return un.dossier == dossier; }));
    }

    DisqueEnPanne disque;
};

} // namespace velm::test
