#include "search/ui/frmvelmorselect.h"

#include "core/cle.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "search/ui/bandecollections.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"
#include "search/ui/ongletcriteres.h"
#include "search/ui/ongletmots.h"
#include "search/ui/ongletrapide.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The form keeps its lines together where there is more room than they need.
constexpr QSize tailleutile(760, 620);
constexpr std::array touslesonglets{Onglet::Rapide, Onglet::Criteres, Onglet::Mots};

QProgressBar* nouveauprogres(const QString& nom, QWidget* parent) {
    auto* barre = new QProgressBar(parent);
    barre->setObjectName(u"ProgressBar"_s);
    barre->setAccessibleName(nom);
    barre->setTextVisible(false);
    barre->setFixedHeight(look::spacing);
    // Its place is kept: nothing moves when a search begins.
    QSizePolicy place = barre->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    barre->setSizePolicy(place);
    return barre;
}

/// The Tab key goes as one reads, and of the buttons below a tab to the searching one first.
void ordonne(const QWidget& formulaire, QTabBar* onglets) {
    const QStringList noms{
        u"toutsélect"_s,     u"toutdéselect"_s,    u"texterapide"_s,  u"combonombre"_s,      u"cmdokrapide"_s,
        u"annulerrapide"_s,  u"prefixe"_s,         u"texterech(0)"_s, u"motentier(0)"_s,     u"respectminmaj(0)"_s,
        u"conjonction"_s,    u"texterech(1)"_s,    u"motentier(1)"_s, u"respectminmaj(1)"_s, u"emplacement(0)"_s,
        u"emplacement(1)"_s, u"emplacement(2)"_s,  u"combomotcle"_s,  u"combotype"_s,        u"textejour"_s,
        u"textemois"_s,      u"texteannée"_s,      u"Option1"_s,      u"Option2"_s,          u"cmdok"_s,
        u"annuler"_s,        u"annulercriteres"_s, u"Textedico"_s,    u"checkandordico"_s,   u"Combonombredico"_s,
        u"cmdokdico"_s,      u"annulerdico"_s,     u"resultat"_s};
    QWidget* avant = nullptr;
    for (const QString& nom : noms) {
        auto* const celui = formulaire.findChild<QWidget*>(nom);
        if (avant)
            QWidget::setTabOrder(avant, celui);
        avant = celui;
        if (nom == u"toutdéselect") {
            QWidget::setTabOrder(avant, onglets);
            avant = onglets;
        }
    }
}

/// The tab before or behind the present one, round the ends.
Onglet voisin(const QTabWidget& onglets, int pas) {
    const int nombre = onglets.count();
    return static_cast<Onglet>((onglets.currentIndex() + pas + nombre) % nombre);
}

} // namespace

FrmVelmorSelect::FrmVelmorSelect(const Formulaire::Services& services, QWidget* parent)
    : QWidget(parent), texte_(services.texte), formulaire_(services, *this) {
    setObjectName(u"frmVelmorSelect"_s);
    setWindowTitle(texte(Texte::TitreRechercheDeDocuments));
    construit(services.liste.corpus());
    formulaire_.charge();
    relie();
}

// ---- making

void FrmVelmorSelect::construit(Corpus& corpus) {
    auto* centre = new QWidget(this);
    auto* disposition = new QVBoxLayout(centre);
    disposition->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::spacing);
    disposition->setSpacing(look::windowMargin);
    disposition->addWidget(construitcollections());
    construitonglets(centre, corpus);
    disposition->addWidget(ongletrecherche_, 1);
    ProgressBar_ = nouveauprogres(texte(Texte::AvancementDeLaRecherche), centre);
    disposition->addWidget(ProgressBar_);
    ordonne(*this, ongletrecherche_->tabBar());
    // In the middle, as large as it can use.
    auto* dehors = new QGridLayout(this);
    dehors->setContentsMargins({});
    dehors->addWidget(centre, 0, 0);
    dehors->setColumnStretch(0, 1);
    dehors->setRowStretch(0, 1);
    centre->setMaximumSize(tailleutile.expandedTo(centre->sizeHint()));
}

void FrmVelmorSelect::construitonglets(QWidget* parent, Corpus& corpus) {
    ongletrecherche_ = new QTabWidget(parent);
    ongletrecherche_->setObjectName(u"ongletrecherche"_s);
    rapide_ = new OngletRapide(texte_);
    criteres_ = new OngletCriteres(texte_, formulaire_.items(), formulaire_.types(),
                                   [this](const QWidget* ou) { return ou && isAncestorOf(ou); });
    mots_ = new OngletMots(texte_, corpus);
    ongletrecherche_->addTab(rapide_, texte(Texte::OngletRapide));
    ongletrecherche_->addTab(criteres_, texte(Texte::OngletCriteres));
    ongletrecherche_->addTab(mots_, texte(Texte::OngletMots));
}

QWidget* FrmVelmorSelect::construitcollections() {
    barre_cran_ = new Toolbar(this);
    barre_cran_->setObjectName(u"barre_cran"_s);
    barre_cran_->setAccessibleName(texte(Texte::CritereCollections));
    barre_cran_->setImages(icon);
    for (int collection = 0; collection < nombredecollections; ++collection) {
        const QString cle = typedindice(collection);
        barre_cran_->addButton(cle, Toolbar::Kind::Check, u"collection%1"_s.arg(collection));
        barre_cran_->setToolTip(cle, texte(libelledefenetre(collection)));
        barre_cran_->setValue(cle, true);
    }
    auto* toutes = nouveaubouton(u"toutsélect"_s, texte(Texte::ToutSelectionner), this);
    auto* aucune = nouveaubouton(u"toutdéselect"_s, texte(Texte::ToutDeselectionner), this);
    connect(toutes, &QPushButton::clicked, this, [this] { presse(true); });
    connect(aucune, &QPushButton::clicked, this, [this] { presse(false); });
    return new BandeCollections(nouvelleetiquette(texte(Texte::CritereCollections), barre_cran_, this), barre_cran_,
                                {toutes, aucune}, this);
}

void FrmVelmorSelect::relie() {
    connect(ongletrecherche_, &QTabWidget::currentChanged, this, [this](int onglet) {
        formulaire_.ongletchange(static_cast<Onglet>(onglet));
        // The form as a whole has the focus while it waits to be shown.
        if (window()->focusWidget() == this)
            focus(static_cast<Onglet>(onglet));
    });
    // The tab bar takes the focus with the click: the box has it after that.
    connect(
        ongletrecherche_, &QTabWidget::tabBarClicked, this,
        [this](int onglet) {
            if (onglet >= 0)
                focus(static_cast<Onglet>(ongletrecherche_->currentIndex()));
        },
        Qt::QueuedConnection);
    for (const Onglet onglet : touslesonglets)
        relie(onglet);
    connect(criteres_, &OngletCriteres::effacementvoulu, this, [this] { formulaire_.annulercriteres(); });
    connect(mots_, &OngletMots::lignechoisie, this, [this](const QString& ligne) { formulaire_.choisitligne(ligne); });
}

void FrmVelmorSelect::relie(Onglet onglet) {
    connect(&page(onglet), &PageRecherche::cherchevoulu, this, [this, onglet] { lance(onglet); });
    connect(&page(onglet), &PageRecherche::annulationvoulue, this, [this] { formulaire_.annuler(); });
}

PageRecherche& FrmVelmorSelect::page(Onglet onglet) const {
    switch (onglet) {
    case Onglet::Criteres:
        return *criteres_;
    case Onglet::Mots:
        return *mots_;
    case Onglet::Rapide:
        break;
    }
    return *rapide_;
}

BoiteDerniers& FrmVelmorSelect::boite(BoiteTexte laquelle) const {
    switch (laquelle) {
    case BoiteTexte::Premier:
        return criteres_->boite(0);
    case BoiteTexte::Second:
        return criteres_->boite(1);
    case BoiteTexte::Mots:
        return mots_->boite();
    case BoiteTexte::Rapide:
        break;
    }
    return rapide_->boite();
}

// ---- what the user does

void FrmVelmorSelect::lance(Onglet onglet) {
    mots_->renonce();
    // What is wrong with the next search stops none that runs.
    if (onglet == Onglet::Criteres && !formulaire_.boutonarrete(onglet) && !criteres_->quittedates())
        return;
    formulaire_.clic(onglet);
}

void FrmVelmorSelect::presse(bool enfonces) {
    for (int rang = 1; rang <= barre_cran_->buttonCount(); ++rang)
        barre_cran_->setValue(barre_cran_->keyAt(rang), enfonces);
}

void FrmVelmorSelect::activation() {
    // Who clicks into another control of the form wants to be there.
    const QWidget* ici = QApplication::focusWidget();
    if (QApplication::mouseButtons() == Qt::NoButton || !ici || ici == this || !isAncestorOf(ici)) {
        formulaire_.active();
        return;
    }
    const QPointer<QWidget> garde(const_cast<QWidget*>(ici));
    formulaire_.active();
    if (garde)
        garde->setFocus(Qt::MouseFocusReason);
}

void FrmVelmorSelect::ecritreglages() {
    formulaire_.decharge();
}

void FrmVelmorSelect::decharge() {
    formulaire_.ferme();
    formulaire_.decharge();
}

void FrmVelmorSelect::closeEvent(QCloseEvent* evenement) {
    // It stays for the next search, with what it holds.
    evenement->ignore();
    formulaire_.ferme();
}

void FrmVelmorSelect::keyPressEvent(QKeyEvent* evenement) {
    const bool controle = evenement->modifiers() == Qt::ControlModifier;
    if (evenement->matches(QKeySequence::Cancel))
        formulaire_.echappe();
    else if (controle && evenement->key() == Qt::Key_PageDown)
        montreonglet(voisin(*ongletrecherche_, 1));
    else if (controle && evenement->key() == Qt::Key_PageUp)
        montreonglet(voisin(*ongletrecherche_, -1));
    else
        QWidget::keyPressEvent(evenement);
}

// ---- the controls as the logic sees them

EtatFormulaire FrmVelmorSelect::etat() const {
    EtatFormulaire etat;
    etat.ongletrecherche = ongletrecherche_->currentIndex();
    rapide_->lit(etat);
    etat.criteres = criteres_->criteres();
    mots_->lit(etat);
    for (std::size_t i = 0; i < etat.boutons.size(); ++i)
        etat.boutons[i] = barre_cran_->value(barre_cran_->keyAt(static_cast<int>(i) + 1));
    return etat;
}

void FrmVelmorSelect::montre(const EtatFormulaire& etat) {
    ongletrecherche_->setCurrentIndex(etat.ongletrecherche);
    mots_->montre(etat);
    rapide_->montre(etat);
    criteres_->montre(etat.criteres);
    for (std::size_t i = 0; i < etat.boutons.size(); ++i)
        barre_cran_->setValue(barre_cran_->keyAt(static_cast<int>(i) + 1), etat.boutons[i]);
}

void FrmVelmorSelect::montreonglet(Onglet onglet) {
    ongletrecherche_->setCurrentIndex(static_cast<int>(onglet));
    focus(onglet);
}

void FrmVelmorSelect::montrecriteres(const Criteres& criteres) {
    criteres_->montre(criteres);
}

void FrmVelmorSelect::montremots(const QString& mots) {
    mots_->montremots(mots);
}

void FrmVelmorSelect::offremotscles(const QStringList& items) {
    criteres_->offremotscles(items);
}

void FrmVelmorSelect::offrederniers(BoiteTexte laquelle, const QStringList& textes) {
    boite(laquelle).offre(textes);
}

void FrmVelmorSelect::permetaffinage(bool permis) {
    criteres_->permetaffinage(permis);
}

void FrmVelmorSelect::choisitaffinage(bool affinage) {
    criteres_->choisitaffinage(affinage);
}

bool FrmVelmorSelect::affinage() const {
    return criteres_->affinage();
}

void FrmVelmorSelect::libelle(Onglet onglet, const QString& texte) {
    page(onglet).lanceur().setText(texte);
}

void FrmVelmorSelect::montreprogres(qint64 vus, qint64 total) {
    ProgressBar_->setMaximum(static_cast<int>(total));
    ProgressBar_->setValue(static_cast<int>(vus));
    ProgressBar_->setToolTip(plainTip(QString::number(vus)));
    ProgressBar_->show();
}

void FrmVelmorSelect::cacheprogres() {
    ProgressBar_->hide();
}

void FrmVelmorSelect::videresultat() {
    mots_->videresultat();
}

void FrmVelmorSelect::ajouteresultat(const QString& ligne) {
    mots_->ajouteresultat(ligne);
}

void FrmVelmorSelect::focus(Onglet onglet) {
    QLineEdit& celui = page(onglet).champ();
    if (celui.hasFocus())
        return;
    celui.setFocus(Qt::OtherFocusReason);
    celui.selectAll();
}

void FrmVelmorSelect::cache() {
    mots_->renonce();
    emit cachevoulu();
}

} // namespace velm
