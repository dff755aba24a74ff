#pragma once
// The search form: three tabs, one for each search, over the bar of the collections that all of them look into.
#include "core/fenetrefille.h"
#include "core/texte.h"
#include "search/formulaire.h"

#include <QWidget>

class QLineEdit;
class QProgressBar;
class QTabWidget;

namespace velm {

class BarreCollections;
class BoiteDerniers;
class OngletCriteres;
class OngletMots;
class OngletRapide;
class PageRecherche;
class PiedFormulaire;

class FrmVelmorSelect final : public QWidget, public FenetreFille, private VueFormulaire {
    Q_OBJECT

public:
    explicit FrmVelmorSelect(const Formulaire::Services& services, QWidget* parent = nullptr);

    Formulaire& formulaire() { return formulaire_; }
    QSize sizeHint() const override;

    // ---- FenetreFille
    Nature nature() const override { return Nature::Recherche; }
    bool peut(Ordre) const override { return false; }
    void fait(Ordre) override {}
    void activation() override;
    void ecritreglages() override;
    void decharge() override;

signals:
    /// Closed or given up by the user: whoever shows the form is to hide it.
    void cachevoulu();

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    // ---- VueFormulaire
    EtatFormulaire etat() const override;
    void montre(const EtatFormulaire& etat) override;
    void montreonglet(Onglet onglet) override;
    void montrecriteres(const Criteres& criteres) override;
    void montremots(const QString& mots) override;
    void offremotscles(const QStringList& items) override;
    void offrederniers(BoiteTexte boite, const QStringList& textes) override;
    void permetaffinage(bool permis) override;
    void choisitaffinage(bool affinage) override;
    bool affinage() const override;
    void libelle(Onglet onglet, const QString& texte) override;
    void ditbilan(Onglet onglet, const BilanRecherche& bilan) override;
    void montreprogres(qint64 vus, qint64 total) override;
    void cacheprogres() override;
    void videresultat() override;
    void ajouteresultat(const QString& ligne) override;
    void focus(Onglet onglet) override;
    void cache() override;

    void construit(Corpus& corpus);
    void construitonglets(QWidget* parent, Corpus& corpus);
    void relie();
    void relie(Onglet onglet);

    void ajuste(Onglet onglet);
    PageRecherche& page(Onglet onglet) const;
    BoiteDerniers& boite(BoiteTexte laquelle) const;

    Libelles texte_;
    Formulaire formulaire_;

    BarreCollections* barre_cran_ = nullptr;
    QTabWidget* ongletrecherche_ = nullptr;
    OngletRapide* rapide_ = nullptr;
    OngletCriteres* criteres_ = nullptr;
    OngletMots* mots_ = nullptr;
    PiedFormulaire* pied_ = nullptr;
    QProgressBar* ProgressBar_ = nullptr;
};

} // namespace velm
