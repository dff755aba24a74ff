#pragma once
// The one place that knows everybody: owns the run's state and connects the rooms.
#include "core/avis.h"
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "document/styles.h"
#include "platform/base/failure.h"
#include "platform/system/singleinstance.h"
#include "platform/system/ui/qtimprimante.h"
#include "shell/accueil.h"
#include "shell/aide.h"
#include "shell/cadreprincipal.h"
#include "shell/fenetredossiers.h"
#include "shell/impressions.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

#include <QObject>

#include <chrono>
#include <optional>

namespace velm {

class Textes;

struct OptionsProgramme {
    QString dossierprogramme; ///< no final separator
    QString fichierprogramme;
    QString lignedecommande; ///< arguments joined with blanks
    QString fichierreglages;
    QString dossierinstance;                 ///< where the lock of the single instance lies
    QString dossierdonnees;                  ///< the user's data folder, for the file types
    std::chrono::milliseconds patience{400}; ///< a start that takes longer shows how far it is
};

class Programme final : public QObject {
    Q_OBJECT

public:
    Programme(const OptionsProgramme& options, MondeExterieur monde);
    ~Programme() override;

    Demarrage demarre();
    bool quitteprogramme() { return fin_.quitteprogramme(); }
    /// What an ordinary end writes and closes, without its questions; and what it writes, closing nothing.
    void termine() { fin_.termine(); }
    void enregistre() { fin_.enregistre(); }

    /// What happened in one box; open transactions are rolled back. The caller ends the process.
    void erreurfatale(const RuntimeFailure& erreur);
    /// There was no memory for something; at the start the caller ends the process.
    void ditsansmemoire(bool audebut);

    /// Caption of a box's button; empty when the language file has none, without a box about that.
    QString libellebouton(Bouton bouton) { return avis_.libellebouton(bouton); }
    /// What file dialogs call what they list.
    SortesFichier sortesdefichiers();
    /// What the dialogs of the printer say.
    MotsImprimante motsdelimprimante();
    void ouvreaide() const { aide_.ouvre(); }
    bool aidepresente() const { return aide_.presente(); }

    CadrePrincipal& cadre() { return cadre_; }
    Ecrangeneral* ecran() const { return cadre_.ecran(); }
    Bureau& bureau() const { return *cadre_.bureau(); }
    Selection& selection() const { return cadre_.selection(); }
    Recherches& recherches() const { return cadre_.recherches(); }
    FenetreDossiers& dossiers() { return dossiers_; }
    Impressions& impressions() { return impressions_; }
    FenetresListes& listes() const { return cadre_.listes(); }
    Textes* fenetre(int indice) const; ///< null before there is a frame, too
    void ouvre(const Cle& cle) { cadre_.ouvre(cle); }
    Corpus& corpus() { return corpus_; }

private:
    Environnement environnement();
    Ecrans ecrans();
    bool connexion();
    void litstyles();
    void ditechec(const FileError& erreur); ///< settings cannot be written

    OptionsProgramme options_;
    MondeExterieur monde_;
    SingleInstance instance_;
    ReglagesStore magasin_;
    Reglages reglages_;
    Langue langue_;
    Avis avis_;
    Corpus corpus_;
    TableStyles styles_;
    EcranAccueil accueil_;
    Impressions impressions_;
    FenetreDossiers dossiers_;
    Aide aide_;
    CadrePrincipal cadre_;
    Seance seance_;
    FinSeance fin_;
    std::optional<FileError> echecretenu_; ///< told when there are words for it
};

} // namespace velm
