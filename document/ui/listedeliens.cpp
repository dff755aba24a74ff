#include "document/ui/listedeliens.h"

#include "core/cle.h"
#include "document/ui/etiquette.h"
#include "platform/base/twips.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QScopeGuard>
#include <QToolButton>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int colonnecode = 0;
constexpr int colonnetitre = 1;
constexpr int colonnecle = 2;
constexpr int largeurcode = 360;
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

} // namespace

ListeDeLiens::Sorte ListeDeLiens::liens() {
    return {u"entetelistedesliens"_s, u"ouvrirlien"_s, u"Label1"_s, u"flexlistedesliens"_s, 2452, 2450, &chargeliens};
}

ListeDeLiens::Sorte ListeDeLiens::correlats() {
    return {u"entetelistedescorrelats"_s,
            u"ouvrircorrélats"_s,
            u"Label2"_s,
            u"flexlistedescorrélats"_s,
            2453,
            2451,
            &chargecorrelats};
}

ListeDeLiens::ListeDeLiens(const Sorte& sorte, Corpus& corpus, const std::function<QString(int)>& texte,
                           QWidget* fenetre)
    : QObject(fenetre), corpus_(corpus), charge_(sorte.charge), entete_(new QWidget(fenetre)),
      bouton_(new QToolButton(entete_)), grille_(new FlexGrid(fenetre)) {
    construitentete(sorte, texte);
    construitgrille(sorte, texte);
    peintetat();
    entete_->installEventFilter(this);
}

void ListeDeLiens::construitentete(const Sorte& sorte, const std::function<QString(int)>& texte) {
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

void ListeDeLiens::construitgrille(const Sorte& sorte, const std::function<QString(int)>& texte) {
    grille_->setObjectName(sorte.grille);
    grille_->setAccessibleName(texte(sorte.texteetiquette));
    grille_->setCols(3);
    grille_->setColWidth(
        colonnecode,
        std::max(largeurcode, twipsFromPixels(grille_->fontMetrics().horizontalAdvance(u"WW"_s) + look::groupSpacing)));
    grille_->setColWidth(colonnecle, 0);
    grille_->setColAlignment(colonnecode, FlexGrid::Align::Centre);
    grille_->setColAlignment(colonnetitre, FlexGrid::Align::Centre);
    grille_->setHeader(colonnetitre, texte(300));
    grille_->setStretchCol(colonnetitre);
    grille_->hide();
    connect(grille_, &FlexGrid::clicked, this, &ListeDeLiens::clic);
    connect(grille_, &FlexGrid::activated, this, &ListeDeLiens::ouvreligne);
    connect(grille_, &FlexGrid::rightClicked, this, [this](int ligne, int, const QPoint& ou) {
        if (ligne > 0)
            grille_->setRow(ligne);
        emit menudemande(ou);
    });
}

int ListeDeLiens::hauteurentete() const {
    return bouton_->sizeHint().height() + look::grid;
}

bool ListeDeLiens::visible() const {
    return !grille_->isHidden();
}

void ListeDeLiens::charge(const Cle& cle) {
    std::vector<QStringList> lignes;
    for (const LigneLien& ligne : charge_(corpus_, cle))
        lignes.push_back({ligne.code, ligne.titre, ligne.cle.texte()});
    grille_->setRedraw(false);
    const auto redessine = qScopeGuard([this] { grille_->setRedraw(true); });
    grille_->setRows(1);
    grille_->addItems(lignes);
    for (int colonne = 0; colonne < grille_->cols(); ++colonne)
        grille_->setSortMark(colonne, FlexGrid::Mark::None);
}

void ListeDeLiens::ouvre(const Cle& cle) {
    charge(cle);
    couleur_ = ListeLaterale::ouverte;
    peintetat();
}

void ListeDeLiens::ferme() {
    grille_->setRows(1);
    couleur_ = fermee;
    peintetat();
}

QStringList ListeDeLiens::cles() const {
    QStringList cles;
    for (int ligne = 1; ligne < grille_->rows(); ++ligne)
        cles << grille_->text(ligne, colonnecle);
    return cles;
}

void ListeDeLiens::clic(int ligne, int colonne) {
    if (ligne == 0) {
        trie(colonne);
        return;
    }
    // The second half of a double click would fall on the list of the document that the first one has opened.
    if (!depuisouverture_.isValid() || depuisouverture_.hasExpired(QApplication::doubleClickInterval()))
        ouvreligne(ligne);
}

void ListeDeLiens::ouvreligne(int ligne) {
    const QString cle = grille_->text(ligne, colonnecle);
    if (ligne < 1 || cle.isEmpty())
        return;
    depuisouverture_.start();
    emit ligneouverte(decoupecle(cle));
}

void ListeDeLiens::ouvrelignecourante() {
    ouvreligne(grille_->row());
}

void ListeDeLiens::trie(int colonne) {
    if (colonne >= 0)
        grille_->sort(colonne, grille_->sortMark(colonne) == FlexGrid::Mark::Ascending);
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
