#include "shell/zoomtextes.h"

#include "core/langue.h"
#include "core/tablereglages.h"
#include "document/ui/textes.h"
#include "platform/widgets/text/richtextbox.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"

#include <algorithm>
#include <utility>

namespace velm {

namespace {

constexpr int normalement = 100;
constexpr int reposavantdecrire = 500; ///< milliseconds

} // namespace

ZoomTextes::ZoomTextes(const Donnees& donnees) : donnees_(donnees) {
    const int choisi = donnees_.reglages.lit(reglage::zoom);
    pourcent_ = choisi > 0 ? std::clamp(choisi, SheetView::leastZoom, SheetView::mostZoom) : donnees_.premier;
    apreslechange_.setSingleShot(true);
    apreslechange_.setInterval(reposavantdecrire);
    connect(&apreslechange_, &QTimer::timeout, this, &ZoomTextes::note);
    connect(&donnees_.bureau, &Bureau::devantchange, this, &ZoomTextes::montre);
    montre();
}

void ZoomTextes::prend(const Textes& fenetre) {
    fenetre.vue().setZoom(pourcent_);
    connect(&fenetre.vue(), &SheetView::zoomChanged, this, &ZoomTextes::change);
}

void ZoomTextes::change(int pourcent) {
    if (pourcent == pourcent_)
        return;
    pourcent_ = pourcent;
    for (const Textes* fenetre : donnees_.bureau.fenetres())
        fenetre->vue().setZoom(pourcent);
    anoter_ = true;
    apreslechange_.start();
    montre();
}

void ZoomTextes::pas(int sens) {
    if (const Textes* active = donnees_.bureau.active())
        active->vue().zoomStep(sens);
}

void ZoomTextes::normal() {
    if (const Textes* active = donnees_.bureau.active())
        active->vue().setZoom(normalement);
}

void ZoomTextes::note() {
    if (!std::exchange(anoter_, false))
        return;
    apreslechange_.stop();
    donnees_.reglages.ecrit(reglage::zoom, pourcent_);
}

void ZoomTextes::montre() {
    const bool devant = donnees_.bureau.active() != nullptr;
    for (const Ordre ordre : {Ordre::ZoomAgrandir, Ordre::ZoomReduire, Ordre::ZoomNormal})
        donnees_.actions.permet(ordre, devant);
    donnees_.ecran.ditzoom(devant ? remplace(donnees_.texte(Texte::ZoomPourcent), {QString::number(pourcent_)})
                                  : QString());
}

} // namespace velm
