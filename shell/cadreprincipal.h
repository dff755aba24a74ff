#pragma once
// The frame with its desk, its panel, its search form and its commands: made when the program starts, asked by the
// run's start and end.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "core/texte.h"
#include "document/styles.h"
#include "shell/logique/barres.h"
#include "shell/logique/finseance.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

#include <QObject>

#include <array>
#include <memory>

namespace velm {

struct Aide;
class Bureau;
class Commandes;
class Depart;
class Ecrangeneral;
class EntreesFenetres;
class FabriqueTextes;
class FenetreDossiers;
class Impressions;
class FenetreFille;
class FenetresAnnexes;
class FenetresListes;
class LigneDEtat;
class MotsDesOutils;
class Recherches;
class Selection;
class ZoomTextes;

class CadrePrincipal final : public QObject, public Cadre {
    Q_OBJECT

public:
    /// What the frame works on; none is owned, and all of it outlives the frame.
    struct Donnees {
        Reglages& reglages;
        Langue& langue;
        Corpus& corpus;
        const TableStyles& styles;
        Seance& seance;
        FinSeance& fin;
        const MondeExterieur& monde;
        const Aide& aide;
        FenetreDossiers& dossiers;
        Impressions& impressions;
    };
    explicit CadrePrincipal(const Donnees& donnees);
    ~CadrePrincipal() override;

    Ecrangeneral* ecran() const { return ecran_.get(); } ///< null before it is loaded
    Bureau* bureau() const { return bureau_.get(); }
    Selection& selection() const { return *selection_; }
    Recherches& recherches() const { return *recherches_; }
    FenetresAnnexes& annexes() const { return *annexes_; }
    FenetresListes& listes() const { return *listes_; }
    Commandes& commandes() const { return *commandes_; }
    Depart& depart() const { return *depart_; }
    /// Out of the icon, to the front, as large as it was before.
    void remonte();

    /// Everything goes, while what it works on is still there.
    void decharge();

    // ---- Cadre
    void effacereconstructions() override;
    QString chargeprincipale() override;
    void montreprincipale() override;
    void ouvre(const Cle& cle) override;
    void ouvrefichiercriteres(const QString& chemin) override;
    void astuce(bool attend) override;
    EtatFenetres etatfenetres() const override;
    void sauvederniers() override;
    void notefenetres() override;
    void fermefenetres() override;
    void fermeprincipale() override;

private:
    QString texte(Texte lequel) const { return donnees_.langue.lireressource(lequel); }
    void chargeaspect();
    void chargecommandes();
    void chargedevant();
    void suitdevant();

    Donnees donnees_;
    EtatBarres barres_;
    std::unique_ptr<MotsDesOutils> motsdesoutils_;
    std::array<bool, nombredefenetres> rafraichir_{}; ///< by slot: shown again at the next focus
    std::unique_ptr<FabriqueTextes> fabrique_;        ///< outlives the frame, in which its windows are
    std::unique_ptr<Ecrangeneral> ecran_;
    std::unique_ptr<Bureau> bureau_;
    std::unique_ptr<Selection> selection_;
    std::unique_ptr<Recherches> recherches_;
    std::unique_ptr<FenetresAnnexes> annexes_;
    std::unique_ptr<FenetresListes> listes_;
    /// The window last seen in front, but for the search form. Only for comparing: it may have gone.
    const FenetreFille* devant_ = nullptr;
    std::unique_ptr<ZoomTextes> zoom_;
    std::unique_ptr<LigneDEtat> etat_;
    std::unique_ptr<EntreesFenetres> entrees_;
    std::unique_ptr<Depart> depart_;
    std::unique_ptr<Commandes> commandes_;
};

} // namespace velm
