#include "document/ui/textes.h"

#include "core/cle.h"
#include "core/langue.h"
#include "document/ui/blocliste.h"
#include "document/ui/blocrecherche.h"
#include "document/ui/listedeliens.h"
#include "document/ui/teintes.h"
#include "platform/base/memory.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/text/richhtml.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype plusdetitre = 200; ///< characters of a title that a message shows

} // namespace

Textes::Textes(int indice, const ContexteTextes& contexte, QWidget* parent)
    : QWidget(parent), indice_(indice), code_(typedindice(indice)), contexte_(contexte),
      arborescence_(contexte.corpus, contexte.parametres, contexte.sablier, contexte.libelle) {
    setObjectName(u"Textes"_s);
    setWindowTitle(contexte_.libelle(indice_));
    setWindowIcon(iconedecollection(indice_));
    construit();
    charge();
    connecte();
}

Textes::~Textes() {
    // A window that goes without having been closed must not be addressed any more.
    if (!decharge_)
        contexte_.navigation.fermee(indice_, this);
}

// ---- load, activation, unload

void Textes::charge() {
    reglages_ = litreglagestextes(contexte_.reglages, indice_);
    if (contexte_.montremosaique && contexte_.formesouvertes && contexte_.formesouvertes() > 3)
        contexte_.montremosaique(true);
    disposition_.vh = reglages_.vh;
    disposition_.posseparateur = reglages_.posseparateur;
    barre_->setValue(disposition_.droite() ? u"barrehoriz"_s : u"barreverti"_s, true);
    ar_ = reglages_.ar;
    disposition_.charge(demande(contexte_.listeselectionvisible));
    traitear();
    place();
}

PlaceTextes Textes::placevoulue() const {
    PlaceTextes voulue = reglages_.place;
    // Where no width was stored the height is only a default: both are then the frame's to choose.
    if (voulue.largeur == 0)
        voulue.hauteur = 0;
    return voulue;
}

/// What a link or the options have asked for the next time the window is wanted.
void Textes::prepare() {
    if (contexte_.navigation.prendreplier(indice_)) {
        disposition_.plie();
        disposition_.deplaceseparateur();
    }
    rafraichitsibesoin();
    place();
}

void Textes::activation() {
    prepare();
    QLineEdit* mots = blocrecherche_->Textedico();
    if (ar_ == u"0" && !referencecourante().isEmpty() && mots->isEnabled() && mots->isVisible())
        mots->setFocus();
    else if (!focusici() && vue_->isVisibleTo(window()))
        vue_->setFocus();
}

bool Textes::focusici() const {
    const QWidget* celui = window()->focusWidget();
    return celui && celui != this && isAncestorOf(celui) && celui->isVisible();
}

void Textes::rafraichitsibesoin() {
    bool& demandee = contexte_.rafraichir.at(static_cast<std::size_t>(indice_));
    if (demandee && !referencecourante().isEmpty())
        affichedocumentcourant(false);
    demandee = false;
}

void Textes::ecritreglages() {
    if (contexte_.place)
        reglages_.place = contexte_.place(*this);
    reglages_.ar = ar_;
    reglages_.vh = disposition_.vh;
    reglages_.posseparateur = disposition_.posseparateur;
    liste_->retient(reglages_);
    ecritreglagestextes(contexte_.reglages, indice_, reglages_);
}

void Textes::decharge() {
    if (decharge_)
        return;
    decharge_ = true;
    ecritreglages();
    contexte_.navigation.fermee(indice_, this);
    // This form still counts: the buttons go one window earlier than they came.
    if (contexte_.montremosaique && contexte_.formesouvertes && contexte_.formesouvertes() < 5)
        contexte_.montremosaique(false);
    emit cible(QString());
    emit ferme();
}

void Textes::closeEvent(QCloseEvent* evenement) {
    decharge();
    QWidget::closeEvent(evenement);
}

void Textes::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    place();
}

void Textes::changeEvent(QEvent* evenement) {
    QWidget::changeEvent(evenement);
    switch (evenement->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        if (vue_)
            place();
        break;
    case QEvent::ActivationChange:
        if (vue_ && isActiveWindow() && focusici())
            rafraichitsibesoin();
        break;
    default:
        break;
    }
}

FlexGrid& Textes::flex() const {
    return *liste_->grille();
}

// ---- what the opening of a document asks of its window

RichTextControl& Textes::rtfRichTextBox1() {
    return vue_->control();
}

void Textes::changetitre(const QString& titre) {
    setWindowTitle(titre);
    vue_->setAccessibleName(titre);
}

void Textes::activemenus() {
    if (std::exchange(menusactifs_, true))
        return;
    emit menuschanges();
    if (surchangement)
        surchangement();
}

void Textes::rafraichit() {
    relieliens();
    vue_->viewport()->update();
}

ListeLaterale& Textes::listedesliens() {
    return *liens_;
}

ListeLaterale& Textes::listedescorrelats() {
    return *correlats_;
}

// ---- what the navigation asks of it

void Textes::prendfocus() {
    // Whoever brings it forward may close it.
    const QPointer<Textes> encore(this);
    emit premierplan();
    if (!encore)
        return;
    // In front already, it leaves the focus to the control that has it.
    prepare();
    if (!focusici() && vue_->isVisibleTo(window()))
        vue_->setFocus();
}

void Textes::affiche(const Cle& cle, const QString& ancre) {
    montredocument(cle, barre_->value(u"abc"_s), ancre);
}

void Textes::affichedocumentcourant(bool abc) {
    montredocument(cle(), abc, QString());
}

void Textes::montredocument(const Cle& cle, bool abc, const QString& ancre) {
    constexpr int tropgrand = 9566;
    barre_->setValue(u"marqueauto"_s, false); // the text comes without marks
    entiere_ = withinMemory([&] {
        affichedocument(*this, cle, abc, ancre,
                        {contexte_.corpus, contexte_.styles, contexte_.sablier, contexte_.libelle, contexte_.bornes});
    });
    if (!entiere_ && contexte_.dit)
        contexte_.dit(remplace(texte(tropgrand), {document_.titre.left(plusdetitre)}));
}

void Textes::montreboutons(bool dossiersouverts) {
    for (const auto& cle : {u"propriétés"_s, u"barrepropriétés"_s, u"abc"_s, u"barreabc"_s})
        barre_->setButtonVisible(cle, true);
    barre_->setButtonEnabled(u"Haut"_s, true);
    barre_->setButtonEnabled(u"Bas"_s, true);
    if (dossiersouverts)
        barre_->setButtonVisible(u"document"_s, true);
}

void Textes::activehistorique(bool precedent, bool suivant) {
    barre_->setButtonEnabled(u"Précédent"_s, precedent);
    barre_->setButtonEnabled(u"Suivant"_s, suivant);
}

void Textes::activevoisin(bool haut, bool actif) {
    barre_->setButtonEnabled(haut ? u"Haut"_s : u"Bas"_s, actif);
}

// ---- commands

bool Textes::peut(Ordre ordre) const {
    return menusactifs_ && (ordre == Ordre::Copier || ordre == Ordre::ToutSelectionner || ordre == Ordre::Chercher);
}

void Textes::fait(Ordre ordre) {
    if (ordre == Ordre::Copier)
        copie();
    else if (ordre == Ordre::ToutSelectionner)
        toutselectionner();
}

void Textes::copie() {
    const RichTextControl& controle = vue_->control();
    if (controle.length() == 0)
        return;
    const bool tout = controle.selLength() == 0;
    const qsizetype debut = tout ? 0 : controle.selStart();
    const qsizetype longueur = tout ? controle.length() : controle.selLength();
    contexte_.pressepapiers.pose({richPlain(controle.richText(), debut, longueur),
                                  richHtml(controle.richText(), debut, longueur),
                                  tout ? controle.textRtf() : controle.selRtf()});
}

void Textes::toutselectionner() {
    vue_->setSelStart(0);
    vue_->setSelLength(vue_->control().length());
    vue_->setFocus();
}

} // namespace velm
