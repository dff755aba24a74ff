#pragma once
// The documents of a collection as rows of a grid. Only their row ids are held; the fields of a row are read when it is
// painted, and kept for a while.
#include "core/colonnes.h"
#include "core/corpus.h"
#include "core/sourcedocuments.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <vector>

namespace velm {

class ListeCollection final : public SourceDocuments {
public:
    /// Four columns that the user arranges, and behind them the hidden number.
    static ModeleColonnes modele();
    /// The order that is stored for a list that was never filled. It reads as the usual one.
    static constexpr QStringView ordrejamaisrempli = u"44444";

    /// `ordre`: a digit for each column, as Colonnes::ordre() gives it. The rows stand in no order yet. A base without
    /// the table is a run-time error.
    ListeCollection(Corpus& corpus, const QString& code, const QString& ordre);

    int rowCount() const override { return static_cast<int>(lignes_.size()); }
    QString text(int row, int column) const override;
    /// By the key of sortKey(). Equal rows keep their order, those of equal titles stand by their number.
    bool sort(int column, bool descending) override;
    // Once the base is closed, rows that were not read before are empty.

    Cle cle(int row) const override;
    int row(const Cle& wanted) const override;

    /// Field of what a column shows: "0" titre, "1" to "3" the keywords, "4" numart; empty for anything else.
    static QString champ(QChar chiffre);

private:
    bool trieparcle(bool descending);
    void triepartexte(const QString& champ, bool descending);
    const QStringList& cellules(int row) const;

    Corpus& corpus_;
    QString code_;
    QStringList champs_;
    std::vector<qint64> lignes_;
    std::unique_ptr<Recordset> table_;
    mutable QHash<qint64, QStringList> lues_;
};

} // namespace velm
