#pragma once
// The logic of the window of the dossiers on a small tree, with a window that only remembers.
#include "dossiers/gestiondossiers.h"
#include "magasin_support.h"
#include "tests/support/dialogues_script.h"

namespace velm::test {
/// Remembers what the window was asked to show.
struct VueEssai final : VueDossiers {
    void montrecommandes(const CommandesDossiers& c) override { commandes = c; }
    void editenoeud(int noeud) override { noeudedite = noeud; }
    void editeelement(int index) override { elementedite = index; }
    void focusliste() override { ++focus; }
    void montrecible(int noeud) override { cible = noeud; }
    void montreattente(const ElementEnAttente& element) override { attente = element.itemtitre; }
    void ditcopiemanquee() override { ++copiesmanquees; }
    CommandesDossiers commandes;
    int noeudedite = 0;
    int elementedite = 0;
    int focus = 0;
    int cible = 0;
    QString attente;
    int copiesmanquees = 0;
};

/// The root with 1 (2, 3 below it) and 4.
class GestionTest : public MagasinTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        ouvre({{1, 0, 1, u"Baux"_s, 2},
               {2, 1, 2, u"Habitation"_s, 0},
               {3, 1, 3, u"Commerce"_s, 0},
               {4, 0, 4, u"Vente"_s, 1}},
              {{1, 1, u"CO000001"_s, u"Article un"_s, 0, 0},
               {1, 2, u"EU000002"_s, u"Directive"_s, 1204, 310},
               {4, 1, u"CO000003"_s, u"Garantie"_s, 0, 0}});
        gestion.charge(true);
    }
    int noeud(qint64 numero) const { return noeuds.indexOf(ArbreDossiers::clenoeud(numero)); }
    int racine() const { return noeuds.childAt(0, 0); }
    void clique(qint64 numero) {
        noeuds.select(noeud(numero));
        gestion.arbrefocus();
        gestion.noeudclique(noeud(numero));
    }
    void cliqueelement(int index) {
        elementsdeliste.select(index);
        gestion.listefocus();
        gestion.elementclique(index);
    }
    QString textedunoeud(qint64 numero) const { return noeuds.text(noeud(numero)); }
    QStringList titres() const {
        QStringList tous;
        for (int i = 1; i <= elementsdeliste.count(); ++i)
            tous << elementsdeliste.text(i);
        return tous;
    }
    QString nomenregistre(qint64 numero) {
        for (const RangeeDossier& r : dossiers()) {
            if (r.numero == numero)
                return aveccompte(r);
        }
        return u"(aucun)"_s;
    }
    static QString aveccompte(const RangeeDossier& r) { return r.nom + u'/' + QString::number(r.compte); }

    TreeNodes noeuds;
    ListItems elementsdeliste;
    DialoguesScript dialogues;
    VueEssai vue;
    GestionDossiers gestion{{magasin, noeuds, elementsdeliste, sablier, dialogues, vue, [](Texte numero) {
                                 return numero == Texte::MotExtrait ? u"extrait"_s
                                                                    : u"<%1>"_s.arg(static_cast<int>(numero));
                             }}};
};

} // namespace velm::test
