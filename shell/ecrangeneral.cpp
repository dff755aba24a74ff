#include "shell/ecrangeneral.h"

#include "document/ui/textes.h"
#include "platform/text/twips.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>

namespace velm {

namespace {

enum Etat { Normal = 0, Reduit = 1, Agrandi = 2 };

/// The place on a screen that is there; one off every screen is moved onto the first.
QRect visible(QRect place) {
    const QScreen* ecran = QGuiApplication::screenAt(place.center());
    const QRect libre = (ecran ? ecran : QGuiApplication::primaryScreen())->availableGeometry();
    place.setSize(place.size().expandedTo(QSize(320, 240)).boundedTo(libre.size()));
    if (!libre.contains(place))
        place.moveTopLeft({std::clamp(place.left(), libre.left(), libre.right() - place.width() + 1),
                           std::clamp(place.top(), libre.top(), libre.bottom() - place.height() + 1)});
    return place;
}

} // namespace

Ecrangeneral::Ecrangeneral(const std::function<QString(int)>& texte) : aire_(new QMdiArea(this)) {
    setObjectName(QStringLiteral("Ecrangeneral"));
    setWindowTitle(texte(8));
    setCentralWidget(aire_);
    aire_->setObjectName(QStringLiteral("aire"));
    aire_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    aire_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    aire_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation, false);

    QMenu* fichier = menuBar()->addMenu(texte(1603));
    fichier->setObjectName(QStringLiteral("mfichier"));
    QAction* quitte = fichier->addAction(texte(116));
    quitte->setObjectName(QStringLiteral("mfichier3"));
    quitte->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quitte->setMenuRole(QAction::QuitRole);
    connect(quitte, &QAction::triggered, this, &Ecrangeneral::quitter);
}

void Ecrangeneral::place(const PositionFenetre& position) {
    etat_ = position.etat;
    setGeometry(visible({pixelsFromTwips(position.gauche), pixelsFromTwips(position.haut),
                         pixelsFromTwips(position.largeur), pixelsFromTwips(position.hauteur)}));
}

void Ecrangeneral::montre() {
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
    const QRect place = geometry();
    const int etat = isMinimized() ? Reduit : isMaximized() ? Agrandi : Normal;
    return {etat, twipsFromPixels(place.x()), twipsFromPixels(place.y()), twipsFromPixels(place.width()),
            twipsFromPixels(place.height())};
}

void Ecrangeneral::ajoute(Textes* fenetre) {
    QMdiSubWindow* cadre = aire_->addSubWindow(fenetre);
    cadre->setAttribute(Qt::WA_DeleteOnClose);
    cadre->setWindowIcon(windowIcon());
    cadre->resize(720, 560);
    if (aire_->subWindowList().size() == 1)
        cadre->showMaximized();
    else
        cadre->show();
}

void Ecrangeneral::avance(Textes* fenetre) {
    auto* cadre = qobject_cast<QMdiSubWindow*>(fenetre->parentWidget());
    if (!cadre)
        return;
    if (cadre->isMinimized())
        cadre->showNormal();
    aire_->setActiveSubWindow(cadre);
    fenetre->setFocus();
}

std::vector<Textes*> Ecrangeneral::fenetres() const {
    std::vector<Textes*> liste;
    for (const QMdiSubWindow* cadre : aire_->subWindowList()) {
        if (auto* fenetre = qobject_cast<Textes*>(cadre->widget()))
            liste.push_back(fenetre);
    }
    return liste;
}

Textes* Ecrangeneral::active() const {
    const QMdiSubWindow* cadre = aire_->activeSubWindow();
    return cadre ? qobject_cast<Textes*>(cadre->widget()) : nullptr;
}

void Ecrangeneral::fermefenetres() {
    aire_->closeAllSubWindows();
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

} // namespace velm
