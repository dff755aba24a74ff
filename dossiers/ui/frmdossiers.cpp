#include "dossiers/ui/frmdossiers.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/tablereglages.h"
#include "dossiers/libellecompte.h"
#include "dossiers/ui/colonnedossiers.h"
#include "dossiers/ui/listedossier.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/splitterkeys.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "platform/widgets/tree/treeview.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QSize taillevoulue{900, 600};
constexpr int milliemes = 1000;

} // namespace

frmdossiers::frmdossiers(const Contexte& contexte, QWidget* parent)
    : QDialog(parent), contexte_(contexte), arbre_(new TreeView(this)),
      liste_(new ListeDossier(contexte.corpus, contexte.texte, this)),
      gestion_({contexte.magasin, arbre_->nodes(), liste_->items(), contexte.sablier, contexte.dialogues, *this,
                contexte.texte}),
      echange_(gestion_), porteur_(gestion_, *arbre_, *liste_, this),
      colonne_(new ColonneDossiers(contexte.texte, this)), separateur_(new SplitterBar(Qt::Vertical, this)),
      barre_(new Toolbar(this)), barrevue_(new Toolbar(this)), ligne_(plainLabel({}, this)) {
    setObjectName(u"frmdossiers"_s);
    setWindowTitle(texte(Texte::TitreDossiers).trimmed());
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    construit();
    construitbarres();
    reliearbre();
    relieliste();
    reliecommandes();
    reliefichiers();
    SplitterKeys::serve(*this);
    relitplace();
}

void frmdossiers::construit() {
    arbre_->setObjectName(u"TreeView1"_s);
    arbre_->setAccessibleName(texte(Texte::DossiersArbre));
    arbre_->setImages([](const QString& nom) { return icon(nom); });
    // How many items a dossier has is seen behind the longest name.
    arbre_->setKeptEnd([](const QString& nom) { return nom.size() - sanscompteur(nom).size(); });
    separateur_->setObjectName(u"separateur"_s);
    separateur_->setAccessibleName(texte(Texte::DossiersSeparateur));
    ligne_->setObjectName(u"attente"_s);
    ligne_->setWordWrap(true);
    ligne_->setAutoFillBackground(true);
    ligne_->setMargin(look::grid);
    ligne_->setIndent(look::grid);
    ligne_->hide();
    teinteligne();
}

void frmdossiers::construitbarres() {
    barre_->setObjectName(u"Toolbar1"_s);
    barre_->setImages([](const QString& nom) { return icon(nom); });
    barre_->addButton(u"ouvrirdossier"_s, Toolbar::Kind::Plain, u"ouvrir"_s);
    barre_->addButton(u"enregistrerdossier"_s, Toolbar::Kind::Plain, u"enregistrer"_s);
    barre_->addButton(u"envoyerdossier"_s, Toolbar::Kind::Plain, u"envoyer"_s);
    barre_->addButton(u"exporterdossier"_s, Toolbar::Kind::Plain, u"pdf"_s);
    barre_->setToolTip(u"ouvrirdossier"_s, texte(Texte::OuvrirFichierDossier));
    barre_->setToolTip(u"enregistrerdossier"_s, texte(Texte::EnregistrerDossier));
    barre_->setToolTip(u"envoyerdossier"_s, texte(Texte::EnvoyerDossier));
    barre_->setToolTip(u"exporterdossier"_s, texte(Texte::DossiersExporterPdf));
    // Between the two bars for the Tab key, as for the eye.
    developpe_ = new QCheckBox(texte(Texte::DevelopperALOuverture), this);
    developpe_->setObjectName(u"Checkdeveloppe"_s);
    developpe_->setChecked(contexte_.reglages.lit(reglage::dossiersdeveloppe) == 1);
    barrevue_->setObjectName(u"tlbHierarchie"_s);
    barrevue_->setImages([](const QString& nom) { return icon(nom); });
    liste_->relie(*barrevue_);
}

void frmdossiers::reliearbre() {
    connect(arbre_, &TreeView::expanding, this, [this](int noeud) { gestion_.developpe(noeud); });
    // By the mouse or by the arrow keys; a click on the selected one lists it anew.
    connect(arbre_, &TreeView::selectionMoved, this, [this](int noeud) { gestion_.noeudclique(noeud); });
    connect(arbre_, &TreeView::nodeClicked, this, [this](int noeud) { gestion_.noeudclique(noeud); });
    connect(arbre_, &TreeView::labelEditWanted, this, [this] { gestion_.renommer(); });
    connect(arbre_, &TreeView::labelEditBegins, this,
            [this](int noeud, bool* refuse) { *refuse = !gestion_.avanteditionnoeud(noeud); });
    connect(arbre_, &TreeView::labelEdited, this, [this] { gestion_.apreseditionnoeud(); });
}

void frmdossiers::relieliste() {
    connect(liste_, &ListView::selectionMoved, this, [this](int index) { gestion_.elementclique(index); });
    connect(liste_, &ListView::itemClicked, this, [this](int index) { gestion_.elementclique(index); });
    connect(liste_, &ListView::itemActivated, this, &frmdossiers::chargerdocument);
    connect(liste_, &ListView::labelEditWanted, this, [this] { gestion_.renommer(); });
    connect(liste_, &ListView::labelEdited, this,
            [this](int, const QString& ecrit) { gestion_.apreseditionliste(ecrit); });
}

void frmdossiers::reliecommandes() {
    connect(colonne_, &ColonneDossiers::ajouter, this, [this] { gestion_.ajouter(); });
    connect(colonne_, &ColonneDossiers::renommer, this, [this] { gestion_.renommer(); });
    connect(colonne_, &ColonneDossiers::supprimer, this, [this] { gestion_.supprimer(); });
    connect(colonne_, &ColonneDossiers::haut, this, [this] { gestion_.haut(); });
    connect(colonne_, &ColonneDossiers::bas, this, [this] { gestion_.bas(); });
    connect(colonne_, &ColonneDossiers::toutdevelopper, this, [this] { gestion_.toutdevelopper(); });
    connect(colonne_, &ColonneDossiers::toutreduire, this, [this] { gestion_.toutreduire(); });
    connect(colonne_, &ColonneDossiers::reparer, this, &frmdossiers::repare);
    connect(colonne_, &ColonneDossiers::imprimer, this, [this] { sort(contexte_.imprime); });
    retour_ = std::make_unique<RetourDossiers>(gestion_, colonne_->retrouver(), this);
    touches_ = std::make_unique<TouchesDossiers>(gestion_, *retour_, *arbre_, *liste_);
    connect(retour_.get(), &RetourDossiers::dit, this, [this](const QString& mots) {
        ecritligne(mots);
        if (mots.isEmpty())
            montreattente(gestion_.attente());
    });
    connect(colonne_, &ColonneDossiers::fermer, this, &QDialog::accept);
    connect(separateur_, &SplitterBar::dropped, this, [this](int x) {
        disposition_.separe(x, size(), mesures());
        place();
    });
    connect(separateur_, &SplitterBar::usualPlaceWanted, this, [this] {
        disposition_.partage(DispositionDossiers().part());
        place();
    });
}

void frmdossiers::reliefichiers() {
    connect(barre_, &Toolbar::buttonClicked, this, [this](const QString& bouton) {
        if (bouton == u"ouvrirdossier")
            ouvrefichier({});
        else if (bouton == u"enregistrerdossier")
            contexte_.fichiers.enregistre(echange_.fichier());
        // Sent is what was found with the program's searches: without that nothing is.
        else if (bouton == u"envoyerdossier" && contexte_.ontrouve())
            contexte_.fichiers.envoie(echange_.fichier());
        else if (bouton == u"exporterdossier")
            sort(contexte_.exporte);
    });
}

void frmdossiers::ouvrefichier(const QString& nomfichier) {
    if (const auto fichier = contexte_.fichiers.ouvre(nomfichier))
        echange_.importe(*fichier);
}

void frmdossiers::chargefichier(const QString& nomfichier) {
    ouvrefichier(nomfichier);
    gestion_.enregistre();
}

/// The selected dossier alone, in the order of its list.
void frmdossiers::sort(const Contexte::Sortie& sortie) {
    const TreeNodes& noeuds = arbre_->nodes();
    QStringList cles;
    for (int index = 1; index <= liste_->items().count(); ++index)
        cles << liste_->items().key(index);
    sortie(noeuds.text(noeuds.selected()), cles);
}

void frmdossiers::repare() {
    const auto avance = [this](int pourcent) {
        ecritligne(remplace(texte(Texte::DossiersReparationEnCours), {QString::number(pourcent)}));
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return true;
    };
    const auto bilan = echange_.repare(developpe_->isChecked(), avance);
    const auto nombre = [this](qint64 n) { return nombreecrit(n, contexte_.texte); };
    ecritligne(!bilan          ? QString()
               : bilan->rien() ? texte(Texte::DossiersRienAReparer)
                               : remplace(texte(Texte::DossiersRepares),
                                          {nombre(bilan->dossiers), nombre(bilan->elements), nombre(bilan->comptes)}));
}

/// A line above the tree; empty: none.
void frmdossiers::ecritligne(const QString& texte) {
    ligne_->setText(texte);
    ligne_->setVisible(!texte.isEmpty());
    place();
}

/// What waits is told from what is always there.
void frmdossiers::teinteligne() {
    QPalette teinte = palette();
    teinte.setColor(QPalette::Window, look::chosenGround(teinte));
    ligne_->setPalette(teinte);
}

void frmdossiers::montre(const ElementEnAttente& attente) {
    if (!gestion_.charge(developpe_->isChecked())) {
        QDialog::done(Rejected);
        return;
    }
    show();
    arbre_->setFocus();
    // The root is where a first dossier comes.
    arbre_->nodes().select(arbre_->nodes().childAt(0, 0));
    gestion_.noeudclique(arbre_->nodes().selected());
    gestion_.active(attente);
    if (gestion_.attend())
        porteur_.porteattente();
}

void frmdossiers::fermesansquestion() {
    sansquestion_ = true;
    reject();
}

/// However it is closed, what is not saved is saved first.
void frmdossiers::done(int resultat) {
    if (!gestion_.ferme(sansquestion_)) {
        nodocument_.clear();
        return;
    }
    porteur_.finit();
    contexte_.reglages.ecrit(reglage::dossiersdeveloppe, developpe_->isChecked() ? 1 : 0);
    ecritplace();
    QDialog::done(resultat);
}

void frmdossiers::chargerdocument(int index) {
    nodocument_ = liste_->items().key(index);
    accept();
}

// ---- VueDossiers

void frmdossiers::montrecommandes(const CommandesDossiers& commandes) {
    colonne_->permet(commandes);
    barre_->setButtonEnabled(u"enregistrerdossier"_s, commandes.contenu);
    barre_->setButtonEnabled(u"envoyerdossier"_s, commandes.contenu);
    barre_->setButtonEnabled(u"exporterdossier"_s, commandes.contenu);
}

void frmdossiers::editenoeud(int noeud) {
    arbre_->startLabelEdit(noeud);
}

void frmdossiers::editeelement(int index) {
    liste_->startLabelEdit(index);
}

void frmdossiers::focusliste() {
    liste_->setFocus();
}

void frmdossiers::montrecible(int noeud) {
    arbre_->setDropTarget(noeud);
}

void frmdossiers::montreattente(const ElementEnAttente& attente) {
    const bool entier = attente.itemdebut == 0 && attente.itemlongueur == 0;
    const bool rien = attente.itemreference.isEmpty();
    if (rien)
        porteur_.finit();
    ecritligne(
        rien ? QString()
             : remplace(texte(entier ? Texte::DossiersARanger : Texte::DossiersExtraitARanger), {attente.itemtitre}));
}

void frmdossiers::ditcopiemanquee() {
    ecritligne(texte(Texte::DossiersCopieManquee));
}

// ---- places

DispositionDossiers::Mesures frmdossiers::mesures() const {
    const int barre = std::max(barre_->sizeHint().height(), barrevue_->sizeHint().height());
    const int colonne = colonne_->sizeHint().width();
    const int large = width() - colonne;
    const int barres = barre_->sizeHint().width() + look::groupSpacing + developpe_->sizeHint().width() +
                       look::spacing + barrevue_->sizeHint().width();
    return {barre, barres, ligne_->isHidden() ? 0 : ligne_->heightForWidth(std::max(large, 1)), colonne};
}

void frmdossiers::place() {
    const DispositionDossiers::Mesures mesures = this->mesures();
    const auto places = disposition_.places(size(), mesures, barrevue_->sizeHint().width());
    setMinimumSize(DispositionDossiers::minimum(mesures).expandedTo(
        {0, colonne_->minimumSizeHint().height() + size().height() - places.colonne.height()}));
    ligne_->setGeometry(places.ligne);
    arbre_->setGeometry(places.arbre);
    separateur_->setGeometry(places.separateur);
    liste_->setGeometry(places.liste);
    colonne_->setGeometry(places.colonne);
    barre_->setGeometry(QRect(places.barre.topLeft(), QSize(barre_->sizeHint().width(), places.barre.height())));
    developpe_->setGeometry(places.barre.adjusted(barre_->width() + look::groupSpacing, 0, -look::spacing, 0));
    barrevue_->setGeometry(places.barrevue);
    separateur_->raise();
}

void frmdossiers::resizeEvent(QResizeEvent* evenement) {
    QDialog::resizeEvent(evenement);
    place();
}

void frmdossiers::changeEvent(QEvent* evenement) {
    QDialog::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange || evenement->type() == QEvent::StyleChange)
        place();
    if (evenement->type() == QEvent::PaletteChange)
        teinteligne();
}

void frmdossiers::relitplace() {
    Reglages& reglages = contexte_.reglages;
    const auto pixels = [&](const ReglageLibre& reglage) {
        return pixelsFromTwips(static_cast<int>(std::lround(reglages.lit(reglage))));
    };
    const QSize avant(pixels(reglage::dossierslargeur), pixels(reglage::dossiershauteur));
    if (const double part = reglages.lit(reglage::dossierspartage); part > 0)
        disposition_.partage(part / milliemes);
    resize((avant.isEmpty() ? taillevoulue : avant).boundedTo(screen()->availableGeometry().size() * 0.95));
    place();
}

void frmdossiers::ecritplace() const {
    if (isMaximized())
        return;
    Reglages& reglages = contexte_.reglages;
    reglages.ecrit(reglage::dossierslargeur, twipsFromPixels(width()));
    reglages.ecrit(reglage::dossiershauteur, twipsFromPixels(height()));
    reglages.ecrit(reglage::dossierspartage, int(std::lround(disposition_.part() * milliemes)));
}

} // namespace velm
