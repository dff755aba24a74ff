#pragma once
// The logic of the window of the dossiers, with a window that only remembers.
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

/// All that one window has. Its texts are their numbers: "<9816>", and behind them `suite`, for what is put into them.
struct FenetreEssai {
    explicit FenetreEssai(Magasin& magasin, const QString& suite = {})
        : gestion({magasin, noeuds, elements, sablier, dialogues, vue, [suite](Texte numero) {
                       return numero == Texte::MotExtrait
                                  ? u"extrait"_s
                                  : u'<' + QString::number(static_cast<int>(numero)) + u'>' + suite;
                   }}) {}

    int noeud(qint64 numero) const { return noeuds.indexOf(ArbreDossiers::clenoeud(numero)); }
    void clique(int lequel) {
        noeuds.select(lequel);
        gestion.arbrefocus();
        gestion.noeudclique(lequel);
    }
    void cliqueelement(int index) {
        elements.select(index);
        gestion.listefocus();
        gestion.elementclique(index);
    }
    /// What was said, by the numbers of the texts.
    QStringList dits() const {
        QStringList tous;
        for (const Message& message : dialogues.messages)
            tous << message.texte.section(u'>', 0, 0).mid(1);
        return tous;
    }
    QStringList titres() const {
        QStringList tous;
        for (int i = 1; i <= elements.count(); ++i)
            tous << elements.text(i);
        return tous;
    }

    TreeNodes noeuds;
    ListItems elements;
    SablierMuet sablier;
    DialoguesScript dialogues;
    VueEssai vue;
    GestionDossiers gestion;
};

/// A window on a store, for tests that speak of dossiers by their numbers.
class FenetreTest : public MagasinTest {
protected:
    int noeud(qint64 numero) const { return fenetre.noeud(numero); }
    int racine() const { return noeuds.childAt(0, 0); }
    void clique(qint64 numero) { fenetre.clique(noeud(numero)); }
    void cliqueelement(int index) { fenetre.cliqueelement(index); }
    QString textedunoeud(qint64 numero) const { return noeuds.text(noeud(numero)); }
    QStringList titres() const { return fenetre.titres(); }

    FenetreEssai fenetre{magasin};
    TreeNodes& noeuds = fenetre.noeuds;
    ListItems& elementsdeliste = fenetre.elements;
    DialoguesScript& dialogues = fenetre.dialogues;
    VueEssai& vue = fenetre.vue;
    GestionDossiers& gestion = fenetre.gestion;
};

/// The root with 1 (2, 3 below it) and 4.
class GestionTest : public FenetreTest {
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
    /// Renames an item of the first dossier: what is edited, what is typed and stored, and what is shown then.
    void expectRenamed(int index, const QString& enedition, const QString& tape, const QString& montre) {
        clique(1);
        cliqueelement(index);
        gestion.renommer();
        EXPECT_EQ(vue.elementedite, index);
        EXPECT_EQ(elementsdeliste.text(index), enedition);
        gestion.apreseditionliste(tape);
        EXPECT_EQ(elementsdeliste.text(index), montre);
        EXPECT_EQ(elements().at(static_cast<std::size_t>(index) - 1).titre, tape);
    }
    QString nomenregistre(qint64 numero) {
        for (const RangeeDossier& r : dossiers()) {
            if (r.numero == numero)
                return aveccompte(r);
        }
        return u"(aucun)"_s;
    }
    static QString aveccompte(const RangeeDossier& r) { return r.nom + u'/' + QString::number(r.compte); }
};

} // namespace velm::test
