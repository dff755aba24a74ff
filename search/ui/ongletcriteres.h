#pragma once
// The tab of the criteria: two texts and where they stand, what a document's own fields must be, and whether all
// documents are gone through or only those of the list.
#include "core/texte.h"
#include "search/etatformulaire.h"
#include "search/ui/pagerecherche.h"

class QCheckBox;
class QRadioButton;

namespace velm {

class ChampDate;

class OngletCriteres final : public PageRecherche {
    Q_OBJECT

public:
    /// `dansformulaire` tells whether a control is one of the form that holds the tab: the focus stays at a date that
    /// none is, as long as it would go to another of these.
    OngletCriteres(const Libelles& texte, const ItemsFormulaire& items, const TypesDocument& types,
                   std::function<bool(const QWidget*)> dansformulaire);

    QLineEdit& champ() const override;
    /// The box of the first text, or of the second.
    BoiteDerniers& boite(std::size_t rang) const { return *texterech_.at(rang); }
    /// What stands in the tab.
    Criteres criteres() const;
    void montre(const Criteres& criteres);
    void offremotscles(const QStringList& items);

    /// Option2, to search in the rows of the list alone, can be chosen.
    void permetaffinage(bool permis);
    /// Sets Option2, else Option1, a search in the documents.
    void choisitaffinage(bool affinage);
    /// Option2 is enabled and set.
    bool affinage() const;

    /// Leaves the three boxes of the date; false when one of them holds the focus, for what it shows is none.
    bool quittedates();

signals:
    /// The criteria are to be emptied.
    void effacementvoulu();

private:
    void construittextes(const QStringList& conjonctions);
    void construitlieux();
    void construitfiche(const ItemsFormulaire& items, const TypesDocument& types);
    void construitdate();
    void construitportee();
    QComboBox* longueliste(const QString& nom, Texte intitule, const QStringList& items);
    ChampDate* champdate(const QString& nom, Texte intitule, int chiffres);

    std::function<bool(const QWidget*)> dansformulaire_;
    std::array<BoiteDerniers*, 2> texterech_{};
    QComboBox* prefixe_ = nullptr;
    QComboBox* conjonction_ = nullptr;
    std::array<QCheckBox*, 2> motentier_{};
    std::array<QCheckBox*, 2> respectminmaj_{};
    std::array<QCheckBox*, 3> emplacement_{};
    QComboBox* combomotcle_ = nullptr;
    QComboBox* combotype_ = nullptr;
    std::array<ChampDate*, 3> date_{}; ///< day, month, year
    QRadioButton* Option1_ = nullptr;
    QRadioButton* Option2_ = nullptr;
};

} // namespace velm
