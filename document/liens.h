#pragma once
// The documents that a document cites, and those that cite it.
#include "core/cle.h"
#include "core/corpus.h"

#include <QString>

#include <optional>
#include <vector>

namespace velm {

/// A row of either grid.
struct LigneLien {
    QString code; ///< collection of the other document
    QString titre;
    Cle cle;

    friend bool operator==(const LigneLien&, const LigneLien&) = default;
};

/// What the document of a key cites: each document once, those that are not in the base left out. An empty key gives
/// nothing.
std::vector<LigneLien> chargeliens(Corpus& corpus, const Cle& cle);
/// What cites the document of a key, in the same way.
std::vector<LigneLien> chargecorrelats(Corpus& corpus, const Cle& cle);

/// How many rows these are. Nothing for no document, and where the base has no links or documents to look at.
std::optional<int> nombredeliens(const Corpus& corpus, const Cle& cle);
std::optional<int> nombredecorrelats(const Corpus& corpus, const Cle& cle);

} // namespace velm
