#pragma once
// The order of the documents of a list by what stands in a column, found step by step. Rows whose texts equal stay as
// they stood; those of equal titles stand by collection and number.
#include "core/corpus.h"
#include "search/identites.h"
#include "search/sourceentours.h"

#include <QStringList>

#include <functional>

namespace velm {

/// A column of a list of documents.
struct ColonneCorpus {
    QString champ;                                         ///< of `données`, which it is read from
    std::function<QString(const QString& lu)> montre = {}; ///< what is shown of that; all of it without
    bool nombre = false;                                   ///< sorts as numbers do
};

/// The codes that documents of the base bear, whatever they are, in their order: each is one look into an index.
QStringList collectionsdelabase(const Corpus& corpus);

/// What is to be put into order. Corpus and ids outlive the work.
struct DemandeOrdre {
    Corpus& corpus;
    const Identites& ids;
    bool descendant = false;
    std::function<void(Identites ordre)> rend; ///< once it is done; an order that has lost rows is none
};

/// By the keys of the titles, which stand in the base: no title is read. Null where the base has none.
std::unique_ptr<Ouvrage> ordredestitres(const DemandeOrdre& demande);

/// By the texts of any column. `source`: of the query that gives the documents, from FROM on. What repeats in many
/// rows, as keywords and dates do, is held once meanwhile.
std::unique_ptr<Ouvrage> ordredestextes(const DemandeOrdre& demande, const ColonneCorpus& colonne,
                                        const QString& source);

} // namespace velm
