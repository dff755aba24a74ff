#pragma once
// The filling of the selection list: the one place where searches, lists of links, criteria files and tools put what
// they find, one after the other. Meanwhile the list is hidden and told of in the status panel; at the end it shows,
// and the buttons follow.
#include "core/corpus.h"
#include "core/texte.h"
#include "platform/system/dialogues.h"
#include "platform/system/sablier.h"
#include "search/marche.h"
#include "search/poste.h"
#include "search/recherchedico.h"
#include "search/vueliste.h"

namespace velm {

struct FichierCriteres;

class RemplissageListe {
public:
    /// What searches work with. Nothing is owned.
    struct Services {
        Corpus& corpus;
        Sablier& sablier;
        Dialogues& dialogues;
        Libelles texte;
        /// Lets what waits through, while a search runs.
        std::function<void()> evenements;
        std::chrono::milliseconds pas = Cession::pasordinaire; ///< between two turns
    };
    /// Who hears the search of a document window.
    struct EcouteFenetre {
        std::function<void(const QString&)> ligne = {};      ///< each result line, at once
        std::function<void(const BilanRecherche&)> fin = {}; ///< what came of it
    };
    RemplissageListe(Services services, ListeSelection& liste, VueLignes& lignes, VueListe& vue);

    Corpus& corpus() const { return services_.corpus; }
    Sablier& sablier() const { return services_.sablier; }
    const ListeSelection& liste() const { return liste_; }
    /// There was a search, and the list shows what it has found.
    bool visible() const { return visible_; }

    // ---- one thing after the other
    /// Fills the list at once, or when what fills it now has been stopped. Its rows are hidden meanwhile. Where the
    /// memory does not suffice, what it holds by then shows, `abandon` is done, and the user is told.
    void remplit(Poste::Travail travail, std::function<void()> abandon);
    bool encours() const { return poste_.occupe(); }
    void arrete() { poste_.arrete(); }

    // ---- for a piece of work that fills the list
    /// A search begins: no row, nothing shown, nothing told.
    Resultat& nouveau();
    /// The rows as they are, for a search that narrows them.
    Resultat& present();
    /// The turns of a search: the status panel tells what it has found by then, and `progres` how far it is.
    Marche marche(const std::stop_token& arret, std::function<void(qint64 vus, qint64 total)> progres = {});
    /// The search by words, with the hourglass, and with a question where it finds very many documents.
    const Resultat& cherchemots(const DemandeDico& demande, std::function<void(const QString&)> ligne,
                                const std::stop_token& arret);
    /// The end of a search: tells what there is to tell, and shows the rows in the order in which they were found.
    void acheve();
    void dit(qint64 nombre) const;
    /// Says over the rows what they are. `tout` repeats a search that was cut, without its limit.
    void ditbilan(const BilanRecherche& bilan, std::function<void()> tout = {});
    /// The tip of the button that merges equal cells says whether there are such.
    void ditregroupement() const;
    /// Tells how many rows there are by now, whatever they were before.
    void ditreste();
    /// Repeats the search without its limit: does `tout` of the last ditbilan().
    void toutafficher();

    // ---- lists that come from elsewhere
    /// Fills the list with the documents of these keys, in this order; those without a document are passed over.
    void remplitdecles(const QStringList& cles);
    /// The documents of a keyword, with no word to mark. Where they cannot be asked for the user is told, and the list
    /// stays as it was.
    void remplitdemotcle(const QString& motcle);
    /// The search by words of a document window, in its collection; `tous`: without a question where they are many.
    void cherchedans(const QString& code, const QString& mots, const EcouteFenetre& ecoute, bool tous = false);
    /// What a selection tool has left in a folder; false when it left nothing.
    bool prenddoutil(const QString& dossiertemporaire);
    /// The saved rows and words of a criteria file. For a piece of work that fills the list.
    void restitue(const FichierCriteres& fichier);

    // ---- the panel
    /// Lets the grid show the rows as they stand now.
    void montrelignes();
    void montreliste();
    /// Hides the panel and the search form with it: what that would find could be seen nowhere.
    void cachepanneau();

private:
    void publie();
    void ditlignes();
    void lance(const DemandeDico& demande, const EcouteFenetre& ecoute);
    bool travaille(const std::function<void()>& travail, const std::function<void()>& abandon);
    void prendcles(const QStringList& cles, const std::stop_token& arret);
    void prendmotcle(const QString& motcle);
    bool trouvemotcle(const QString& motcle);
    void cherchemaintenant(const DemandeDico& demande, const EcouteFenetre& ecoute, const std::stop_token& arret);
    void prendselection(const QString& chemin);

    Services services_;
    ListeSelection& liste_;
    VueLignes& lignes_;
    VueListe& vue_;
    Poste poste_;
    std::function<void()> tout_; ///< repeats the last search, without its limit
    bool visible_ = false;
};

} // namespace velm
