#pragma once
// The window of the user's dossiers: the tree at the left, the items of the selected dossier at the right, and beside
// them what can be done. It is modal, but shown, not executed: whoever opened it hears finished().
#include "core/corpus.h"
#include "core/reglages.h"
#include "dossiers/dispositiondossiers.h"
#include "dossiers/echangedossiers.h"
#include "dossiers/fichiersdossiers.h"
#include "dossiers/ui/porteurdossiers.h"
#include "dossiers/ui/retourdossiers.h"
#include "dossiers/ui/touchesdossiers.h"

#include <QDialog>

class QCheckBox;
class QLabel;

namespace velm {

class ColonneDossiers;
class ListeDossier;
class SplitterBar;
class Toolbar;

class frmdossiers final : public QDialog, private VueDossiers {
    Q_OBJECT

public:
    /// What the window works on; none is owned, and all of it outlives the window.
    struct Contexte {
        Magasin& magasin;
        Corpus& corpus;
        Reglages& reglages;
        Sablier& sablier;
        Dialogues& dialogues;
        FichiersDossiers& fichiers;
        Libelles texte;
        std::function<bool()> ontrouve; ///< whether the selection list has rows
        /// What prints the items of a dossier, and what makes a PDF of them: the dossier's text and the items' keys.
        using Sortie = std::function<void(const QString& libelle, const QStringList& cles)>;
        Sortie imprime;
        Sortie exporte;
    };
    explicit frmdossiers(const Contexte& contexte, QWidget* parent = nullptr);

    /// Loads the tree and shows the window, with something that waits to be stored or with nothing.
    void montre(const ElementEnAttente& attente);
    /// Reads a file of a dossier, that of the command line, and saves; what is wrong is said.
    void chargefichier(const QString& nomfichier);
    /// The key of the item that is to be opened now that the window is closed; empty for none.
    const QString& nodocument() const { return nodocument_; }
    GestionDossiers& gestion() { return gestion_; }

    /// Closes without asking anybody, when the run ends: what can be saved is.
    void fermesansquestion();

    void done(int resultat) override;

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    // ---- VueDossiers
    void montrecommandes(const CommandesDossiers& commandes) override;
    void editenoeud(int noeud) override;
    void editeelement(int index) override;
    void focusliste() override;
    void montrecible(int noeud) override;
    void montreattente(const ElementEnAttente& attente) override;
    void ditcopiemanquee() override;

    QString texte(Texte lequel) const { return contexte_.texte(lequel); }
    void construit();
    void construitbarres();
    void reliearbre();
    void relieliste();
    void reliecommandes();
    void reliefichiers();
    void ouvrefichier(const QString& nomfichier);
    void repare();
    void sort(const Contexte::Sortie& sortie);
    void ecritligne(const QString& texte);
    void teinteligne();
    void place();
    DispositionDossiers::Mesures mesures() const;
    void chargerdocument(int index);
    void relitplace();
    void ecritplace() const;

    Contexte contexte_;
    TreeView* arbre_;     ///< TreeView1
    ListeDossier* liste_; ///< contenudossier
    GestionDossiers gestion_;
    EchangeDossiers echange_;
    PorteurDossiers porteur_;
    std::unique_ptr<RetourDossiers> retour_;
    std::unique_ptr<TouchesDossiers> touches_;
    DispositionDossiers disposition_;
    ColonneDossiers* colonne_;
    SplitterBar* separateur_;
    Toolbar* barre_;                 ///< Toolbar1
    Toolbar* barrevue_;              ///< tlbHierarchie
    QCheckBox* developpe_ = nullptr; ///< Checkdeveloppe
    QLabel* ligne_;                  ///< above the tree: what waits to be stored
    QString nodocument_;
    bool sansquestion_ = false;
};

} // namespace velm
