#pragma once
// The index: all documents of the chosen collections, in the order of their keys. It is a query that is put together
// anew at each choice, and asked only where it has become another.
#include "core/colonnes.h"
#include "search/listecorpus.h"
#include "search/typeschoisis.h"

namespace velm {

class RequeteIndex {
public:
    enum class Suite {
        Cachee,    ///< no collection is chosen: the list hides, and the query is not touched
        Inchangee, ///< the same choice as at the last query: the list only shows again
        Nouvelle   ///< the query is another one, and to be asked
    };

    /// What a choice comes to. Where all collections are chosen the query is asked each time.
    Suite reselect(const TypesChoisis& types);

    /// What is read of each document, parted by commas: what the columns show in their usual order, and then the two
    /// parts of the key, which are not seen.
    const QString& champs() const { return champs_; }
    /// From FROM on; empty before the first choice.
    const QString& source() const { return source_; }
    const QString& derniercodes() const { return derniercodes_; }

private:
    QString champs_;
    QString source_;
    QString derniercodes_;
};

class ListeIndex final : public ListeCorpus {
public:
    /// Six columns that the user arranges, and behind them the two parts of the key.
    static ModeleColonnes modele();
    /// The field of what a column shows; empty for a digit that shows nothing.
    static QString champ(int chiffre);

    /// `source`: that of the query.
    ListeIndex(Corpus& corpus, const QString& source);
};

} // namespace velm
