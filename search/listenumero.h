#pragma once
// What a search by number has found, as rows of a grid. Only row ids are held; the fields of a row are read when it is
// painted, and kept for a while.
#include "core/colonnes.h"
#include "search/recherchenumero.h"

#include <QHash>
#include <QStringList>

#include <memory>

namespace velm {

class ListeNumero final : public SourceEnTours {
public:
    /// What a column shows. The last two are hidden, and name the document.
    enum Champ : int {
        NumeroArticle,
        NumeroTexte,
        TitreTexte,
        Titre,
        Reference,
        Numart,
        CleReference,
        CleNumart,
        nombredechamps
    };
    static ModeleColonnes modele();

    /// Without rows until remplissage() is done.
    ListeNumero(const Corpus& corpus, const DemandeNumero& demande);

    int rowCount() const override { return static_cast<int>(documents_.nombre()); }
    // Once the base is closed, rows that were not read before are empty.
    QString text(int row, int column) const override;
    /// In French order; equal rows keep their order.
    bool sort(int column, bool descending) override;
    Cle cle(int row) const override;
    /// The article whose number was looked for; none for the number of a text.
    QString ancre(int row) const override;

    std::unique_ptr<Ouvrage> remplissage() override;
    /// Sorted at one go.
    std::unique_ptr<Ouvrage> tri(int, bool) override { return nullptr; }

private:
    class Remplissage;
    QString lit(int row, int champ) const;

    const Corpus& corpus_;
    DemandeNumero demande_;
    Identites liens_;
    Identites documents_;
    std::unique_ptr<Recordset> tableliens_;
    std::unique_ptr<Recordset> tabledocuments_;
    mutable QHash<int, QStringList> lues_; ///< by row
};

} // namespace velm
