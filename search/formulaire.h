#pragma once
// What the search form does, without its controls: which search runs, what its buttons start and stop, when the list
// can be narrowed, what is kept from one run of the program to the next.
#include "core/reglages.h"
#include "core/texte.h"
#include "search/dernierstextes.h"
#include "search/etatformulaire.h"
#include "search/remplissageliste.h"

#include <functional>
#include <optional>

namespace velm {

enum class Onglet { Rapide, Criteres, Mots };

/// Text boxes that remember what was searched.
enum class BoiteTexte { Rapide, Premier, Second, Mots };

/// The controls, as the logic sees them.
class VueFormulaire {
public:
    virtual ~VueFormulaire() = default;

    virtual EtatFormulaire etat() const = 0;
    virtual void montre(const EtatFormulaire& etat) = 0;
    virtual void montreonglet(Onglet onglet) = 0;
    virtual void montrecriteres(const Criteres& criteres) = 0;
    virtual void montremots(const QString& mots) = 0;
    virtual void offremotscles(const QStringList& items) = 0;
    virtual void offrederniers(BoiteTexte boite, const QStringList& textes) = 0;
    /// Option2, to search in the rows of the list alone, can be chosen.
    virtual void permetaffinage(bool permis) = 0;
    /// Sets Option2, else Option1, a search in the documents.
    virtual void choisitaffinage(bool affinage) = 0;
    /// Option2 is enabled and set.
    virtual bool affinage() const = 0;
    /// Caption of a tab's search button.
    virtual void libelle(Onglet onglet, const QString& texte) = 0;
    /// Below the fields of a tab: what came of its search.
    virtual void ditbilan(Onglet onglet, const BilanRecherche& bilan) = 0;
    virtual void montreprogres(qint64 vus, qint64 total) = 0;
    virtual void cacheprogres() = 0;
    virtual void videresultat() = 0;
    virtual void ajouteresultat(const QString& ligne) = 0;
    /// The text box of a tab gets the focus.
    virtual void focus(Onglet onglet) = 0;
    virtual void cache() = 0;
};

class Formulaire {
public:
    /// Nothing is owned.
    struct Services {
        RemplissageListe& liste; ///< where the results go
        Reglages& reglages;
        Libelles texte;
    };
    Formulaire(const Services& services, VueFormulaire& vue);

    /// The form as it first appears, with what the last run has left.
    void charge();
    /// What the next run shall find.
    void decharge();

    // ---- what the window tells
    /// The form has become the active window.
    void active();
    void ongletchange(Onglet onglet);
    /// The search button of a tab: starts, or stops what it has started. Another search than the one that runs stops it
    /// and begins when it has left.
    void clic(Onglet onglet);
    /// Repeats the last search of a tab, as it was, without its limit.
    void toutafficher(Onglet onglet);
    /// Whether the search button of a tab stops at this moment.
    bool boutonarrete(Onglet onglet) const { return arrets_.at(static_cast<std::size_t>(onglet)); }
    /// A cancel button: hides the form when no search runs.
    void annuler();
    /// Stops a search that runs, and hides the form.
    void ferme();
    /// The escape key: stops a search that runs, or else hides the form.
    void echappe();
    void annulercriteres();
    /// A line of `resultat` was clicked.
    void choisitligne(const QString& ligne);

    // ---- criteria files
    FichierCriteres fichier() const;
    /// Restores a search, as soon as none runs any more.
    void prendfichier(const FichierCriteres& fichier);

    const ItemsFormulaire& items() const { return items_; }
    const TypesDocument& types() const { return types_; }

private:
    QString texte(Texte lequel) const { return services_.texte(lequel); }
    RemplissageListe& liste() const { return services_.liste; }
    bool ilyadeslignes() const;
    void abandonne();
    void cherche(Onglet onglet, const std::stop_token& arret);
    void cherche(Onglet onglet, const EtatFormulaire& etat, const std::stop_token& arret);
    void acheve(Onglet onglet, const EtatFormulaire& etat);
    void cherchevite(const EtatFormulaire& etat, const std::stop_token& arret);
    void cherchecriteres(const EtatFormulaire& etat, const std::stop_token& arret);
    void cherchemots(const EtatFormulaire& etat, const std::stop_token& arret);
    void ligneauxcriteres(const EtatFormulaire& etat);
    void retient(BoiteTexte boite, const QString& texte);
    DerniersTextes& derniers(BoiteTexte boite) { return derniers_.at(static_cast<std::size_t>(boite)); }
    void permetaffinage();
    void lirelesmotscles();
    void restitue(const FichierCriteres& fichier);
    std::function<void(qint64, qint64)> progres();

    Services services_;
    VueFormulaire& vue_;
    TypesDocument types_;
    ListeMotsCles motscles_;
    ItemsFormulaire items_;
    std::array<DerniersTextes, 4> derniers_;
    std::array<bool, 3> arrets_{};           ///< by tab: its button stops
    std::array<EtatFormulaire, 3> cherches_; ///< by tab: what was searched last
    bool charge_ = false;
};

} // namespace velm
