#include "shell/fenetresannexes.h"

#include "core/tablereglages.h"
#include "document/ui/frmfindform.h"
#include "document/ui/textes.h"
#include "platform/system/systeminfo.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/richtextbox.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/frmabout.h"
#include "shell/frmtip.h"
#include "shell/sponsor.h"

#include <QCoreApplication>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace velm {

FenetresAnnexes::FenetresAnnexes(Ecrangeneral& ecran, Bureau& bureau, Donnees donnees)
    : ecran_(ecran), bureau_(bureau), donnees_(std::move(donnees)) {}

void FenetresAnnexes::montre(QDialog* fenetre, bool ecartee) {
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    // At the start the frame does not have its size yet, but the screen has.
    if (ecartee) {
        ecarte(*fenetre);
    } else if (ecran_.isMaximized()) {
        fenetre->adjustSize();
        QRect place(QPoint(), fenetre->size());
        place.moveCenter(ecran_.screen()->availableGeometry().center());
        fenetre->move(place.topLeft());
    }
    fenetre->show();
}

/// Into the corner of the frame: the tip of a start must not cover the start page, which may be all that somebody sees
/// for the first time.
void FenetresAnnexes::ecarte(QDialog& fenetre) const {
    const QRect libre = ecran_.isMaximized() ? ecran_.screen()->availableGeometry() : ecran_.frameGeometry();
    fenetre.adjustSize();
    const int titre = ecran_.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize place = fenetre.size() + QSize(look::windowMargin, ecran_.statusBar()->height() + titre);
    const QPoint coin = libre.bottomRight() + QPoint(1, 1) - QPoint(place.width(), place.height());
    fenetre.move(std::max(coin.x(), libre.left()), std::max(coin.y(), libre.top()));
}

void FenetresAnnexes::astuce(bool audepart) {
    const Parametres& parametres = donnees_.seance.parametres();
    const QString fichier = Astuces::cheminfichier(parametres.repertoireapplication, parametres.extensionlangue);
    Reglages& reglages = donnees_.reglages;
    const auto coche = reglages.lit(reglage::astuces) != 0;
    const auto change = [&reglages](bool montrees) { reglages.ecrit(reglage::astuces, montrees ? 1 : 0); };
    montre(new frmTip(donnees_.texte, astuces_, fichier, {coche, change}, &ecran_), audepart);
}

void FenetresAnnexes::montreapropos() {
    const MondeExterieur& monde = donnees_.monde;
    monde.sablier.fixepointeur(Sablier::attente);
    frmAbout::Rappels rappels;
    rappels.lancesysinfo = [&monde] { return startsysinfo(SystemRegistre(), monde.processus); };
    rappels.estmontree = [&monde] { monde.sablier.fixepointeur(Sablier::defaut); };
    montre(new frmAbout(donnees_.texte, QCoreApplication::applicationVersion(), donnees_.corpus.titre(), rappels,
                        monde.dialogues, &ecran_));
}

void FenetresAnnexes::montrepartenaires() {
    montre(new sponsor(donnees_.texte, donnees_.seance.fichierpartenaires(), &ecran_));
}

void FenetresAnnexes::montrerecherche() {
    const auto active = [this] {
        const Textes* fenetre = bureau_.active();
        return fenetre ? frmFindForm::Cible{&fenetre->vue(),
                                            fenetre->referencecourante() + QString::number(quintptr(fenetre))}
                       : frmFindForm::Cible{};
    };
    if (!recherchetexte_) {
        recherchetexte_ = new frmFindForm(donnees_.texte, donnees_.monde.dialogues, active, &ecran_);
        QObject::connect(&ecran_.pieces().aire, &ChildArea::childActivated, &vivante_,
                         [this] { recherchetexte_->actualise(); });
    }
    const Textes* fenetre = bureau_.active();
    const QString choisi = fenetre ? fenetre->vue().control().selText() : QString();
    constexpr qsizetype plusdecaracteres = 100;
    recherchetexte_->montre(choisi.size() > plusdecaracteres || choisi.contains(u'\r') ? QString() : choisi);
}

} // namespace velm
