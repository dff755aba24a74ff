#pragma once
// What the window of the dossiers does, without the window: which commands are open, what each click, key and drop
// changes, and what is asked and said. Two things may be selected, a dossier in the tree and an item in the list; the
// one that was used last (`sourcedeliste`) is what the commands are about.
#include "core/texte.h"
#include "dossiers/arbredossiers.h"
#include "dossiers/avisdossiers.h"
#include "dossiers/commandesdossiers.h"
#include "dossiers/contenudossier.h"

namespace velm {

/// What the logic asks of the window beyond its tree and its list.
class VueDossiers {
public:
    virtual ~VueDossiers() = default;
    virtual void montrecommandes(const CommandesDossiers& commandes) = 0;
    /// Opens a label for editing, on its present text.
    virtual void editenoeud(int noeud) = 0;
    virtual void editeelement(int index) = 0;
    virtual void focusliste() = 0;
    /// The dossier that something carried would fall into; 0 for none.
    virtual void montrecible(int noeud) = 0;
    /// Something waits to be stored, or, when empty, no longer.
    virtual void montreattente(const ElementEnAttente& attente) = 0;
    /// Today's copy could not be made.
    virtual void ditcopiemanquee() = 0;
};

class GestionDossiers {
public:
    /// None is owned.
    struct Donnees {
        Magasin& magasin;
        TreeNodes& noeuds;
        ListItems& elements;
        Sablier& sablier;
        Dialogues& dialogues;
        VueDossiers& vue;
        Libelles texte;
    };
    explicit GestionDossiers(const Donnees& donnees);

    /// Who hears what becomes of the rows; not owned, null for nobody.
    void ecoute(TemoinDossiers* temoin) {
        temoin_ = temoin;
        arbre_.ecoute(temoin);
        contenu_.ecoute(temoin);
    }
    /// The window is loaded. `developpe`: with all levels open. A store that cannot be trusted is told. False, and
    /// told, where it cannot be read now: there is nothing to show.
    bool charge(bool developpe);
    /// The window is shown: what waits is listed and begins to be carried.
    void active(const ElementEnAttente& attente);
    /// Nothing waits any more; nothing is stored.
    void renonce();

    // ---- selecting
    void noeudclique(int noeud);
    void arbrefocus();
    void listefocus();
    void elementclique(int index);

    // ---- commands
    void ajouter();
    void renommer();
    void supprimer();
    void haut() { change(-1); }
    void bas() { change(1); }
    void toutdevelopper();
    void toutreduire();
    void developpe(int noeud);

    // ---- labels
    /// Whether the label of a node may be edited: not that of the root.
    bool avanteditionnoeud(int noeud);
    /// The node has its text already.
    void apreseditionnoeud();
    /// With the text as typed, or as it was before when the editing was given up; the list shows what comes of it.
    void apreseditionliste(QString texte);

    // ---- what else works on them
    /// Reads the tree anew and selects the root.
    void recharge(bool developpe);
    /// Opens the commands for what is selected now.
    void permet();
    /// Saves the tree, if there is something to save; false, which has been told, when that failed.
    bool enregistre();
    /// Tells why a change was not made, and, once, that today's copy was not. Whether it was made.
    bool reussi(const EchecEcriture& echec, Texte message);
    AvisDossiers& avis() { return avis_; }
    TemoinDossiers* temoin() const { return temoin_; }
    const Donnees& donnees() const { return donnees_; }

    // ---- dragging
    void pressesurarbre() { noeuddeplace_ = donnees_.noeuds.selected(); }
    bool peuttirernoeud() const;
    bool peuttirerelement() const { return donnees_.elements.selected() != 0; }
    /// Whether what is carried may fall into a node.
    bool peutdeposer(int cible) const;
    void depose(int cible);

    /// Ends what is being edited and saves. False when that failed and the user stays; `sansquestion`: nobody is asked.
    bool ferme(bool sansquestion = false);

    bool attend() const { return !attente_.itemreference.isEmpty(); }
    const ElementEnAttente& attente() const { return attente_; }
    bool sourcedeliste() const { return sourcedeliste_; }
    ArbreDossiers& arbre() { return arbre_; }
    ContenuDossier& contenu() { return contenu_; }
    const CommandesDossiers& commandes() const { return commandes_; }

private:
    int choisi() const { return donnees_.noeuds.selected(); }
    QString texte(Texte lequel) const { return donnees_.texte(lequel); }
    bool retient();
    void permetselonfreres();
    void permetselonliste();
    void permetcontenu();
    void montrecommandes() { donnees_.vue.montrecommandes(commandes_); }
    void change(int pas);
    void changeelement(int pas);
    void changenoeud(int pas);
    void supprimerelement();
    void supprimernoeud();
    void deplacenoeud(int cible);
    void rangeattente(int cible);
    void deplaceelement(int cible);
    bool lit(const std::function<void()>& travail);
    bool litarbre();

    Donnees donnees_;
    ArbreDossiers arbre_;
    ContenuDossier contenu_;
    AvisDossiers avis_;
    CommandesDossiers commandes_;
    ElementEnAttente attente_;
    bool sourcedeliste_ = false; ///< the list was used last
    bool editionnoeud_ = false;
    bool editionliste_ = false;
    int indexnoeud_ = 0;
    int indexliste_ = 0;
    int noeuddeplace_ = 0;
    bool copiedite_ = false;
    TemoinDossiers* temoin_ = nullptr;
};

} // namespace velm
