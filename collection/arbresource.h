#pragma once
// The tree of a source: its nodes, their chains of parents, and what is wrong along these.
#include "collection/document.h"

#include <QHash>

namespace velm {

class ArbreSource {
public:
    /// `ligne` is where the node stands. False, and nothing is taken in, when there is one of its number.
    bool ajoute(const Noeud& noeud, qint64 ligne);

    const std::vector<Noeud>& noeuds() const { return noeuds_; }
    /// By its number; null for none. Valid until the next one is added.
    const Noeud* trouve(qint64 numero) const;
    bool aunebranche(int collection) const { return avecbranche_[static_cast<std::size_t>(collection)]; }
    /// The label of the node at the head of a node's branch; empty for a node that is not there.
    QString libelledetete(qint64 numero) const;

    /// Parents that are missing, of another collection or go round, and chains too long for the tree. `fichier` is
    /// where the nodes come from.
    Problemes verifie(const QString& fichier) const;

private:
    std::vector<Noeud> noeuds_;
    std::vector<qint64> lignes_;
    QHash<qint64, std::size_t> parnumero_;
    std::array<bool, nombredecollections> avecbranche_{};
};

} // namespace velm
