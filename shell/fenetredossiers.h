#pragma once
// The user's dossiers in the running program: the store from start to exit, the window over the frame, and the document
// that is opened from it.
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "dossiers/fichiersdossiers.h"
#include "dossiers/magasin.h"
#include "shell/logique/ecrans.h"
#include "shell/mondeexterieur.h"

#include <QObject>
#include <QPointer>

namespace velm {

class Bureau;
class Ecrangeneral;
class Seance;
class Textes;
class Impressions;
class frmdossiers;

class FenetreDossiers final : public QObject, public Dossiers {
    Q_OBJECT

public:
    /// None is owned; all of it outlives this.
    struct Donnees {
        Reglages& reglages;
        Langue& langue;
        Corpus& corpus;
        const Seance& seance;
        const MondeExterieur& monde;
        Impressions& impressions;
    };
    explicit FenetreDossiers(const Donnees& donnees);
    ~FenetreDossiers() override;

    /// The frame over which the window is shown, and the desk on which documents open: from now on, until decharge().
    /// `ontrouve`: whether the selection list has rows.
    void attache(Ecrangeneral& ecran, Bureau& bureau, std::function<bool()> ontrouve);
    void decharge();
    /// What a document window hands over is stored.
    void suit(Textes& fenetre);

    /// Shows the window; empty: with nothing to store. Without a store that is a run-time error.
    void montre(const ElementEnAttente& attente = {});
    frmdossiers* fenetre() const;
    Magasin& magasin() { return magasin_; }

    // ---- Dossiers
    void ouvredossiers() override;
    void fermedossiers() override;
    void ouvrefichierdossier(const QString& chemin) override;

private:
    void fermee();
    void ouvre(const QString& cle);

    Donnees donnees_;
    Magasin magasin_;
    FichiersDossiers fichiers_;
    std::function<bool()> ontrouve_;
    Ecrangeneral* ecran_ = nullptr;
    Bureau* bureau_ = nullptr;
    QPointer<frmdossiers> fenetre_;
};

} // namespace velm
