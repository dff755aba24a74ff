#pragma once
// A tree to load, and who looks at it.
#include "base_support.h"
#include "document/arborescence.h"
#include "platform/text/number.h"

namespace velm::test {

/// Counts what a view hears.
struct Vue final : TreeObserver {
    void treeReset() override { ++remises; }
    void nodesAdded(int) override { ++ajouts; }
    void nodeChanged(int) override { ++autres; }
    void nodeExpansion(int, bool) override { ++autres; }
    void nodeSelected(int) override { ++autres; }
    void redrawSwitched(bool) override {}
    void nodeComes(int, int) override {}
    void nodeGoes(int) override {}
    void nodeMoves(int, int) override {}
    void rearranged() override {}
    int remises = 0;
    int ajouts = 0;
    int autres = 0;
};

struct SablierEssai final : Sablier {
    int pointeur() const override { return valeur; }
    void fixepointeur(int v) override {
        valeur = v;
        vus << v;
    }
    int valeur = defaut;
    QList<int> vus;
};

class ArborescenceTest : public BaseDocument {
protected:
    void SetUp() override {
        BaseDocument::SetUp();
        for (std::size_t i = 0; i < parametres.imagesfermees.size(); ++i) {
            const QString rang = QString::number(i);
            parametres.imagesfermees[i] = u"fermé"_s + rang;
            parametres.imagesouvertes[i] = u"ouvert"_s + rang;
        }
    }
    /// A chain of branches 1, 2, … each below the one before, with one document each.
    void chaine(int longueur) {
        for (int i = 1; i <= longueur; ++i) {
            noeuds.push_back({i, i - 1, u"CO"_s, 1, u"Niveau %1"_s.arg(i), 1});
            documents.push_back({u"CO"_s + QString::number(i).rightJustified(6, u'0'), u"Document %1"_s.arg(i), i});
        }
    }
    void charge(const QString& code = u"CO"_s) {
        ouvre();
        arborescence.chargearbrebase(arbre, code);
    }
    /// The command that asks for what a click on a node leads to.
    QString commandeclic(int noeud, const QString& code) const {
        const Cle cle = Arborescence::documentde(arbre, noeud, code);
        return cle.vide() ? QString() : u"TA"_s + cle.texte();
    }
    void developpe(const QString& cle) { arborescence.developpe(arbre, arbre.indexOf(cle)); }
    bool present(const QString& cle) const { return arbre.indexOf(cle) != 0; }
    QString etiquette(const QString& cle) const { return arbre.tag(arbre.indexOf(cle)); }
    /// Keys of the children in order.
    QStringList enfants(const QString& cle) const {
        QStringList cles;
        for (int n = arbre.child(arbre.indexOf(cle)); n != 0; n = arbre.next(n))
            cles << arbre.key(n);
        return cles;
    }

    Parametres parametres;
    SablierEssai sablier;
    TreeNodes arbre;
    Arborescence arborescence{corpus, parametres, sablier, [](int indice) { return u"Collection %1"_s.arg(indice); }};
};

} // namespace velm::test
