#include "shell/accueil.h"

#include "core/texte.h"
#include "shell/frmabout.h"
#include "shell/splash.h"

#include <QCoreApplication>

namespace velm {

EcranAccueil::EcranAccueil(Langue& langue, Sablier& sablier) : langue_(langue), sablier_(sablier) {}

EcranAccueil::~EcranAccueil() = default;

void EcranAccueil::afficheetape(const QString& texte) {
    // Before the splash stands, and after a missing base has put it away, the label is only remembered.
    etape_ = texte;
    if (fenetre_)
        fenetre_->changeetape(texte);
}

void EcranAccueil::montreaccueil() {
    fenetre_ = std::make_unique<frmSplash>(frmSplash::Textes{langue_.lireressource(Texte::NomDuProgramme),
                                                             langue_.lireressource(Texte::Version) + u' ' +
                                                                 versioncourte(QCoreApplication::applicationVersion()),
                                                             langue_.lireressource(Texte::NomComplet)});
    fenetre_->estmontree = [this] { sablier_.fixepointeur(Sablier::defaut); };
    fenetre_->changeetape(etape_);
    fenetre_->show();
    fenetre_->repaint();
}

void EcranAccueil::fermeaccueil() {
    fenetre_.reset();
}

void EcranAccueil::avance(double pourcentage) {
    if (fenetre_)
        fenetre_->changeprogression(pourcentage);
}

} // namespace velm
