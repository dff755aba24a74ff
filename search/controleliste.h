#pragma once
// What the selection list does, without its panel: it follows the selected rows, opens their documents, removes, sorts
// and prints. Nothing of the rows is touched while they are filled.
#include "core/reglages.h"
#include "core/texte.h"
#include "platform/system/imprimante.h"
#include "search/remplissageliste.h"

#include <QStringList>

namespace velm {

class ControleListe {
public:
    /// Nothing is owned; all of it outlives the list.
    struct Services {
        RemplissageListe::Services recherche;
        Reglages& reglages;
        Imprimante& imprimante;
    };
    /// Order and widths of the columns are those of the last run. The views are not spoken to yet.
    ControleListe(const Services& services, VueLignes& lignes, VueListe& vue);

    /// The views are made: they show that there is nothing yet.
    void charge();
    ListeSelection& liste() { return liste_; }
    /// Where searches put what they find.
    RemplissageListe& remplissage() { return remplissage_; }

    // ---- the panel
    /// Shows or hides it; as long as there was no result the search form is wanted beside it, and hidden with it.
    void affichemenuselection(bool visible);
    /// The search form has been shown or hidden: its button follows.
    void formulairevisible(bool visible);
    /// The button that merges equal cells is down, or up.
    void regroupe(bool enfonce);

    // ---- the rows
    /// Opens the selected rows one after the other, with the words to mark; more than fifty after a question.
    void ouvre();
    /// Removes the selected rows and shows the new count.
    void supprime();
    /// Prints all rows, after a question.
    void imprime();
    /// All rows as they go to paper: they are selected then.
    PaperTable tableau();
    /// Sorts by a column, from its end where it is sorted already.
    void trie(int colonne);
    void suivantrecherche();
    void precedentrecherche();

    /// Widths and order of the columns, for the next run.
    void ecritcolonnes();

private:
    QString texte(Texte lequel) const { return services_.recherche.texte(lequel); }
    bool remplie() const { return remplissage_.encours(); }
    void litchoix();
    void montrechoix();
    QStringList cleschoisies() const;

    Services services_;
    VueLignes& lignes_;
    VueListe& vue_;
    ListeSelection liste_;
    RemplissageListe remplissage_;
};

} // namespace velm
