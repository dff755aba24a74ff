#include "shell/ecrangeneral.h"

#include "core/langue.h"
#include "core/texte.h"
#include "platform/base/twips.h"
#include "platform/typeset/viewformats.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "shell/actions.h"
#include "shell/barresecran.h"
#include "shell/fonds.h"
#include "shell/logique/placesdesbarres.h"
#include "shell/menus.h"
#include "shell/volet.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QRegion>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

// The panels of the status bar, from the left.
const QString paneldetat = u"wait"_s;
const QString panelduchemin = u"chemin"_s;
const QString paneldereference = u"référence"_s;
const QString paneldeposition = u"position"_s;
const QString panelduzoom = u"zoom"_s;

enum Etat { Normal = 0, Reduit = 1, Agrandi = 2 };

constexpr QSize tailleminimale(320, 240);

/// What a maximised frame comes back to: the middle of its screen with some desktop around it.
QRect usuelle() {
    const QRect libre = QGuiApplication::primaryScreen()->availableGeometry();
    QRect place(QPoint(), (libre.size() * 4 / 5).expandedTo(tailleminimale));
    place.moveCenter(libre.center());
    return place;
}

/// The place on the screens that are there; what sticks out is moved onto the screen of its middle, or onto the first.
QRect visible(QRect place) {
    QRegion ecrans;
    for (const QScreen* present : QGuiApplication::screens())
        ecrans += present->availableGeometry();
    if (QRegion(place).subtracted(ecrans).isEmpty() && place.size().expandedTo(tailleminimale) == place.size())
        return place;
    const QScreen* ecran = QGuiApplication::screenAt(place.center());
    const QRect libre = (ecran ? ecran : QGuiApplication::primaryScreen())->availableGeometry();
    place.setSize(place.size().expandedTo(tailleminimale).boundedTo(libre.size()));
    if (!libre.contains(place))
        place.moveTopLeft({std::clamp(place.left(), libre.left(), libre.right() - place.width() + 1),
                           std::clamp(place.top(), libre.top(), libre.bottom() - place.height() + 1)});
    return place;
}

} // namespace

Ecrangeneral::Ecrangeneral(const Libelles& texte)
    : aire_(new ChildArea), volet_(new VoletSelection(this)), actions_(new Actions(texte, icon, this)),
      barreetat_(new StatusBar(this)), texte_(texte) {
    setObjectName(u"Ecrangeneral"_s);
    setWindowTitle(texte(Texte::NomDuProgramme));
    setContextMenuPolicy(Qt::NoContextMenu);
    aire_->setObjectName(u"aire"_s);
    new MenusEcran(*menuBar(), *actions_, texte); // the menu bar's

    auto* centre = new QWidget(this);
    auto* disposition = new QHBoxLayout(centre);
    disposition->setContentsMargins({});
    disposition->setSpacing(0);
    disposition->addWidget(volet_);
    disposition->addWidget(aire_, 1);
    setCentralWidget(centre);
    garnit(volet_->recherchetoolbar(), placesdelaliste(), *actions_, texte);
    volet_->nomme(texte(Texte::ListeDeSelection), texte(Texte::LargeurDeLaListe));
    volet_->hide();

    construitbarreetat(texte);

    barres_ = new BarresEcran(*this, *actions_, texte);
    montredispositions(false);
    // The keys work with their bars and menus hidden, too.
    for (QAction* action : actions_->toutes()) {
        if (!action->shortcut().isEmpty())
            addAction(action);
    }
}

void Ecrangeneral::construitbarreetat(const Libelles& texte) {
    barreetat_->setObjectName(u"barreétat"_s);
    for (const QString& panel : {paneldetat, panelduchemin, paneldereference, paneldeposition, panelduzoom}) {
        barreetat_->addPanel(panel, panel == panelduchemin ? 1 : 0);
        if (panel != panelduchemin)
            barreetat_->hideWhenEmpty(panel);
    }
    barreetat_->setElision(panelduchemin, Qt::ElideMiddle);
    barreetat_->setPanelTip(paneldereference, texte(Texte::ReferenceBulle));
    barreetat_->setPanelTip(paneldeposition, texte(Texte::PositionBulle));
    barreetat_->setPanelTip(panelduzoom, texte(Texte::ZoomBulle));
    connect(barreetat_, &StatusBar::panelPressed, this, [this](const QString& panel) {
        if (panel == panelduzoom)
            offrezoom();
    });
    setStatusBar(barreetat_);
}

/// The menu of the zoom, above its panel.
void Ecrangeneral::offrezoom() {
    auto* zoom = menuBar()->findChild<QMenu*>(u"mzoom"_s);
    const QPoint coin(mapToGlobal(barreetat_->panelPlace(panelduzoom).topRight()).x(),
                      barreetat_->mapToGlobal(QPoint()).y());
    zoom->popup(coin - QPoint(zoom->sizeHint().width(), zoom->sizeHint().height()));
    zoom->move(coin - QPoint(zoom->width(), zoom->height()));
}

void Ecrangeneral::placebarre(Barre barre, int position) {
    barres_->place(barre, position);
    actions_->choisit(ordredeplace(barre), position);
    if (barre == Barre::Ecran)
        actions_->coche(Ordre::BarreEcran, position != 0);
    if (barre == Barre::Outils)
        actions_->coche(Ordre::BarreOutils, position != 0);
}

void Ecrangeneral::montrebarreetat(bool visible) {
    barreetat_->setVisible(visible);
    actions_->coche(Ordre::BarreEtat, visible);
}

void Ecrangeneral::placefond(const FondEcran& fond) {
    if (fond.couleur)
        fond_.couleur = fond.couleur;
    fond_.image = fond.image;
    peintfond();
}

void Ecrangeneral::peintfond() {
    const look::Theme theme = look::themeOf(palette());
    QColor couleur = look::ground(theme);
    // A light ground would outshine the documents of a dark desk: there it only tints the usual one.
    if (fond_.couleur)
        couleur = look::mixed(couleur, viewColour(static_cast<std::int32_t>(*fond_.couleur)),
                              theme == look::Theme::Dark ? 1.0 / 30 : 1);
    // Drawn once for the whole screen: the frame shows its middle, whatever size it takes.
    const QSize taille = screen()->size();
    QPixmap image;
    if (fond_.image >= 0)
        image = imagedefond(fond_.image, taille, devicePixelRatioF(), theme);
    aire_->setBack(image, couleur);
}

void Ecrangeneral::posepointeurs() {
    const qreal densite = devicePixelRatioF();
    aire_->viewport()->setCursor(iconCursor(u"Curseur1"_s, densite));
    barres_->posepointeur(iconCursor(u"Pointeur"_s, densite));
}

void Ecrangeneral::montreselection(bool visible) {
    volet_->setVisible(visible);
    actions_->coche(Ordre::Rechercher, visible);
}

void Ecrangeneral::montredispositions(bool visibles) {
    for (const Ordre ordre : {Ordre::Cascade, Ordre::Horizontalement, Ordre::Verticalement})
        barres_->montrebouton(ordre, visibles);
}

void Ecrangeneral::montreejections(bool ouvert) {
    barres_->montrebouton(Ordre::Imprimer, !ouvert);
    barres_->montrebouton(Ordre::Ejections, ouvert);
}

void Ecrangeneral::marquevide(int rang, bool vide) {
    barres_->marquevide(rang, vide);
}

void Ecrangeneral::offre(Ordre ordre, const ButtonMenus& entrees) {
    barres_->offre(ordre, entrees);
}

void Ecrangeneral::dit(const QString& texte) {
    barreetat_->setPanelText(paneldetat, texte);
}

void Ecrangeneral::ditlieu(const Lieu& lieu) {
    barreetat_->setPanelText(panelduchemin, lieu.chemin, lieu.abreges);
    barreetat_->setPanelText(paneldereference, lieu.reference);
    barreetat_->setPanelText(paneldeposition, lieu.position);
}

void Ecrangeneral::ditenpassant(const QString& texte) {
    barreetat_->setPassing(panelduchemin, texte);
}

void Ecrangeneral::ditzoom(const QString& texte) {
    barreetat_->setPanelText(panelduzoom, texte);
}

void Ecrangeneral::changetitre(const QString& titre) {
    titre_ = titre;
    montretitre();
}

/// The task bar shows a title's beginning: there stands what is read, whatever the toolkit makes of a maximised window.
void Ecrangeneral::montretitre() {
    QWindow* fenetre = windowHandle();
    if (!fenetre)
        return;
    const QString nom = texte_(Texte::NomDuProgramme);
    fenetre->setTitle(titre_.isEmpty() ? nom : remplace(texte_(Texte::TitreDuCadre), {titre_, nom}));
}

void Ecrangeneral::place(const PositionFenetre& position) {
    etat_ = position.etat;
    // The place of a maximised frame is that of its screen, which is no place for the frame made smaller.
    if (etat_ == Agrandi)
        setGeometry(usuelle());
    else
        setGeometry(visible({pixelsFromTwips(position.gauche), pixelsFromTwips(position.haut),
                             pixelsFromTwips(position.largeur), pixelsFromTwips(position.hauteur)}));
}

void Ecrangeneral::montre() {
    // The ground is drawn for the size and the density of one screen.
    winId();
    connect(windowHandle(), &QWindow::screenChanged, this, &Ecrangeneral::peintfond, Qt::UniqueConnection);
    connect(windowHandle(), &QWindow::screenChanged, this, &Ecrangeneral::posepointeurs, Qt::UniqueConnection);
    connect(windowHandle(), &QWindow::windowTitleChanged, this, &Ecrangeneral::montretitre, Qt::UniqueConnection);
    posepointeurs();
    montretitre();
    switch (etat_) {
    case Agrandi:
        showMaximized();
        break;
    case Reduit:
        showMinimized();
        break;
    default:
        show();
    }
}

PositionFenetre Ecrangeneral::position() const {
    // The frame's own size is written whatever its state: maximised, that is the size it has on the screen.
    const QRect ici = geometry();
    const int etat = isMinimized() ? Reduit : isMaximized() ? Agrandi : Normal;
    return {etat, twipsFromPixels(ici.x()), twipsFromPixels(ici.y()), twipsFromPixels(ici.width()),
            twipsFromPixels(ici.height())};
}

void Ecrangeneral::ferme() {
    parcode_ = true;
    // Inside the closing that the user began the event itself goes on; otherwise it begins here.
    if (!enfermeture_)
        close();
}

void Ecrangeneral::closeEvent(QCloseEvent* evenement) {
    if (!parcode_ && avantfermeture) {
        enfermeture_ = true;
        const bool accepte = avantfermeture();
        enfermeture_ = false;
        if (!accepte) {
            evenement->ignore();
            return;
        }
    }
    evenement->accept();
}

void Ecrangeneral::changeEvent(QEvent* evenement) {
    QMainWindow::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange)
        peintfond();
}

void Ecrangeneral::mousePressEvent(QMouseEvent* evenement) {
    // The mouse's own back and forward buttons, where no window beneath the pointer has taken them.
    if (evenement->button() == Qt::BackButton || evenement->button() == Qt::ForwardButton)
        actions_->de(evenement->button() == Qt::BackButton ? Ordre::Precedent : Ordre::Suivant).trigger();
    else
        QMainWindow::mousePressEvent(evenement);
}

} // namespace velm
