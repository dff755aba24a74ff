#pragma once
// The search form: three tabs, one for each search, over the bar of the collections that all of them look into.
#include "core/fenetrefille.h"
#include "search/formulaire.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QVBoxLayout;

namespace velm {

class BoiteDerniers;
class ChampDate;
class CompletionMots;
class Toolbar;

class FrmVelmorSelect final : public QWidget, public FenetreFille, private VueFormulaire {
    Q_OBJECT

public:
    explicit FrmVelmorSelect(const Formulaire::Monde& monde, QWidget* parent = nullptr);

    Formulaire& formulaire() { return formulaire_; }

    // ---- FenetreFille
    Nature nature() const override { return Nature::Recherche; }
    bool peut(Ordre) const override { return false; }
    void fait(Ordre) override {}
    void activation() override;
    void ecritreglages() override;
    void decharge() override;

signals:
    /// Wants to be hidden.
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
    void montreprogres(qint64 vus, qint64 total) override;
    void cacheprogres() override;
    void videresultat() override;
    void ajouteresultat(const QString& ligne) override;
    void focus(Onglet onglet) override;
    void cache() override;

    // ---- making
    QString texte(int numero) const { return texte_(numero); }
    void construit();
    void ordonne();
    QWidget* construitcollections();
    QWidget* ongletrapide();
    QWidget* ongletcriteres();
    QWidget* ongletmots();
    void ajoutetextes(QGridLayout& grille);
    void ajoutefiche(QGridLayout& grille);
    BoiteDerniers* boite(BoiteTexte laquelle, const QString& nom, int numerotexte);
    QComboBox* liste(const QString& nom, int numerotexte, const QStringList& items = {});
    QCheckBox* coche(const QString& nom, int numerotexte);
    QPushButton* bouton(const QString& nom, int numerotexte);
    ChampDate* champdate(const QString& nom, int numerotexte, int chiffres);
    /// The two buttons of a tab, and what stands at their left.
    void ajouteboutons(QVBoxLayout& page, Onglet onglet, const QString& chercher, const QString& annuler,
                       QWidget* gauche = nullptr);
    QLabel* etiquette(const QString& libelle, QWidget* nomme);
    void relie();

    void lance(Onglet onglet);
    bool dateretient(const QWidget* ou) const;
    /// One tab on or back, round the ends.
    void change(int pas);
    void presse(bool enfonces);
    QLineEdit* champ(BoiteTexte laquelle) const;
    BoiteDerniers& de(BoiteTexte laquelle) const { return *boites_.at(static_cast<std::size_t>(laquelle)); }
    static BoiteTexte boitede(Onglet onglet);

    std::function<QString(int)> texte_;
    Corpus& corpus_;
    Formulaire formulaire_;

    Toolbar* barre_cran_ = nullptr;
    QTabWidget* ongletrecherche_ = nullptr;
    QProgressBar* ProgressBar_ = nullptr;
    std::array<BoiteDerniers*, 4> boites_{};
    std::array<QPushButton*, 3> lancer_{};
    QComboBox* combonombre_ = nullptr;
    QComboBox* Combonombredico_ = nullptr;
    QCheckBox* checkandordico_ = nullptr;
    QListWidget* resultat_ = nullptr;
    CompletionMots* completion_ = nullptr;
    QRadioButton* Option1_ = nullptr;
    QRadioButton* Option2_ = nullptr;
    QComboBox* combomotcle_ = nullptr;
    QComboBox* combotype_ = nullptr;
    QListWidget* numerotype_ = nullptr;
    QComboBox* prefixe_ = nullptr;
    QComboBox* conjonction_ = nullptr;
    std::array<QCheckBox*, 2> motentier_{};
    std::array<QCheckBox*, 2> respectminmaj_{};
    std::array<QCheckBox*, 3> emplacement_{};
    ChampDate* textejour_ = nullptr;
    ChampDate* textemois_ = nullptr;
    ChampDate* texteannee_ = nullptr;
};

} // namespace velm
