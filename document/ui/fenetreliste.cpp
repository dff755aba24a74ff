#include "document/ui/fenetreliste.h"

#include "core/langue.h"
#include "core/listes.h"
#include "core/nombres.h"
#include "core/texte.h"
#include "platform/base/memory.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"

#include <QCloseEvent>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>

#include <optional>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString boutonregrouper = u"typeflex"_s;
const QString panneaucompte = u"nombre"_s;
constexpr int lignesimprimables = 20'000; ///< some five hundred sheets

} // namespace

FenetreListe::FenetreListe(const DescriptionListe& description, const ContexteListe& contexte, QWidget* parent)
    : QWidget(parent), contexte_(contexte), description_(description), colonnes_(description.colonnes, contexte.texte),
      barre_(new Toolbar(this)), flex_(new FlexGrid(this)), etat_(new StatusBar(this)), menu_(new QMenu(this)),
      disposition_(new QVBoxLayout(this)), documents_(*flex_, colonnes_, description.usage) {
    setObjectName(description.nom);
    setWindowTitle(description.titre);
    flex_->setObjectName(u"flex"_s);
    flex_->setAccessibleName(description.titre);
    flex_->setEmptyText(contexte_.texte(Texte::ListeSansDocument));
    etat_->addPanel(panneaucompte, 1);
    disposition_->setContentsMargins({});
    disposition_->setSpacing(0);
    disposition_->addWidget(barre_);
    disposition_->addWidget(flex_, 1);
    disposition_->addWidget(etat_);
    litcolonnes(contexte_.reglages, description_.cles, colonnes_);
    documents_.montrecolonnes();
    flex_->hide();
    construitbarre();
    construitmenu();
    connecte();
}

void FenetreListe::insere(QWidget* dessus) {
    disposition_->insertWidget(disposition_->indexOf(flex_), dessus);
}

void FenetreListe::construitbarre() {
    barre_->setObjectName(u"barre_cran"_s);
    if (description_.garnit)
        description_.garnit(*barre_);
    barre_->addButton(boutonregrouper, Toolbar::Kind::Check, u"regrouper"_s);
    barre_->setValue(boutonregrouper, description_.regroupee);
    regroupe(description_.regroupee);
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
    entree(u"ContextMenuOuvrir"_s, description_.ouvrir, u"ouvrir"_s, &FenetreListe::ouvre);
    entree(u"ContextMenuCopier"_s, Texte::CopierLesLignes, u"Copier"_s, &FenetreListe::copielignes);
    if (contexte_.selectionne)
        entree(u"ContextMenuSelection"_s, Texte::MettreDansLaSelection, u"Rechercher"_s, &FenetreListe::selectionne);
    entree(u"ContextMenuPrint"_s, Texte::MenuImprimerLaListe, u"imprimercritères"_s, &FenetreListe::imprime);
}

void FenetreListe::connecte() {
    documents_.demande([this](int lignes) { return veutouvrir(lignes, contexte_.dialogues, contexte_.texte); });
    connect(&documents_, &GrilleDocuments::ouvertes, this, &FenetreListe::ouvretous);
    flex_->setCopy([this] { copielignes(); });
    connect(&documents_, &GrilleDocuments::trivoulu, this, [this](int place) { trie(place); });
    connect(&documents_, &GrilleDocuments::menuvoulu, this, &FenetreListe::montremenu);
    auto* touche = new QShortcut(QKeySequence(Qt::Key_F5), this);
    touche->setContext(Qt::WidgetWithChildrenShortcut);
    connect(touche, &QShortcut::activated, this, [this] { actualise(); });
}

void FenetreListe::montremenu(const QPoint& ou) {
    if (flex_->row() > 0)
        menu_->popup(ou);
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
    ditlignes();
}

void FenetreListe::ditlignes() {
    ditcompte();
    if (surchangement)
        surchangement();
}

void FenetreListe::trie(int place) {
    travaille([this, place] { documents_.trie(place); });
}

bool FenetreListe::travaille(const std::function<void()>& travail, bool attente, Texte sansmemoire) {
    constexpr auto titre = Texte::NomDuProgramme;
    const bool suffit = withinMemory([&] {
        std::optional<Attente> sablier;
        if (attente)
            sablier.emplace(contexte_.sablier);
        travail();
    });
    if (!suffit)
        contexte_.dialogues.message(contexte_.texte(sansmemoire), contexte_.texte(titre), Icone::Exclamation);
    return suffit;
}

void FenetreListe::ditcompte() {
    ditetat(flex_->isHidden() ? QString() : compte());
}

void FenetreListe::ditetat(const QString& texte) {
    etat_->setPanelText(panneaucompte, texte);
}

QString FenetreListe::compte() const {
    return textecompte(flex_->rows() - 1, contexte_.texte);
}

// ---- what is done with them

void FenetreListe::ouvre() {
    documents_.ouvre(flex_->row());
}

void FenetreListe::ouvretous(const std::vector<Cle>& cles, const QStringList& ancres) {
    // What is opened may close this window.
    const auto ouvre = contexte_.ouvre;
    for (std::size_t rang = 0; rang < cles.size(); ++rang)
        ouvre(cles[rang], ancres.value(static_cast<qsizetype>(rang)));
}

void FenetreListe::copie() {
    if (flex_->rows() < 2)
        return;
    flex_->selectAll();
    contexte_.pressepapiers.pose({flex_->clip(), {}, {}});
}

void FenetreListe::copielignes() {
    flex_->copySelection();
}

void FenetreListe::selectionne() {
    const auto [premiere, derniere] = flex_->selectedRows();
    const std::vector<Cle> choisies = documents_.cles(premiere, derniere);
    // Its turns may close this window.
    const auto selectionne = contexte_.selectionne;
    if (selectionne && !choisies.empty())
        selectionne(choisies);
}

void FenetreListe::imprime() {
    const Libelles& texte = contexte_.texte;
    if (flex_->rows() - 1 > lignesimprimables) {
        contexte_.dialogues.message(remplace(texte(Texte::ListeTropLongue), {nombreecrit(flex_->rows() - 1, texte),
                                                                             nombreecrit(lignesimprimables, texte)}),
                                    titreimprime(texte), Icone::Exclamation);
        return;
    }
    if (flex_->rows() > 1 && veutimprimer(contexte_.dialogues, contexte_.texte))
        imprimeliste(documents_.tableau(titreimprime(contexte_.texte)), contexte_.imprimante, contexte_.sablier,
                     contexte_.dialogues, contexte_.texte);
}

// ---- the window

bool FenetreListe::peut(Ordre ordre) const {
    return flex_->rows() > 1 && !flex_->isHidden() &&
           ((ordre == Ordre::Copier && description_.copiable) || ordre == Ordre::ToutSelectionner);
}

void FenetreListe::fait(Ordre ordre) {
    if (!peut(ordre))
        return;
    if (ordre == Ordre::Copier)
        copie();
    else if (ordre == Ordre::ToutSelectionner)
        flex_->selectAll();
}

void FenetreListe::ecritreglages() {
    documents_.releve();
    ecritcolonnes(contexte_.reglages, description_.cles, colonnes_);
    if (contexte_.noteplace)
        contexte_.noteplace(*this);
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
