#pragma once
// The one place that knows everybody: owns the run's state and connects the rooms.
#include "core/avis.h"
#include "core/cle.h"
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "document/styles.h"
#include "platform/base/failure.h"
#include "platform/system/courrier.h"
#include "platform/system/dialogues.h"
#include "platform/system/drives.h"
#include "platform/system/outside.h"
#include "platform/system/process.h"
#include "platform/system/sablier.h"
#include "platform/system/singleinstance.h"
#include "shell/logique/astuces.h"
#include "shell/logique/barres.h"
#include "shell/logique/seance.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QTranslator>

#include <array>
#include <memory>

class QDialog;

namespace velm {

class Bureau;
class Commandes;
class Ecrangeneral;
class Recherches;
class Selection;
class Textes;
class frmFindForm;
class frmSplash;

/// The doors to the outside world; none is owned.
struct MondeExterieur {
    Dialogues& dialogues;
    Navigateur& navigateur;
    Processus& processus;
    Sablier& sablier;
    PressePapiers& pressepapiers;
    Courrier& courrier;
    Imprimante& imprimante;
    const Lecteurs& lecteurs;
};

struct OptionsProgramme {
    QString dossierprogramme; ///< no final separator
    QString fichierprogramme;
    QString lignedecommande; ///< arguments joined with blanks
    QString fichierreglages;
    QString dossierinstance; ///< where the lock of the single instance lies
    QString dossierdonnees;  ///< the user's data folder, for the file types
};

class Programme final : public QObject, public Ecrans {
    Q_OBJECT

public:
    Programme(const OptionsProgramme& options, MondeExterieur monde);
    ~Programme() override;

    Demarrage demarre();
    bool quitteprogramme() { return seance_.quitteprogramme(); }
    /// What an ordinary end writes and closes, without its questions; and what it writes, closing nothing.
    void termine() { seance_.termine(); }
    void enregistre() { seance_.enregistre(); }

    /// What happened in one box; open transactions are rolled back. The caller ends the process.
    void erreurfatale(const RuntimeFailure& erreur);
    /// There was no memory for something; at the start the caller ends the process.
    void ditsansmemoire(bool audebut);

    /// Caption of a box's button; empty when the language file has none, without a box about that.
    QString libellebouton(Bouton bouton) { return avis_.libellebouton(bouton); }

    /// Opens the help file of the settings, in either spelling of its name; says so when there is none.
    void ouvreaide();

    Ecrangeneral* ecran() const { return ecran_.get(); }
    Bureau& bureau() const { return *bureau_; }
    Selection& selection() const { return *selection_; }
    Recherches& recherches() const { return *recherches_; }
    Commandes& commandes() const { return *commandes_; }
    Textes* fenetre(int indice) const;
    Seance& seance() { return seance_; }
    Corpus& corpus() { return corpus_; }
    const TableStyles& styles() const { return styles_; }

    // ---- Ecrans
    void afficheetape(const QString& texte) override;
    void montreaccueil() override;
    void fermeaccueil() override;
    void litstyles() override;
    void effacereconstructions() override;
    bool connexion() override;
    void ouvredossiers() override;
    void fermedossiers() override;
    QString chargeprincipale() override;
    void montreprincipale() override;
    void ouvre(const Cle& cle) override;
    void ouvrefichierdossier(const QString& chemin) override;
    void ouvrefichiercriteres(const QString& chemin) override;
    void astuce() override;
    bool impressionouverte() const override;
    void termineimpression() override;
    void abandonneimpression() override;
    EtatFenetres etatfenetres() const override;
    void sauvederniers() override;
    void notefenetres() override;
    void fermefenetres() override;
    void fermeprincipale() override;

    /// Shows the find dialog of the active document window.
    void montrerecherche();
    void montreapropos();
    void montrepartenaires();

private:
    Environnement environnement();
    Textes* fabriquefenetre(int indice);
    void chargebarres();
    void chargecommandes();
    void traduitoutils(); ///< what the toolkit itself says follows the program's language
    void montre(QDialog* fenetre);
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
    Seance seance_;
    QString etape_;
    std::optional<FileError> echecretenu_; ///< told when there are words for it
    EtatBarres barres_;
    Astuces astuces_{[] { return QRandomGenerator::global()->generateDouble(); }};
    QTranslator motsdesoutils_;
    std::array<bool, nombredefenetres> rafraichir_{}; ///< by slot: shown again at the next focus
    std::unique_ptr<frmSplash> accueil_;
    std::unique_ptr<Ecrangeneral> ecran_;
    std::unique_ptr<Bureau> bureau_;
    std::unique_ptr<Selection> selection_;
    std::unique_ptr<Recherches> recherches_;
    QPointer<frmFindForm> recherchetexte_; ///< the frame's child
    std::unique_ptr<Commandes> commandes_;
};

} // namespace velm
