#pragma once
// The selection list in its panel: the one owner of the rows, which binds them to the grid, opens their documents and
// works on them. Searches reach it as a HoteSelection.
#include "platform/system/dialogues.h"
#include "platform/system/outside.h"
#include "search/hoteselection.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QMenu;

namespace velm {

class Bureau;
class Ecrangeneral;
class FlexGrid;
class Reglages;
class Textes;
class Toolbar;
class VoletSelection;

class Selection final : public QObject, public HoteSelection {
    Q_OBJECT

public:
    /// Nothing is owned; all of it outlives the selection.
    struct Monde {
        Corpus& corpus;
        Reglages& reglages;
        Sablier& sablier;
        Dialogues& dialogues;
        Imprimante& imprimante;
        std::function<QString(int)> texte;
    };
    Selection(Ecrangeneral& ecran, Bureau& bureau, const Monde& monde);
    ~Selection() override;

    ListeSelection& liste() { return liste_; }
    FlexGrid& flex() const;

    // ---- HoteSelection
    Atelier& atelier() override { return atelier_; }
    EtatRecherche& etat() override { return etat_; }
    void commence() override;
    void acheve() override;
    void publie(const PublicationFin& fin) override;
    void formulairevisible(bool visible) override;
    void montreliste() override;

    // ---- the panel
    /// Shows or hides it; as long as there was no result the search form is wanted beside it, and hidden with it.
    void affichemenuselection(bool visible);

    // ---- the rows
    /// Opens the selected rows one after the other, with the words to mark; more than fifty after a question.
    void ouvre();
    /// Removes the selected rows and shows the new count.
    void supprime();
    /// Prints all rows, after a question.
    void imprime();
    void trie(int colonne);
    void suivantrecherche();
    void precedentrecherche();
    // What follows fills the list at once; while a search of the form does so, that one is stopped and waited for.
    /// Turns keys into the list, in this order; those without a document are passed over.
    void remplit(const QStringList& cles);
    /// The search by words of a document window, in its collection; each result line is told at once.
    void cherchedans(const QString& code, const QString& mots, const std::function<void(const QString&)>& ligne);
    /// What a selection tool has left in a folder; false when it left nothing.
    bool prenddoutil(const QString& dossiertemporaire);

    /// Widths and order of the columns, for the next run.
    void ecritcolonnes();

signals:
    /// The search form is to be shown or hidden.
    void criteresvoulus(bool montres);

private:
    QString texte(int numero) const { return monde_.texte(numero); }
    Toolbar& barre() const;
    void quandlibre(std::function<void()> travail);
    void travaille(const std::function<void()>& travail);
    void remplitmaintenant(const QStringList& cles);
    void cherchemaintenant(const QString& code, const QString& mots, const std::function<void(const QString&)>& ligne);
    void prendmaintenant(const QString& chemin);
    void prepareflex();
    void litcolonnes();
    void construitmenu();
    void clicbarre(const QString& cle);
    void regroupe();
    void suitselection();
    void montreselection();
    void cachepanneau();
    void montrelignes();
    bool veutouvrir(qsizetype nombre) const;
    void ouvrecle(const QString& cle);

    Ecrangeneral& ecran_;
    Bureau& bureau_;
    Monde monde_;
    ListeSelection liste_;
    Cession cession_;
    Atelier atelier_;
    EtatRecherche etat_;
    QMenu* menu_ = nullptr;
    int remplissages_ = 0;
    bool focus_ = false;          ///< the grid had it before it was hidden
    std::function<void()> suite_; ///< to be done when the list is free
    QTimer reprise_;
};

} // namespace velm
