#include "shell/accueil.h"

#include "core/texte.h"
#include "shell/frmabout.h"
#include "shell/splash.h"

#include <QCoreApplication>
#include <QWindow>

namespace velm {

namespace {

/// Milliseconds that a window takes to come on the screen, at most.
constexpr int tempsdouvrir = 100;
constexpr int tempsdunpas = 5;

} // namespace

EcranAccueil::EcranAccueil(Langue& langue, Sablier& sablier, std::chrono::milliseconds patience)
    : langue_(langue), sablier_(sablier), patience_(patience) {
    depuisledebut_.start();
}

EcranAccueil::~EcranAccueil() = default;

void EcranAccueil::afficheetape(const QString& texte) {
    // Before the splash stands, and after a missing base has put it away, the label is only remembered.
    etape_ = texte;
    if (fenetre_)
        fenetre_->changeetape(texte);
    else
        montresillefaut();
}

void EcranAccueil::montreaccueil() {
    voulue_ = true;
    montresillefaut();
}

void EcranAccueil::montresillefaut() {
    if (voulue_ && !fenetre_ && std::chrono::milliseconds(depuisledebut_.elapsed()) >= patience_)
        ouvre();
}

void EcranAccueil::ouvre() {
    fenetre_ = std::make_unique<frmSplash>(frmSplash::Textes{langue_.lireressource(Texte::NomDuProgramme),
                                                             langue_.lireressource(Texte::Version) + u' ' +
                                                                 versioncourte(QCoreApplication::applicationVersion()),
                                                             langue_.lireressource(Texte::NomComplet)});
    fenetre_->estmontree = [this] { sablier_.fixepointeur(Sablier::defaut); };
    fenetre_->changeetape(etape_);
    fenetre_->show();
    // No event comes by itself while the program starts: without those of the screen the window would stand there
    // unpainted.
    QElapsedTimer attente;
    for (attente.start(); !fenetre_->windowHandle()->isExposed() && attente.elapsed() < tempsdouvrir;)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, tempsdunpas);
    fenetre_->repaint();
}

void EcranAccueil::fermeaccueil() {
    voulue_ = false;
    fenetre_.reset();
}

void EcranAccueil::avance(double pourcentage) {
    montresillefaut();
    if (fenetre_)
        fenetre_->changeprogression(pourcentage);
}

} // namespace velm
