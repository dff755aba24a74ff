#include "shell/vuedepart.h"

#include "core/langue.h"
#include "core/listes.h"
#include "core/nombres.h"
#include "document/ui/teintes.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"
#include "platform/widgets/look/plaintext.h"
#include "shell/feuilledepart.h"
#include "shell/groupedepart.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int moindrelargeur = 640;
constexpr int plusgrandelargeur = 880;
constexpr double partdelalargeur = 0.45; ///< of what is free
constexpr int margedefeuille = 6 * look::grid;
constexpr int margeserree = look::spacing; ///< around a page that is too high for its place
constexpr int plusdecolonnes = 3;

QVBoxLayout* colonne(QWidget* parent) {
    auto* colonne = new QVBoxLayout(parent);
    colonne->setContentsMargins({});
    colonne->setSpacing(look::grid);
    return colonne;
}

QLabel* titre(const QString& texte, QWidget* parent) {
    QLabel* titre = plainLabel(texte, parent);
    QFont police = titre->font();
    police.setWeight(QFont::DemiBold);
    titre->setFont(police);
    return titre;
}

} // namespace

VueDepart::VueDepart(const Libelles& texte, Source source, QWidget* parent)
    : QScrollArea(parent), texte_(texte), source_(std::move(source)) {
    setObjectName(u"pagedepart"_s);
    setAccessibleName(texte_(Texte::BureauNom));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setCursor(Qt::ArrowCursor);
    viewport()->setAutoFillBackground(false);
    auto* fond = new QWidget(this);
    fond->setAutoFillBackground(false);
    auto* milieu = new QVBoxLayout(fond);
    feuille_ = feuille();
    milieu->addWidget(feuille_, 0, Qt::AlignHCenter | Qt::AlignTop);
    setWidget(fond);
    fond->setAutoFillBackground(false); // the area gives what it shows a ground of its own
    setFocusProxy(champ_);
    viewport()->installEventFilter(this);
    relie();
}

// ---- what stands there

QWidget* VueDepart::feuille() {
    auto* feuille = new FeuilleDepart(this);
    feuille->setObjectName(u"feuille"_s);
    auto* dedans = colonne(feuille);
    champ_ = new QLineEdit(feuille);
    champ_->setObjectName(u"recherchedepart"_s);
    champ_->setAccessibleName(texte_(Texte::BureauChercher));
    champ_->setPlaceholderText(texte_(Texte::BureauInvite));
    champ_->setClearButtonEnabled(true);
    champ_->addAction(icon(u"Rechercher"_s), QLineEdit::LeadingPosition);
    champ_->installEventFilter(this);
    QLabel* nom = titre(texte_(Texte::BureauChercher), feuille);
    nom->setBuddy(champ_);
    dedans->addWidget(nom);
    dedans->addWidget(champ_);
    dedans->addSpacing(look::groupSpacing);
    ordinaire_ = pageordinaire();
    reponse_ = new ReponseDepart(texte_, feuille);
    reponse_->hide();
    dedans->addWidget(ordinaire_);
    dedans->addWidget(reponse_);
    return feuille;
}

QWidget* VueDepart::pageordinaire() {
    auto* page = new QWidget(this);
    auto* dedans = colonne(page);
    dedans->addWidget(titre(texte_(Texte::BureauCollections), page));
    collections_ = new GroupeDepart(page);
    collections_->setObjectName(u"collections"_s);
    collections_->setAccessibleName(texte_(Texte::BureauCollections));
    dedans->addWidget(collections_);
    dedans->addSpacing(look::groupSpacing);
    dedans->addWidget(titre(texte_(Texte::BureauDerniers), page));
    derniers_ = new GroupeDepart(page);
    derniers_->setObjectName(u"derniers"_s);
    derniers_->setAccessibleName(texte_(Texte::BureauDerniers));
    dedans->addWidget(derniers_);
    sansderniers_ = new NoteLine(page);
    sansderniers_->setObjectName(u"sansderniers"_s);
    sansderniers_->say(texte_(Texte::BureauSansDerniers));
    dedans->addWidget(sansderniers_);
    dedans->addStretch();
    return page;
}

void VueDepart::relie() {
    connect(this, &VueDepart::peinte, this, &VueDepart::montrenombres, Qt::QueuedConnection);
    connect(champ_, &QLineEdit::textChanged, this, &VueDepart::suitchamp);
    connect(collections_, &GroupeDepart::pressee, this, &VueDepart::collectionvoulue);
    connect(derniers_, &GroupeDepart::pressee, this,
            [this](int place) { emit derniervoulu(rangs_.at(static_cast<std::size_t>(place))); });
    for (const GroupeDepart* groupe : {collections_, derniers_})
        connect(groupe, &GroupeDepart::sortie, this, [this, groupe](bool versbas) { sort(groupe, versbas); });
    connect(reponse_, &ReponseDepart::documentvoulu, this, &VueDepart::documentvoulu);
    connect(reponse_, &ReponseDepart::tousvoulus, this, [this] { emit listevoulue(cherche()); });
    connect(reponse_, &ReponseDepart::recherchevoulue, this, &VueDepart::recherchevoulue);
    connect(reponse_, &ReponseDepart::remonte, this, [this] { champ_->setFocus(Qt::BacktabFocusReason); });
}

void VueDepart::remplit(const PageDepart& page) {
    if (collections_->lignes().empty()) {
        for (const CollectionOfferte& celle : page.collections)
            collections_->ajoute(iconedecollection(celle.indice), celle.nom);
        collections_->choisitarret();
    }
    derniers_->vide();
    rangs_.clear();
    for (const DernierOffert& celui : page.derniers) {
        derniers_->ajoutedocument(celui.indice, celui.titre, texte_);
        rangs_.push_back(celui.rang);
    }
    derniers_->choisitarret();
    sansderniers_->setVisible(page.derniers.empty());
    dispose();
}

/// An empty collection is told of, but there is nothing in it to open.
void VueDepart::montrenombres() {
    for (std::size_t place = 0; place < collections_->lignes().size(); ++place) {
        LigneDepart& ligne = *collections_->lignes()[place];
        const qint64 nombre = source_.nombre(static_cast<int>(place));
        const QString suite = nombre > 0 ? nombreecrit(nombre, texte_) : texte_(Texte::BureauAucunDocument);
        const QString compte = nombre > 0 ? textecompte(nombre, texte_).trimmed() : suite;
        ligne.changesuite(suite);
        ligne.setAccessibleName(remplace(texte_(Texte::CollectionComptee), {ligne.text(), compte}));
        ligne.setEnabled(nombre > 0);
    }
    collections_->choisitarret();
    dispose();
}

// ---- what is looked for

QString VueDepart::cherche() const {
    return champ_->text().trimmed();
}

void VueDepart::suitchamp(const QString& texte) {
    if (texte.trimmed().isEmpty())
        choisitpage(true);
    emit tapee(cherche());
}

void VueDepart::choisitpage(bool ordinaire) {
    ordinaire_->setVisible(ordinaire);
    reponse_->setVisible(!ordinaire);
}

void VueDepart::montretrouves(const std::vector<DocumentTrouve>& trouves, std::optional<qint64> entout) {
    if (!reponse_->montre(trouves, bilandepart(cherche(), static_cast<qint64>(trouves.size()), entout, texte_)))
        champ_->setFocus();
    choisitpage(false);
}

GroupeDepart& VueDepart::trouves() const {
    return reponse_->trouves();
}

// ---- place and keys

/// As many columns as cut no name of a collection.
void VueDepart::dispose() {
    const int libre = viewport()->width();
    const int voulue = std::clamp(qRound(libre * partdelalargeur), moindrelargeur, plusgrandelargeur);
    const int largeur = std::max(std::min(voulue, libre - 2 * look::windowMargin), 0);
    feuille_->setFixedWidth(largeur);
    const int dedans = largeur - 2 * margedefeuille;
    reponse_->dispose(dedans);
    const int colonnes =
        (dedans + look::groupSpacing) / std::max(collections_->largeurvoulue() + look::groupSpacing, 1);
    collections_->changecolonnes(std::clamp(colonnes, 1, plusdecolonnes));
    disposemarges();
}

/// The sheet hangs a third down of what is free around its ordinary page, whatever is found: the field must not move
/// under what is typed. Where that page does not fit, the room around it goes first.
void VueDepart::disposemarges() {
    const auto entoure = [](QWidget* widget, int cotes, int haut, int bas) {
        widget->layout()->setContentsMargins(cotes, haut, cotes, bas);
    };
    entoure(feuille_, margedefeuille, margedefeuille, margedefeuille);
    for (QWidget* page : {ordinaire_, static_cast<QWidget*>(reponse_)})
        page->updateGeometry(); // other columns have other rows, which it would hear of later
    const QWidget* vue = ordinaire_->isHidden() ? static_cast<QWidget*>(reponse_) : ordinaire_;
    const int reste = viewport()->height() -
                      (feuille_->sizeHint().height() - vue->sizeHint().height() + ordinaire_->sizeHint().height());
    const bool serree = reste < 2 * look::windowMargin;
    if (serree)
        entoure(feuille_, margedefeuille, margeserree, margeserree);
    const int bord = serree ? look::grid : look::windowMargin;
    entoure(widget(), look::windowMargin, std::max(bord, reste / 3), bord);
}

/// The Down key leads out of the field.
void VueDepart::descend() {
    if (ordinaire_->isHidden())
        reponse_->prendfocus();
    else
        collections_->prendfocus(true);
}

/// The arrow keys lead from one group to the next, and out of the first one into the field.
void VueDepart::sort(const GroupeDepart* groupe, bool versbas) {
    const bool derniers = groupe == derniers_;
    if (versbas && !derniers)
        derniers_->prendfocus(true);
    else if (!versbas && derniers)
        collections_->prendfocus(false);
    else if (!versbas)
        champ_->setFocus(Qt::BacktabFocusReason);
}

void VueDepart::showEvent(QShowEvent* evenement) {
    QScrollArea::showEvent(evenement);
    remplit(source_.page());
    emit vue();
}

void VueDepart::hideEvent(QHideEvent* evenement) {
    QScrollArea::hideEvent(evenement);
    emit cachee();
}

void VueDepart::resizeEvent(QResizeEvent* evenement) {
    QScrollArea::resizeEvent(evenement);
    dispose();
}

bool VueDepart::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet == viewport() && evenement->type() == QEvent::Paint && !std::exchange(comptees_, true))
        emit peinte();
    if (objet != champ_ || evenement->type() != QEvent::KeyPress)
        return QScrollArea::eventFilter(objet, evenement);
    switch (static_cast<QKeyEvent*>(evenement)->key()) {
    case Qt::Key_Down:
        descend();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!cherche().isEmpty())
            emit listevoulue(cherche());
        return true;
    case Qt::Key_Escape:
        champ_->clear();
        return true;
    default:
        return false;
    }
}

} // namespace velm
