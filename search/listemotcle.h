#pragma once
// All keywords of the collection with the number of documents of each, as rows of a grid. Only row ids are held.
#include "core/colonnes.h"
#include "core/corpus.h"
#include "core/sourcedocuments.h"

#include <QHash>

#include <memory>
#include <vector>

namespace velm {

class ListeMotcle final : public SourceDocuments {
public:
    enum Champ : int { Motcle, Nombre, nombredechamps };
    static ModeleColonnes modele();

    /// In the order of the keywords. A base without the table is a run-time error.
    explicit ListeMotcle(const Corpus& corpus);

    int rowCount() const override { return static_cast<int>(lignes_.size()); }
    // Once the base is closed, rows that were not read before are empty.
    QString text(int row, int column) const override;
    /// Keywords in French order, numbers by what they count; equal numbers keep their order.
    bool sort(int column, bool descending) override;

    QString motcle(int row) const { return text(row, Motcle); }
    /// A row stands for no document: its key is the keyword, by which the list knows it, without a code.
    Cle cle(int row) const override { return {QString(), motcle(row)}; }
    int row(const Cle& wanted) const override;

private:
    struct Paire {
        QString motcle;
        QString nombre;
    };
    std::vector<qint64> demande(bool descending) const;
    void trieparnombre(bool descending);

    const Corpus& corpus_;
    std::vector<qint64> lignes_;
    std::unique_ptr<Recordset> table_;
    mutable QHash<qint64, Paire> lues_;
};

/// How many keywords there are, in words.
QString comptemotscles(qint64 nombre, const Libelles& texte);

} // namespace velm
