#pragma once
// The chronological list: the documents that have a date, in the order of their dates, which stand in three columns.
#include "core/colonnes.h"
#include "search/listecorpus.h"
#include "search/typeschoisis.h"

#include <functional>
#include <vector>

namespace velm {

/// Dates as the base holds them. From the text of a day that no calendar has its parts are taken as they stand; a text
/// that is no date at all is all year.
namespace partiesdate {
QString annee(const QString& date);
/// 1 to 12; 0 for none.
int mois(const QString& date);
QString jour(const QString& date);
} // namespace partiesdate

/// How many documents a year has.
struct AnneeChrono {
    int annee = 0;
    int nombre = 0;
    int premiere = 0; ///< the first of its rows, from 0, in the order of the dates
};

/// Which dates are listed, as texts that dates begin with ("1998", "1998-03"): both counted, empty for no bound.
struct IntervalleDates {
    QString de = {};
    QString a = {};
};

class ListeChrono final : public ListeCorpus {
public:
    /// The name of a month from 1 to 12.
    using NomDuMois = std::function<QString(int mois)>;
    /// In the words of the system's locale.
    static QString nomdumois(int mois);

    static ModeleColonnes modele();

    ListeChrono(Corpus& corpus, const TypesChoisis& types, const IntervalleDates& intervalle = {},
                const NomDuMois& nom = &ListeChrono::nomdumois);

    /// Leaves `idate` the index of the documents' table, as who needs another sets it.
    std::unique_ptr<Ouvrage> remplissage() override;
    QString text(int row, int column) const override;
    /// Years are found by their beginning while the rows stand in the order of the dates.
    std::optional<int> find(int column, const QString& beginning, int from) const override;

    /// The years in their order, as long as the rows stand as the base gave them: each is a few looks at dates.
    std::vector<AnneeChrono> annees() const;
    /// The first row of the documents of years from one to another, both counted, wherever the rows stand; -1 for none.
    int premiere(int annee, int derniere) const;

    enum Place { Annee, Mois, Jour, Titre, MotCle1, MotCle2, MotCle3, Clef };
};

} // namespace velm
