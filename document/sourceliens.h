#pragma once
// What a document cites, or what cites it, as rows of a list: the collection, the title, and the key that is not seen.
#include "core/colonnes.h"
#include "core/sourcedocuments.h"
#include "document/liens.h"

#include <vector>

namespace velm {

class SourceLiens final : public SourceDocuments {
public:
    static ModeleColonnes modele();
    /// What the columns of the model show.
    enum Champ { Code, Titre, Clef };

    explicit SourceLiens(std::vector<LigneLien> lignes) : lignes_(std::move(lignes)) {}

    int rowCount() const override { return static_cast<int>(lignes_.size()); }
    QString text(int row, int column) const override;
    Cle cle(int row) const override;
    /// In French order; equal rows keep theirs.
    bool sort(int column, bool descending) override;

private:
    std::vector<LigneLien> lignes_;
};

} // namespace velm
