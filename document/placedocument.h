#pragma once
// Where a document stands: in the contents of its collection, and among its documents in the order of their titles.
#include "core/corpus.h"

#include <QStringList>

namespace velm {

struct PlaceDocument {
    QStringList chemin; ///< labels of the branches that lead to it, the highest first
    qint64 rang = 0;    ///< from 1, in the order in which neighbours are walked; 0 where the base does not tell
    qint64 nombre = 0;  ///< documents of its collection

    friend bool operator==(const PlaceDocument&, const PlaceDocument&) = default;
};

/// An empty place for what is no document. Branches that hang in a circle, or from one that is not there, end the way.
/// Moves the current rows of `données` and `arborescences`, and leaves their indexes at primarykey.
PlaceDocument placedocument(const Corpus& corpus, const Cle& cle);

} // namespace velm
