#include "document/ui/fenetreliste.h"

#include "core/listes.h"
#include "core/texte.h"
#include "platform/base/memory.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"

#include <QCloseEvent>
#include <QMenu>
#include <QVBoxLayout>

#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString boutonregrouper = u"typeflex"_s;
const QString panneaucompte = u"nombre"_s;

} // namespace

FenetreListe::FenetreListe(const DescriptionListe& description, const ContexteListe& contexte, QWidget* parent)
    : QWidget(parent), contexte_(contexte), cles_(description.cles), colonnes_(description.colonnes, contexte.texte),
      barre_(new Toolbar(this)), flex_(new FlexGrid(this)), etat_(new StatusBar(this)), menu_(new QMenu(this)),
      documents_(*flex_, colonnes_, {.suitletri = true}) {
    setObjectName(description.nom);
    setWindowTitle(description.titre);
    flex_->setObjectName(u"flex"_s);
    flex_->setAccessibleName(description.titre);
    flex_->setEmptyText(contexte_.texte(Texte::ListeSansDocument));
    etat_->addPanel(panneaucompte, 1);
    auto* colonne = new QVBoxLayout(this);
    colonne->setContentsMargins({});
    colonne->setSpacing(0);
    colonne->addWidget(barre_);
    colonne->addWidget(flex_, 1);
    colonne->addWidget(etat_);
    litcolonnes(contexte_.reglages, cles_, colonnes_);
    documents_.montrecolonnes();
    flex_->hide();
    construitbarre();
    construitmenu();
    connecte();
}

void FenetreListe::construitbarre() {
    barre_->setObjectName(u"barre_cran"_s);
    barre_->addButton(boutonregrouper, Toolbar::Kind::Check, u"regrouper"_s);
    regroupe(false);
    connect(barre_, &Toolbar::buttonClicked, this, [this](const QString& cle) {
        if (cle == boutonregrouper)
            regroupe(barre_->value(cle));
    });
}

void FenetreListe::construitmenu() {
    menu_->setObjectName(u"ContextMenu"_s);
    const auto entree = [this](const QString& nom, Texte libelle, const QString& image, void (FenetreListe::*acte)()) {
        QAction* action = menu_->addAction(icon(image), contexte_.texte(libelle));
        action->setObjectName(nom);
        connect(action, &QAction::triggered, this, acte);
    };
    entree(u"ContextMenuOuvrir"_s, Texte::OuvrirDeLaListe, u"ouvrir"_s, &FenetreListe::ouvre);
    entree(u"ContextMenuPrint"_s, Texte::MenuImprimerLaListe, u"imprimercritères"_s, &FenetreListe::imprime);
}

void FenetreListe::connecte() {
    connect(&documents_, &GrilleDocuments::ouvertes, this, &FenetreListe::ouvretous);
    connect(&documents_, &GrilleDocuments::trivoulu, this,
            [this](int place) { travaille([this, place] { documents_.trie(place); }); });
    connect(&documents_, &GrilleDocuments::menuvoulu, this, [this](const QPoint& ou) {
        if (flex_->row() > 0)
            menu_->popup(ou);
    });
}

void FenetreListe::regroupe(bool enfonce) {
    constexpr auto separer = Texte::SeparerLesCellules;
    constexpr auto regrouper = Texte::RegrouperLesCellules;
    flex_->setMergeCells(enfonce);
    barre_->setToolTip(boutonregrouper, contexte_.texte(enfonce ? separer : regrouper));
}

// ---- rows

void FenetreListe::remplit(const std::function<std::unique_ptr<SourceDocuments>()>& source) {
    travaille([this, &source] { documents_.recharge(source()); });
    flex_->setVisible(documents_.source() != nullptr);
    ditcompte();
    if (surchangement)
        surchangement();
}

void FenetreListe::travaille(const std::function<void()>& travail) {
    constexpr auto sansmemoire = Texte::ListeIncomplete;
    constexpr auto titre = Texte::NomDuProgramme;
    const bool suffit = withinMemory([&] {
        const Attente attente(contexte_.sablier);
        travail();
    });
    if (!suffit)
        contexte_.dialogues.message(contexte_.texte(sansmemoire), contexte_.texte(titre), Icone::Exclamation);
}

void FenetreListe::ditcompte() {
    etat_->setPanelText(panneaucompte,
                        documents_.source() ? textecompte(flex_->rows() - 1, contexte_.texte) : QString());
}

// ---- what is done with them

void FenetreListe::ouvre() {
    documents_.ouvre(flex_->row());
}

void FenetreListe::ouvretous(const std::vector<Cle>& cles) {
    if (!veutouvrir(static_cast<qsizetype>(cles.size()), contexte_.dialogues, contexte_.texte))
        return;
    // What is opened may close this window.
    const auto ouvre = contexte_.ouvre;
    for (const Cle& cle : cles)
        ouvre(cle);
}

void FenetreListe::copie() {
    if (flex_->rows() < 2)
        return;
    flex_->selectAll();
    contexte_.pressepapiers.pose({flex_->clip(), {}, {}});
}

void FenetreListe::imprime() {
    if (flex_->rows() > 1 && veutimprimer(contexte_.dialogues, contexte_.texte))
        imprimeliste(documents_.tableau(titreimprime(contexte_.texte)), contexte_.imprimante, contexte_.sablier,
                     contexte_.dialogues, contexte_.texte);
}

// ---- the window

bool FenetreListe::peut(Ordre ordre) const {
    return flex_->rows() > 1 &&
           (ordre == Ordre::Copier || ordre == Ordre::ToutSelectionner || ordre == Ordre::Imprimer);
}

void FenetreListe::fait(Ordre ordre) {
    if (ordre == Ordre::Copier)
        copie();
    else if (ordre == Ordre::ToutSelectionner)
        flex_->selectAll();
    else if (ordre == Ordre::Imprimer)
        imprime();
}

void FenetreListe::ecritreglages() {
    documents_.releve();
    ecritcolonnes(contexte_.reglages, cles_, colonnes_);
}

void FenetreListe::decharge() {
    if (std::exchange(decharge_, true))
        return;
    ecritreglages();
    emit fermee();
}

void FenetreListe::closeEvent(QCloseEvent* evenement) {
    decharge();
    QWidget::closeEvent(evenement);
}

void FenetreListe::focusInEvent(QFocusEvent* evenement) {
    flex_->setFocus(evenement->reason());
}

} // namespace velm
