#pragma once
// Documents of the base as the rows of a list, however many there are: their row ids are held, and what stands in a row
// is read when it is painted, and kept for a while. A sort orders the ids.
//
// Once the base is closed, rows that were not read before are empty, and nothing is sorted.
#include "core/corpus.h"
#include "search/ordrelistes.h"

#include <QHash>
#include <QStringList>

#include <vector>

namespace velm {

class ListeCorpus : public SourceEnTours {
public:
    /// `source` and `ordre` are those of the query, from FROM and from ORDER BY on. `rangee`: the column in whose order
    /// the rows stand then. A base without the table is a run-time error of the filling.
    ListeCorpus(Corpus& corpus, std::vector<ColonneCorpus> colonnes, QString source, QString ordre, int rangee);

    int rowCount() const override { return static_cast<int>(ids_.nombre()); }
    QString text(int row, int column) const override;
    Cle cle(int row) const override;
    int row(const Cle& wanted) const override;
    /// By the key of sortKey(), or by number. Equal rows keep their order; those of equal titles stand by collection
    /// and number.
    bool sort(int column, bool descending) override;
    /// In the column by which the rows stand: without reading them all.
    std::optional<int> find(int column, const QString& beginning, int from) const override;

    std::unique_ptr<Ouvrage> remplissage() override;
    std::unique_ptr<Ouvrage> tri(int column, bool descending) override;

protected:
    Corpus& corpus() const { return corpus_; }
    const Identites& ids() const { return ids_; }
    /// The rows stand as the base gave them.
    bool dansleurordre() const { return tri_.colonne < 0; }
    /// What the base holds in a field of a row.
    QString champ(int row, const QString& champ) const;

private:
    class Remplissage;

    struct Rangement {
        int colonne = -1;
        bool descendant = false;
    };
    const QStringList& lues(int row) const;
    bool la(int column) const { return column >= 0 && column < static_cast<int>(colonnes_.size()); }
    const ColonneCorpus& colonne(int column) const { return colonnes_[static_cast<std::size_t>(column)]; }
    DemandeOrdre demande(int column, bool descending);
    void prend(Identites ids, const Rangement& tri);
    std::pair<int, int> etendue(int column, const QByteArray& debut) const;

    Corpus& corpus_;
    std::vector<ColonneCorpus> colonnes_;
    QString source_;
    QString ordre_;
    int rangee_;
    QStringList champs_; ///< that are read of a row: those of the columns, and then the two parts of the key
    Identites ids_;
    Rangement tri_;
    Identites prepares_; ///< the order that the running sort has found, until it is taken over
    Rangement prepare_;
    std::unique_ptr<Recordset> table_;
    mutable QHash<qint64, QStringList> lues_;
};

} // namespace velm
