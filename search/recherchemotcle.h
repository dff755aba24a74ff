#pragma once
// The documents that bear a keyword.
#include "core/corpus.h"
#include "search/resultat.h"

namespace velm {

/// The documents one of whose keywords is this one, for prenddocuments(). Null where they cannot be asked for: the
/// keyword stands in the question between double quotes and as it is, so that one which holds a double quote ends it
/// too early.
std::unique_ptr<Snapshot> documentsdumotcle(const Corpus& corpus, const QString& motcle);

/// Puts these documents into an empty result, as far as it takes them, in the order of their keys. Words to mark there
/// are none.
void prenddocuments(Snapshot& documents, Resultat& resultat);

} // namespace velm
