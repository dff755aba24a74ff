#include "shell/ecrangeneral.h"

#include "core/cle.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/viewformats.h"
#include "shell/fonds.h"
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
#include <QToolButton>
#include <QWindow>

namespace velm {

namespace {

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

/// The colour as a breath over the windows' own.
QColor assombrie(const QColor& couleur, const QColor& surface) {
    const auto melange = [](int a, int b) { return (a + 11 * b) / 12; };
    return {melange(couleur.red(), surface.red()), melange(couleur.green(), surface.green()),
            melange(couleur.blue(), surface.blue())};
}

} // namespace

Ecrangeneral::Ecrangeneral(const std::function<QString(int)>& texte)
    : texte_(texte), aire_(new ChildArea), volet_(new VoletSelection(this)),
      menus_(new MenusEcran(*menuBar(), texte, icon)), barreetat_(new StatusBar(this)) {
    setObjectName(QStringLiteral("Ecrangeneral"));
    setWindowTitle(texte(8));
    setContextMenuPolicy(Qt::NoContextMenu);
    aire_->setObjectName(QStringLiteral("aire"));

    auto* centre = new QWidget(this);
    auto* disposition = new QHBoxLayout(centre);
    disposition->setContentsMargins({});
    disposition->setSpacing(0);
    disposition->addWidget(volet_);
    disposition->addWidget(aire_, 1);
    setCentralWidget(centre);
    volet_->hide();

    barreetat_->setObjectName(QStringLiteral("barreétat"));
    barreetat_->addPanel(QStringLiteral("wait"), 1);
    setStatusBar(barreetat_);

    barrecommande_ = barre("barrecommande", 130, Barre::Commande);
    barreecran_ = barre("barreécran", 132, Barre::Ecran);
    barreoutils_ = barre("barreoutils", 131, Barre::Outils);
    garnitcommande(texte);
    garnitecran(texte);
    garnitselection(texte);
}

Ecrangeneral::~Ecrangeneral() = default;

Toolbar& Ecrangeneral::de(Barre barre) const {
    return barre == Barre::Commande ? *barrecommande_ : barre == Barre::Ecran ? *barreecran_ : *barreoutils_;
}

Toolbar* Ecrangeneral::barre(const char* nom, int texte, Barre laquelle) {
    auto* nouvelle = new Toolbar(this);
    nouvelle->setObjectName(QString::fromUtf8(nom));
    nouvelle->setWindowTitle(texte_(texte).remove(u'&'));
    nouvelle->setImages(icon);
    connect(nouvelle, &Toolbar::rightClicked, this,
            [this, laquelle](const QPoint& ici) { menus_->menudebarre(laquelle)->popup(ici); });
    return nouvelle;
}

void Ecrangeneral::placebarre(Barre barre, int position) {
    // A bar without buttons would be nothing but a strip of empty ground.
    de(barre).dock(*this, de(barre).buttonCount() > 0 ? position : 0);
    menus_->cocheposition(barre, position);
    if (barre == Barre::Ecran)
        barrecommande_->setValue(QStringLiteral("Barrefenêtre"), position != 0);
    if (barre == Barre::Outils)
        barrecommande_->setValue(QStringLiteral("Barreoutils"), position != 0);
}

void Ecrangeneral::montrebarreetat(bool visible) {
    barreetat_->setVisible(visible);
    menus_->entree(QStringLiteral("maffichage0(3)"))->setChecked(visible);
}

void Ecrangeneral::placefond(const FondEcran& fond) {
    if (fond.couleur)
        fond_.couleur = fond.couleur;
    fond_.image = fond.image;
    peintfond();
}

void Ecrangeneral::peintfond() {
    QColor couleur = palette().color(QPalette::Window);
    if (fond_.couleur)
        couleur = viewColour(static_cast<std::int32_t>(*fond_.couleur));
    // A light ground would outshine the documents of a dark desk.
    if (look::themeOf(palette()) == look::Theme::Dark)
        couleur = assombrie(couleur, palette().color(QPalette::Window));
    // Drawn once for the whole screen: the frame shows its middle, whatever size it takes.
    const QSize taille = screen()->size();
    QPixmap image;
    if (fond_.image >= 0)
        image = imagedefond(fond_.image, taille, devicePixelRatioF(), look::themeOf(palette()));
    aire_->setBack(image, couleur);
}

void Ecrangeneral::posepointeurs() {
    const qreal densite = devicePixelRatioF();
    aire_->viewport()->setCursor(iconCursor(QStringLiteral("Curseur1"), densite));
    for (const Barre barre : toutesbarres) {
        for (QToolButton* bouton : de(barre).findChildren<QToolButton*>())
            bouton->setCursor(iconCursor(QStringLiteral("Pointeur"), densite));
    }
}

void Ecrangeneral::montreselection(bool montree) {
    volet_->setVisible(montree);
    barrecommande_->setValue(QStringLiteral("Rechercher"), montree);
}

void Ecrangeneral::montreslot(int indice, bool ouverte) {
    barreecran_->setValue(clebouton(indice), ouverte);
    menus_->entree(QStringLiteral("maffichagef"), indice)->setChecked(ouverte);
}

void Ecrangeneral::montredispositions(bool visibles) {
    for (const QString& cle :
         {QStringLiteral("Cascade"), QStringLiteral("Horizontalement"), QStringLiteral("Verticalement")})
        barrecommande_->setButtonVisible(cle, visibles);
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
    posepointeurs();
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
        emit historiquevoulu(evenement->button() == Qt::BackButton);
    else
        QMainWindow::mousePressEvent(evenement);
}

} // namespace velm
