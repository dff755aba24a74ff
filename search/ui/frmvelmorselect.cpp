#include "search/ui/frmvelmorselect.h"

#include "core/cle.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "search/ui/barrecollections.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"
#include "search/ui/defilement.h"
#include "search/ui/ongletcriteres.h"
#include "search/ui/ongletmots.h"
#include "search/ui/ongletrapide.h"
#include "search/ui/ongletsajustes.h"
#include "search/ui/piedformulaire.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The form keeps its lines together where there is more room than they need, and holds its highest tab at first.
constexpr QSize tailleutile(760, 660);
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

/// Behind the collections the Tab key goes as one reads, and of the buttons below a tab to the searching one first.
void ordonne(const QWidget& formulaire, QTabBar* onglets) {
    const QStringList noms{u"texterapide"_s,      u"combonombre"_s,     u"cmdokrapide"_s,    u"annulerrapide"_s,
                           u"toutcmdokrapide"_s,  u"prefixe"_s,         u"texterech(0)"_s,   u"motentier(0)"_s,
                           u"respectminmaj(0)"_s, u"conjonction"_s,     u"texterech(1)"_s,   u"motentier(1)"_s,
                           u"respectminmaj(1)"_s, u"emplacement(0)"_s,  u"emplacement(1)"_s, u"emplacement(2)"_s,
                           u"combomotcle"_s,      u"combotype"_s,       u"textejour"_s,      u"textemois"_s,
                           u"texteannée"_s,       u"Option1"_s,         u"Option2"_s,        u"cmdok"_s,
                           u"annuler"_s,          u"annulercriteres"_s, u"toutcmdok"_s,      u"Textedico"_s,
                           u"checkandordico"_s,   u"Combonombredico"_s, u"cmdokdico"_s,      u"annulerdico"_s,
                           u"toutcmdokdico"_s,    u"resultat"_s};
    QWidget* avant = onglets;
    for (const QString& nom : noms) {
        auto* const celui = formulaire.findChild<QWidget*>(nom);
        QWidget::setTabOrder(avant, celui);
        avant = celui;
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
    setWindowTitle(texte_(Texte::TitreRechercheDeDocuments));
    construit(services.liste.corpus());
    formulaire_.charge();
    relie();
}

// ---- making

void FrmVelmorSelect::construit(Corpus& corpus) {
    auto* champs = new QWidget;
    auto* disposition = new QVBoxLayout(champs);
    disposition->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::spacing);
    disposition->setSpacing(look::windowMargin);
    barre_cran_ = new BarreCollections(texte_, champs);
    disposition->addWidget(barre_cran_);
    construitonglets(champs, corpus);
    disposition->addWidget(ongletrecherche_);
    disposition->addStretch(1);
    auto* dehors = new QVBoxLayout(this);
    dehors->setContentsMargins({});
    dehors->setSpacing(0);
    const int largeur = std::max(tailleutile.width(), champs->sizeHint().width());
    auto* fond = new QWidget;
    metaumilieu(*champs, largeur, new QHBoxLayout(fond));
    auto* vue = new Defilement(this);
    vue->setWidget(fond);
    dehors->addWidget(vue);
    mots_->suite().layout()->setContentsMargins(look::windowMargin, 0, look::windowMargin, look::windowMargin);
    for (QWidget* celui : std::initializer_list<QWidget*>{pied_, &mots_->suite()}) {
        auto* autour = new QHBoxLayout;
        metaumilieu(*celui, largeur, autour);
        dehors->addLayout(autour, celui == pied_ ? 0 : 1);
        // The buttons below keep their edges in line with the fields, beside which the scroll bar comes and goes.
        connect(vue, &Defilement::barrechangee, this,
                [autour](int barre) { autour->setContentsMargins(0, 0, barre, 0); });
    }
    dehors->addStretch();
    connect(vue, &Defilement::barrechangee, pied_, [this](int barre) { pied_->separe(barre > 0); });
    ordonne(*this, ongletrecherche_->tabBar());
    ajuste(Onglet::Rapide);
}

void FrmVelmorSelect::construitonglets(QWidget* parent, Corpus& corpus) {
    ongletrecherche_ = new OngletsAjustes(parent);
    ongletrecherche_->setObjectName(u"ongletrecherche"_s);
    rapide_ = new OngletRapide(texte_);
    criteres_ = new OngletCriteres(texte_, formulaire_.items(), formulaire_.types(),
                                   [this](const QWidget* ou) { return ou && isAncestorOf(ou); });
    mots_ = new OngletMots(texte_, corpus);
    ongletrecherche_->addTab(rapide_, texte_(Texte::OngletRapide));
    ongletrecherche_->addTab(criteres_, texte_(Texte::OngletCriteres));
    ongletrecherche_->addTab(mots_, texte_(Texte::OngletMots));
    pied_ = new PiedFormulaire(this);
    for (const Onglet onglet : touslesonglets)
        pied_->ajoute(&page(onglet).pied());
    ProgressBar_ = nouveauprogres(texte_(Texte::AvancementDeLaRecherche), pied_);
    pied_->ajoute(ProgressBar_);
}

/// Below the fields stands what belongs to the tab that is shown.
void FrmVelmorSelect::ajuste(Onglet onglet) {
    for (const Onglet celui : touslesonglets)
        page(celui).pied().setVisible(celui == onglet);
    mots_->suite().setVisible(onglet == Onglet::Mots);
}

QSize FrmVelmorSelect::sizeHint() const {
    return tailleutile.expandedTo(QWidget::sizeHint());
}

void FrmVelmorSelect::relie() {
    connect(ongletrecherche_, &QTabWidget::currentChanged, this, [this](int onglet) {
        ajuste(static_cast<Onglet>(onglet));
        formulaire_.ongletchange(static_cast<Onglet>(onglet));
        // A form that waits to be shown has the focus itself.
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
    connect(&page(onglet), &PageRecherche::cherchevoulu, this, [this, onglet] {
        mots_->renonce();
        // What is wrong with the next search stops none that runs.
        if (onglet == Onglet::Criteres && !formulaire_.boutonarrete(onglet) && !criteres_->quittedates())
            return;
        formulaire_.clic(onglet);
    });
    connect(&page(onglet), &PageRecherche::annulationvoulue, this, [this] { formulaire_.annuler(); });
    connect(&page(onglet), &PageRecherche::toutvoulu, this, [this, onglet] { formulaire_.toutafficher(onglet); });
}

PageRecherche& FrmVelmorSelect::page(Onglet onglet) const {
    return onglet == Onglet::Criteres ? static_cast<PageRecherche&>(*criteres_)
           : onglet == Onglet::Mots   ? static_cast<PageRecherche&>(*mots_)
                                      : *rapide_;
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

void FrmVelmorSelect::activation() {
    // Who clicks into another control of the form wants to be there.
    QWidget* ici = QApplication::focusWidget();
    const bool clique = QApplication::mouseButtons() != Qt::NoButton && ici && ici != this && isAncestorOf(ici);
    formulaire_.active();
    if (clique)
        ici->setFocus(Qt::MouseFocusReason);
}

void FrmVelmorSelect::ecritreglages() {
    formulaire_.decharge();
}

void FrmVelmorSelect::decharge() {
    formulaire_.ferme();
    formulaire_.decharge();
}

void FrmVelmorSelect::closeEvent(QCloseEvent* evenement) {
    // The form is hidden, not closed: it keeps what it holds for the next search.
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

void FrmVelmorSelect::ditbilan(Onglet onglet, const BilanRecherche& bilan) {
    page(onglet).ditbilan(bilan);
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
