#pragma once
// What stands on the start page, which is seen while no window is: the collections, and the documents that were read
// last.
#include "core/texte.h"

#include <optional>
#include <span>
#include <vector>

namespace velm {

struct CollectionOfferte {
    int indice = 0; ///< its slot
    QString nom;

    friend bool operator==(const CollectionOfferte&, const CollectionOfferte&) = default;
};

struct DernierOffert {
    int rang = 0;   ///< among the last documents
    int indice = 0; ///< slot of its collection
    QString titre;

    friend bool operator==(const DernierOffert&, const DernierOffert&) = default;
};

struct PageDepart {
    std::vector<CollectionOfferte> collections; ///< all of them
    std::vector<DernierOffert> derniers;        ///< the latest first

    friend bool operator==(const PageDepart&, const PageDepart&) = default;
};

/// The last documents by their keys, and by their labels, which begin with the code of the collection; empty ones are
/// none.
PageDepart pagedepart(std::span<const QString> cles, std::span<const QString> libelles, const Libelles& texte);

/// What is said of a search: of `montres` documents that are shown there are `entout`, nothing while that is not known.
QString bilandepart(const QString& cherche, qint64 montres, std::optional<qint64> entout, const Libelles& texte);

} // namespace velm
