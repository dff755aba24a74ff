#pragma once
// What the selection list does, without its panel: the one owner of the rows, which fills them, follows the selected
// ones, opens their documents and works on them. Searches reach it as a HoteSelection.
#include "core/reglages.h"
#include "platform/system/outside.h"
#include "search/hoteselection.h"

#include <QStringList>

#include <functional>

namespace velm {

/// The grid, as the logic sees it. Rows count from 1 and columns from 0, as they stand.
class VueLignes {
public:
    virtual ~VueLignes() = default;

    /// The rows are about to change: nothing of them is shown until montre().
    virtual void cache() = 0;
    /// Paints nothing until relit().
    virtual void fige() = 0;
    /// Takes the rows as they are by now.
    virtual void relit() = 0;
    /// The rows are done; they show, or not. Where none is selected, from the first on.
    virtual void montre(bool visible) = 0;
    virtual void montremarque(int colonne, ListeSelection::Marque marque) = 0;
    /// Sorts through the source of the rows.
    virtual void trie(int colonne, bool descendant) = 0;
    /// Equal neighbours are shown as one cell, or not.
    virtual void regroupe(bool regroupees) = 0;
    /// Where the selection begins and where it ends; 0 for none.
    virtual std::pair<int, int> choix() const = 0;
    virtual void choisit(int row, int rowsel) = 0;
    virtual void choisittout() = 0;
    /// The selected rows: tabs between cells, CR between rows.
    virtual QString copie() const = 0;
    virtual int largeur(int colonne) const = 0; ///< twips
};

/// The panel around the grid, as the logic sees it. Buttons go by their keys.
class VueListe {
public:
    virtual ~VueListe() = default;

    virtual void permetbouton(const QString& cle, bool permis) = 0;
    virtual void enfoncebouton(const QString& cle, bool enfonce) = 0;
    virtual void infobulle(const QString& cle, const QString& texte) = 0;
    /// Into the status panel.
    virtual void ditetat(const QString& texte) = 0;
    virtual void montrepanneau(bool visible) = 0;
    /// Wide enough for the rows of a tool.
    virtual void elargitpanneau() = 0;
    /// The search form is to be shown or hidden.
    virtual void montrecriteres(bool montres) = 0;
    /// The frame looks anew at what can be arranged in it.
    virtual void majdispositions() = 0;
    /// Opens the document of a key with these words to mark.
    virtual void ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) = 0;
};

class ControleListe final : public HoteSelection {
public:
    /// Nothing is owned; all of it outlives the list.
    struct Monde {
        Corpus& corpus;
        Reglages& reglages;
        Sablier& sablier;
        Dialogues& dialogues;
        Imprimante& imprimante;
        std::function<QString(int)> texte;
        /// Lets what waits through, while a search runs.
        std::function<void()> evenements;
    };
    /// Order and widths of the columns are those of the last run. The views are not spoken to yet.
    ControleListe(const Monde& monde, VueLignes& lignes, VueListe& vue);

    /// The views are made: they show that there is nothing yet.
    void charge();
    ListeSelection& liste() { return liste_; }

    // ---- HoteSelection
    Atelier& atelier() override { return atelier_; }
    Poste& poste() override { return poste_; }
    void commence() override;
    void acheve() override;
    void publie(const PublicationFin& fin) override;
    void formulairevisible(bool visible) override;
    void montreliste() override;

    // ---- the panel
    /// Shows or hides it; as long as there was no result the search form is wanted beside it, and hidden with it.
    void affichemenuselection(bool visible);
    /// The button that merges equal cells is down, or up.
    void regroupe(bool enfonce);

    // ---- the rows. Nothing of them is touched while they are filled.
    /// Opens the selected rows one after the other, with the words to mark; more than fifty after a question.
    void ouvre();
    /// Removes the selected rows and shows the new count.
    void supprime();
    /// Prints all rows, after a question.
    void imprime();
    /// Sorts by a column, from its end where it is sorted already.
    void trie(int colonne);
    void suivantrecherche();
    void precedentrecherche();

    // What follows fills the list at once, or when the search that runs has been stopped.
    /// Turns keys into the list, in this order; those without a document are passed over.
    void remplit(const QStringList& cles);
    /// The search by words of a document window, in its collection; each result line is told at once.
    void cherchedans(const QString& code, const QString& mots, const std::function<void(const QString&)>& ligne);
    /// What a selection tool has left in a folder; false when it left nothing.
    bool prenddoutil(const QString& dossiertemporaire);

    /// Widths and order of the columns, for the next run.
    void ecritcolonnes();

private:
    QString texte(int numero) const { return monde_.texte(numero); }
    bool remplie() const { return remplissages_ > 0; }
    void cachepanneau();
    void montrelignes();
    void litchoix();
    void montrechoix();
    QStringList cleschoisies() const;
    TableauImprime tableau() const;
    void fait(std::function<void()> travail);
    void travaille(const std::function<void()>& travail);
    void ajoute(const QStringList& cles);
    void remplitmaintenant(const QStringList& cles);
    void cherchemaintenant(const QString& code, const QString& mots, const std::function<void(const QString&)>& ligne);
    void prendmaintenant(const QString& chemin);

    Monde monde_;
    VueLignes& lignes_;
    VueListe& vue_;
    ListeSelection liste_;
    Poste poste_;
    Atelier atelier_;
    int remplissages_ = 0;
};

} // namespace velm
