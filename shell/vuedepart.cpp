#include "shell/vuedepart.h"

#include "core/langue.h"
#include "core/listes.h"
#include "core/nombres.h"
#include "document/ui/teintes.h"
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "shell/groupedepart.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int largeurdefeuille = 640;
constexpr int margedefeuille = 6 * look::grid;
constexpr double arrondi = 1.5 * look::grid;

/// The sheet that everything lies on: it can be read over whatever ground.
class Feuille final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter peintre(this);
        peintre.setRenderHint(QPainter::Antialiasing);
        peintre.setPen(quietLine(palette()));
        peintre.setBrush(palette().window());
        peintre.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), arrondi, arrondi);
    }
};

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

void discret(QWidget* widget) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::PlaceholderText));
    widget->setPalette(palette);
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
    milieu->addWidget(feuille(), 0, Qt::AlignHCenter | Qt::AlignTop);
    setWidget(fond);
    fond->setAutoFillBackground(false); // the area gives what it shows a ground of its own
    setFocusProxy(champ_);
    viewport()->installEventFilter(this);
    relie();
}

// ---- what stands there

QWidget* VueDepart::feuille() {
    auto* feuille = new Feuille(this);
    feuille->setObjectName(u"feuille"_s);
    auto* dedans = colonne(feuille);
    dedans->setContentsMargins(margedefeuille, margedefeuille, margedefeuille, margedefeuille);
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
    pages_ = new QStackedLayout;
    dedans->addLayout(pages_);
    pages_->addWidget(pageordinaire());
    pages_->addWidget(pagetrouves());
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
    sansderniers_ = plainLabel(texte_(Texte::BureauSansDerniers), page);
    sansderniers_->setWordWrap(true);
    discret(sansderniers_);
    dedans->addWidget(sansderniers_);
    dedans->addStretch();
    return page;
}

QWidget* VueDepart::pagetrouves() {
    auto* page = new QWidget(this);
    auto* dedans = colonne(page);
    bilan_ = plainLabel({}, page);
    bilan_->setObjectName(u"bilandepart"_s);
    bilan_->setWordWrap(true);
    discret(bilan_);
    dedans->addWidget(bilan_);
    trouves_ = new GroupeDepart(page);
    trouves_->setObjectName(u"trouves"_s);
    dedans->addWidget(trouves_);
    dedans->addSpacing(look::spacing);
    tous_ = new QPushButton(texte_(Texte::BureauTousLesResultats), page);
    tous_->setObjectName(u"touslesresultats"_s);
    detaillee_ = new QPushButton(texte_(Texte::BureauRechercheDetaillee), page);
    detaillee_->setObjectName(u"recherchedetaillee"_s);
    boutons_ = new QBoxLayout(QBoxLayout::LeftToRight);
    boutons_->setSpacing(look::spacing);
    boutons_->addWidget(tous_, 0, Qt::AlignLeft);
    boutons_->addWidget(detaillee_, 0, Qt::AlignLeft);
    boutons_->addStretch();
    dedans->addLayout(boutons_);
    dedans->addStretch();
    return page;
}

void VueDepart::relie() {
    connect(champ_, &QLineEdit::textChanged, this, &VueDepart::suitchamp);
    connect(collections_, &GroupeDepart::pressee, this, &VueDepart::collectionvoulue);
    connect(derniers_, &GroupeDepart::pressee, this,
            [this](int place) { emit derniervoulu(rangs_.at(static_cast<std::size_t>(place))); });
    connect(trouves_, &GroupeDepart::pressee, this,
            [this](int place) { emit documentvoulu(cles_.at(static_cast<std::size_t>(place))); });
    for (const GroupeDepart* groupe : {collections_, derniers_, trouves_})
        connect(groupe, &GroupeDepart::sortie, this, [this, groupe](bool versbas) { sort(groupe, versbas); });
    connect(tous_, &QPushButton::clicked, this, [this] { emit listevoulue(cherche()); });
    connect(detaillee_, &QPushButton::clicked, this, &VueDepart::recherchevoulue);
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
        derniers_->ajoute(iconedecollection(celui.indice), celui.titre);
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
        pages_->setCurrentIndex(0);
    emit tapee(cherche());
}

void VueDepart::montretrouves(const std::vector<DocumentTrouve>& trouves, bool plus) {
    // A search tells its first rows before the others: who is walking them already stays among them.
    const bool parmi = trouves_->isAncestorOf(QApplication::focusWidget());
    std::vector<Cle> cles;
    std::ranges::transform(trouves, std::back_inserter(cles), &DocumentTrouve::cle);
    if (std::exchange(cles_, cles) != cles) {
        trouves_->vide();
        for (const DocumentTrouve& celui : trouves)
            trouves_->ajoute(iconedecollection(celui.cle.indice()), celui.titre.simplified());
        trouves_->choisitarret();
        if (parmi && !trouves_->prendfocus(true))
            champ_->setFocus();
    }
    if (trouves.empty())
        bilan_->setText(remplace(texte_(Texte::BureauRienTrouve), {cherche()}));
    else if (plus)
        bilan_->setText(remplace(texte_(Texte::BureauPremiers), {QString::number(trouves.size())}));
    bilan_->setVisible(plus || trouves.empty());
    tous_->setVisible(!trouves.empty());
    pages_->setCurrentIndex(1);
}

// ---- place and keys

/// Two columns where no name of a collection is cut by that. The sheet hangs a third down of what is free around its
/// ordinary page, whatever is found: the field must not move under what is typed.
void VueDepart::dispose() {
    auto* feuille = findChild<QWidget*>(u"feuille"_s);
    const int largeur = std::min(largeurdefeuille, viewport()->width() - 2 * look::windowMargin);
    feuille->setFixedWidth(std::max(largeur, 0));
    const int dedans = largeur - 2 * margedefeuille;
    const int boutons = tous_->sizeHint().width() + detaillee_->sizeHint().width() + look::spacing;
    boutons_->setDirection(boutons <= dedans ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    collections_->changecolonnes(2 * collections_->largeurvoulue() + look::groupSpacing <= dedans ? 2 : 1);
    const int ordinaire =
        feuille->sizeHint().height() - pages_->sizeHint().height() + pages_->widget(0)->sizeHint().height();
    const int haut = std::max(look::windowMargin, (viewport()->height() - ordinaire) / 3);
    widget()->layout()->setContentsMargins(look::windowMargin, haut, look::windowMargin, look::windowMargin);
}

/// The arrow keys lead from one group to the next, and out of the first one into the field.
void VueDepart::sort(const GroupeDepart* groupe, bool versbas) {
    const bool derniers = groupe == derniers_;
    if (versbas && groupe == collections_)
        derniers_->prendfocus(true);
    else if (versbas && groupe == trouves_)
        tous_->setFocus(Qt::TabFocusReason);
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

void VueDepart::changeEvent(QEvent* evenement) {
    QScrollArea::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange && bilan_) {
        for (QLabel* label : {bilan_, sansderniers_}) {
            label->setPalette({});
            discret(label);
        }
    }
}

bool VueDepart::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet == viewport() && evenement->type() == QEvent::Paint && !std::exchange(comptees_, true))
        QTimer::singleShot(0, this, &VueDepart::montrenombres);
    if (objet != champ_ || evenement->type() != QEvent::KeyPress)
        return QScrollArea::eventFilter(objet, evenement);
    switch (static_cast<QKeyEvent*>(evenement)->key()) {
    case Qt::Key_Down:
        (pages_->currentIndex() == 0 ? collections_ : trouves_)->prendfocus(true);
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
