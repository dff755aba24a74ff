#include "document/ui/listedeliens.h"

#include "core/texte.h"
#include "document/sourceliens.h"
#include "document/ui/etiquette.h"
#include "platform/base/twips.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int diametre = 8;

/// A full green disc for an open list, a ring of burgundy for a closed one.
QIcon pastille(bool pleine, const QPalette& palette, qreal densite) {
    const look::Theme theme = look::themeOf(palette);
    constexpr int vert = 2; // the green among the hues
    const QColor couleur = pleine ? look::hue(vert, theme) : look::warningColour(theme);
    constexpr int cote = 16;
    QPixmap image(QSize(cote, cote) * densite);
    image.setDevicePixelRatio(densite);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    constexpr double trait = 1.75;
    QPen plume(couleur, trait);
    peintre.setPen(plume);
    peintre.setBrush(pleine ? QBrush(couleur) : QBrush(Qt::NoBrush));
    constexpr double bord = (cote - diametre) / 2.0;
    peintre.drawEllipse(QRectF(bord, bord, diametre, diametre));
    return QIcon(image);
}

/// Wide enough for the code of a collection, in whatever type it is shown.
Colonnes colonnes(const QWidget& grille, const Libelles& texte) {
    Colonnes larges(SourceLiens::modele(), texte);
    const int code = grille.fontMetrics().horizontalAdvance(u"WW"_s) + look::groupSpacing;
    larges.changelargeur(SourceLiens::Code, std::max(larges.largeur(SourceLiens::Code), twipsFromPixels(code)));
    return larges;
}

GrilleDocuments::Usage usage() {
    return {.unclic = true,
            .plage = false,
            .suitletri = true,
            .deplacables = false,
            .centrees = true,
            .menuchoisit = true,
            .champetire = SourceLiens::Titre};
}

} // namespace

ListeDeLiens::Sorte ListeDeLiens::liens() {
    return {u"entetelistedesliens"_s, u"ouvrirlien"_s, u"Label1"_s, u"flexlistedesliens"_s, Texte::Liens,
            Texte::DocumentsCites,    &chargeliens};
}

ListeDeLiens::Sorte ListeDeLiens::correlats() {
    return {
        u"entetelistedescorrelats"_s, u"ouvrircorrélats"_s, u"Label2"_s, u"flexlistedescorrélats"_s, Texte::Correlats,
        Texte::DocumentsCitant,       &chargecorrelats};
}

ListeDeLiens::ListeDeLiens(const Sorte& sorte, Corpus& corpus, const Libelles& texte, QWidget* fenetre)
    : QObject(fenetre), corpus_(corpus), charge_(sorte.charge), entete_(new QWidget(fenetre)),
      bouton_(new QToolButton(entete_)), grille_(new FlexGrid(fenetre)), colonnes_(colonnes(*grille_, texte)),
      documents_(*grille_, colonnes_, usage()) {
    construitentete(sorte, texte);
    construitgrille(sorte, texte);
    peintetat();
    entete_->installEventFilter(this);
}

void ListeDeLiens::construitentete(const Sorte& sorte, const Libelles& texte) {
    entete_->setObjectName(sorte.entete);
    bouton_->setObjectName(sorte.bouton);
    bouton_->setText(texte(sorte.textebouton));
    bouton_->setToolTip(plainTip(texte(sorte.texteetiquette)));
    bouton_->setAccessibleName(texte(sorte.texteetiquette));
    bouton_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bouton_->setAutoRaise(true);
    bouton_->setCheckable(true);
    bouton_->setFocusPolicy(Qt::TabFocus);
    auto* etiquette = new Etiquette(texte(sorte.texteetiquette), entete_);
    etiquette->setObjectName(sorte.etiquette);
    etiquette->setForegroundRole(QPalette::PlaceholderText);
    auto* rangee = new QHBoxLayout(entete_);
    rangee->setSizeConstraint(QLayout::SetNoConstraint);
    rangee->setContentsMargins(look::grid, look::grid / 2, look::spacing, look::grid / 2);
    rangee->setSpacing(look::spacing);
    rangee->addWidget(bouton_);
    rangee->addWidget(etiquette, 1);
    connect(bouton_, &QToolButton::clicked, this, [this] {
        peintetat(); // the state is the window's to change
        emit basculee();
    });
}

void ListeDeLiens::construitgrille(const Sorte& sorte, const Libelles& texte) {
    grille_->setObjectName(sorte.grille);
    grille_->setAccessibleName(texte(sorte.texteetiquette));
    grille_->hide();
    connect(&documents_, &GrilleDocuments::trivoulu, &documents_, &GrilleDocuments::trie);
    connect(&documents_, &GrilleDocuments::ouvertes, this,
            [this](const std::vector<Cle>& cles) { emit ligneouverte(cles.front()); });
    connect(&documents_, &GrilleDocuments::menuvoulu, this, &ListeDeLiens::menudemande);
}

int ListeDeLiens::hauteurentete() const {
    return bouton_->sizeHint().height() + look::grid;
}

bool ListeDeLiens::visible() const {
    return !grille_->isHidden();
}

void ListeDeLiens::charge(const Cle& cle) {
    documents_.charge(std::make_unique<SourceLiens>(charge_(corpus_, cle)));
}

void ListeDeLiens::ouvre(const Cle& cle) {
    charge(cle);
    couleur_ = ListeLaterale::ouverte;
    peintetat();
}

void ListeDeLiens::ferme() {
    documents_.vide();
    couleur_ = fermee;
    peintetat();
}

QStringList ListeDeLiens::cles() const {
    QStringList cles;
    for (const Cle& cle : documents_.cles(1, grille_->rows()))
        cles << cle.texte();
    return cles;
}

void ListeDeLiens::ouvrelignecourante() {
    documents_.ouvre(grille_->row());
}

void ListeDeLiens::peintetat() {
    bouton_->setChecked(ouverte());
    bouton_->setIcon(pastille(ouverte(), bouton_->palette(), bouton_->devicePixelRatioF()));
}

bool ListeDeLiens::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::PaletteChange || evenement->type() == QEvent::ScreenChangeInternal)
        peintetat();
    return QObject::eventFilter(objet, evenement);
}

} // namespace velm
