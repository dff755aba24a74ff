#include "print/ui/frmapercu.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/tablereglages.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/eventturn.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/paper/sheetsview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <cmath>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize taillevoulue{960, 760};
constexpr double cent = 100;

} // namespace

FrmApercu::FrmApercu(Reglages& reglages, Libelles texte, QWidget* parent)
    : QDialog(parent), reglages_(reglages), texte_(std::move(texte)), barre_(new Toolbar(this)),
      page_(new QLabel(this)), zoom_(new QLabel(this)) {
    setObjectName(u"frmapercu"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    page_->setObjectName(u"page"_s);
    zoom_->setObjectName(u"zoom"_s);
    construit();
    connect(vue_, &SheetsView::moved, this, &FrmApercu::ditpage);
    connect(vue_, &SheetsView::zoomed, this, &FrmApercu::ditpage);
}

FrmApercu::~FrmApercu() = default;

/// In the order of the Tab key.
void FrmApercu::construit() {
    construitbarre();
    vue_ = new SheetsView(this);
    vue_->setObjectName(u"feuilles"_s);
    auto* haut = new QHBoxLayout;
    haut->setContentsMargins(look::spacing, look::grid, look::windowMargin, look::grid);
    haut->addWidget(barre_);
    haut->addStretch();
    haut->addWidget(page_);
    haut->addSpacing(look::groupSpacing);
    haut->addWidget(zoom_);

    auto* bas = new QHBoxLayout;
    bas->setContentsMargins(look::windowMargin, look::spacing, look::windowMargin, look::windowMargin);
    bas->setSpacing(look::spacing);
    const auto ajoute = [&](const QString& nom, Texte legende, const QString& image, void (FrmApercu::*acte)()) {
        auto* neuf = new QPushButton(icon(image), texte_(legende), this);
        neuf->setObjectName(nom);
        neuf->setAutoDefault(false);
        connect(neuf, &QPushButton::clicked, this, acte);
        bas->addWidget(neuf);
        return neuf;
    };
    ajoute(u"exporter"_s, Texte::ApercuExporter, u"pdf"_s, &FrmApercu::exporter);
    ajoute(u"abandonner"_s, Texte::AbandonImpression, u"abandonner"_s, &FrmApercu::abandonner);
    bas->addStretch();
    QPushButton* const imprime = ajoute(u"imprimer"_s, Texte::ApercuImprimer, {}, &FrmApercu::imprimer);
    imprime->setDefault(true);
    imprime->setShortcut(QKeySequence::Print);
    auto* fermer = new QPushButton(texte_(Texte::ProprietesFermer), this);
    fermer->setObjectName(u"fermer"_s);
    fermer->setAutoDefault(false);
    connect(fermer, &QPushButton::clicked, this, &QDialog::reject);
    bas->addWidget(fermer);

    auto* tout = new QVBoxLayout(this);
    tout->setContentsMargins(0, 0, 0, 0);
    tout->setSpacing(0);
    tout->addLayout(haut);
    tout->addWidget(vue_, 1);
    tout->addLayout(bas);
}

void FrmApercu::bouton(const QString& cle, Texte legende, const QString& image, const QKeySequence& touche,
                       void (FrmApercu::*acte)()) {
    barre_->addButton(cle, Toolbar::Kind::Plain, image);
    barre_->setToolTip(cle, texte_(legende));
    if (!touche.isEmpty())
        barre_->setShortcut(cle, touche);
    connect(barre_, &Toolbar::buttonClicked, this, [this, cle, acte](const QString& celle) {
        if (celle == cle)
            (this->*acte)();
    });
}

void FrmApercu::construitbarre() {
    barre_->setImages(icon);
    bouton(u"premièrepage"_s, Texte::ApercuPremierePage, u"premièrepage"_s, u"Ctrl+Home"_s, &FrmApercu::premiere);
    bouton(u"pageprécédente"_s, Texte::ApercuPagePrecedente, u"pageprécédente"_s, u"Alt+Left"_s,
           &FrmApercu::precedente);
    bouton(u"pagesuivante"_s, Texte::ApercuPageSuivante, u"pagesuivante"_s, u"Alt+Right"_s, &FrmApercu::suivante);
    bouton(u"dernièrepage"_s, Texte::ApercuDernierePage, u"dernièrepage"_s, u"Ctrl+End"_s, &FrmApercu::derniere);
    barre_->addButton(u"séparateur"_s, Toolbar::Kind::Separator);
    bouton(u"réduire"_s, Texte::ApercuReduire, u"réduire"_s, u"Ctrl+-"_s, &FrmApercu::reduire);
    bouton(u"agrandir"_s, Texte::ApercuAgrandir, u"agrandir"_s, u"Ctrl++"_s, &FrmApercu::agrandir);
    bouton(u"pageentière"_s, Texte::ApercuPageEntiere, u"pageentière"_s, u"Ctrl+0"_s, &FrmApercu::pageentiere);
    bouton(u"largeurpage"_s, Texte::ApercuLargeurDePage, u"largeurpage"_s, u"Ctrl+1"_s, &FrmApercu::largeurdepage);
}

// ---- what is shown

void FrmApercu::ouvre(const QString& titre, const Actes& actes) {
    actes_ = actes;
    setWindowTitle(titre);
    vue_->setAccessibleName(titre);
    for (const auto& [nom, la] :
         {std::pair(u"exporter"_s, bool(actes.exporte)), std::pair(u"abandonner"_s, bool(actes.abandonne)),
          std::pair(u"imprimer"_s, bool(actes.imprime))})
        findChild<QPushButton*>(nom)->setVisible(la);
    if (!actes.imprimer.isEmpty())
        findChild<QPushButton*>(u"imprimer"_s)->setText(actes.imprimer);
    relitplace();
    permet();
    ditpage();
    show();
    vue_->setFocus();
}

bool FrmApercu::suit(const JobPages& pages) {
    const bool premiere = vue_->count() == 0;
    if (premiere)
        vue_->setJob(&pages);
    else
        vue_->grow();
    const QPointer<FrmApercu> encore(this);
    eventTurn();
    return encore && isVisible();
}

void FrmApercu::montre(JobPages pages, int suite) {
    const int ici = vue_->current();
    vue_->setJob(nullptr);
    pages_ = std::move(pages);
    complet_ = true;
    vue_->setJob(&pages_);
    vue_->showSheet(ici);
    vue_->setMark(suite, texte_(Texte::ApercuSuite));
    permet();
    ditpage();
}

void FrmApercu::abandonne() {
    vue_->setJob(nullptr);
    reject();
}

void FrmApercu::permet() {
    for (const QString& nom : {u"exporter"_s, u"abandonner"_s, u"imprimer"_s})
        findChild<QPushButton*>(nom)->setEnabled(complet_);
}

void FrmApercu::ditpage() {
    const int ici = vue_->current();
    const int toutes = vue_->count();
    page_->setText(
        ici < 0 ? QString()
                : remplace(texte_(Texte::ApercuPage), {nombreecrit(ici + 1, texte_), nombreecrit(toutes, texte_)}));
    zoom_->setText(remplace(texte_(Texte::ZoomPourcent), {nombreecrit(std::lround(vue_->zoom() * cent), texte_)}));
    barre_->setButtonEnabled(u"premièrepage"_s, ici > 0);
    barre_->setButtonEnabled(u"pageprécédente"_s, ici > 0);
    barre_->setButtonEnabled(u"pagesuivante"_s, ici + 1 < toutes);
    barre_->setButtonEnabled(u"dernièrepage"_s, ici + 1 < toutes);
    barre_->setButtonEnabled(u"réduire"_s, vue_->zoom() > SheetRows::least);
    barre_->setButtonEnabled(u"agrandir"_s, vue_->zoom() < SheetRows::most);
}

// ---- what is pressed

/// The window goes first: printing asks questions of its own.
void FrmApercu::imprimer() {
    const auto acte = actes_.imprime;
    accept();
    if (acte)
        acte();
}

void FrmApercu::abandonner() {
    const auto acte = actes_.abandonne;
    accept();
    if (acte)
        acte();
}

void FrmApercu::exporter() {
    if (actes_.exporte)
        actes_.exporte();
}

void FrmApercu::premiere() {
    vue_->showSheet(0);
}

void FrmApercu::precedente() {
    vue_->walk(-1);
}

void FrmApercu::suivante() {
    vue_->walk(1);
}

void FrmApercu::derniere() {
    vue_->showSheet(vue_->count() - 1);
}

void FrmApercu::agrandir() {
    vue_->zoomStep(1);
}

void FrmApercu::reduire() {
    vue_->zoomStep(-1);
}

void FrmApercu::pageentiere() {
    vue_->setFit(SheetRows::Fit::Page);
}

void FrmApercu::largeurdepage() {
    vue_->setFit(SheetRows::Fit::Width);
}

// ---- its place

void FrmApercu::relitplace() {
    const auto pixels = [this](const ReglageLibre& reglage) {
        return pixelsFromTwips(static_cast<int>(std::lround(reglages_.lit(reglage))));
    };
    const QSize avant(pixels(reglage::apercularge), pixels(reglage::apercuhaut));
    resize((avant.isEmpty() ? taillevoulue : avant).boundedTo(screen()->availableGeometry().size() * 0.95));
}

void FrmApercu::ecritplace() const {
    if (isMaximized())
        return;
    reglages_.ecrit(reglage::apercularge, twipsFromPixels(width()));
    reglages_.ecrit(reglage::apercuhaut, twipsFromPixels(height()));
}

void FrmApercu::done(int resultat) {
    ecritplace();
    QDialog::done(resultat);
}

} // namespace velm
