#pragma once
// The columns of a list of documents: what each of them shows, where it stands and how wide, and the two texts by which
// that is kept from one run to the next. What a list has for columns stands in one table, its ModeleColonnes.
//
// Columns count from 0 as they stand: one that is moved takes its meaning, its width and its title with it.
#include "core/sortesreglages.h"
#include "core/texte.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

namespace velm {

class Reglages;

/// A column that nobody has touched.
struct ModeleColonne {
    int champ = 0;                   ///< what it shows, by a digit of the list's own; no other column has it
    int largeur = 0;                 ///< twips; 0 for one that is never seen
    std::optional<Texte> titre = {}; ///< the text above it, if there is one
    int poids = 0;                   ///< its share of what the others leave of the list's width; 0 for none
};

struct ModeleColonnes {
    /// In their usual order, those that are seen before those that are not.
    std::vector<ModeleColonne> colonnes;

    // How the texts are read back.
    int pluspetite = 60;    ///< a stored width below it counts as none
    int plusgrande = 32767; ///< one above it, too, or as this one where `plafonne` says so
    bool plafonne = false;
    int plusgrandeecrite = 32767; ///< what a wider column is stored with
    /// Stands behind the digits of a stored order. Where a list has such, whatever stands there is read over.
    QString suite = {};
};

class Colonnes {
public:
    /// `texte` gives the titles; without it there are none.
    explicit Colonnes(ModeleColonnes modele, const Libelles& texte = {});

    const ModeleColonnes& modele() const { return modele_; }
    int nombre() const { return static_cast<int>(etats_.size()); }
    int visibles() const { return visibles_; } ///< the first ones; the others stay where they are

    // ---- of a column as it stands; outside there is none
    int champ(int place) const; ///< -1 for none
    int largeur(int place) const;
    QString titre(int place) const;
    /// Where the column of a field stands; -1 for none.
    int place(int champ) const;
    /// Nobody has given a column, or any, another width.
    bool usuelle(int place) const;
    bool largeursusuelles() const;

    // ---- changes. What is never seen is neither moved nor widened.
    void changelargeur(int place, int twips);
    void deplace(int place, int vers);

    // ---- the texts that are kept: a digit for each column that is seen, six digits of width for each
    QString ordre() const;
    QString largeurs() const;
    /// Takes an order and widths that were stored so. An order that does not name each column once, and a width that
    /// is no number or none that counts, changes nothing. Widths belong to the places of that order.
    void prend(QStringView ordre, QStringView largeurs);

private:
    struct Etat {
        std::size_t modele; ///< which column it is
        int largeur;
    };
    bool la(int place) const { return place >= 0 && place < nombre(); }
    bool vue(int place) const { return place >= 0 && place < visibles_; }
    const ModeleColonne& colonne(int place) const {
        return modele_.colonnes[etats_[static_cast<std::size_t>(place)].modele];
    }
    bool estordre(QStringView ordre) const;
    void prendlargeur(int place, double lue);

    ModeleColonnes modele_;
    QStringList titres_; ///< in the order of the model
    std::vector<Etat> etats_;
    int visibles_ = 0;
};

/// Where a list keeps its columns.
struct ClesColonnes {
    ReglageTexte ordre; ///< by default the usual one
    ReglageTexte largeurs;
};

/// Takes what was kept; where that is nothing, or damaged, the columns stay as they are.
void litcolonnes(const Reglages& reglages, const ClesColonnes& cles, Colonnes& colonnes);
/// Keeps what is no longer as it was kept. A failure is the settings' to say.
void ecritcolonnes(Reglages& reglages, const ClesColonnes& cles, const Colonnes& colonnes);

} // namespace velm
