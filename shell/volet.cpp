#include "shell/volet.h"

#include "platform/text/twips.h"
#include "platform/widgets/flexgrid.h"
#include "platform/widgets/icons.h"
#include "platform/widgets/splitterbar.h"
#include "platform/widgets/toolbar.h"

#include <algorithm>
#include <cmath>

namespace velm {

namespace {

constexpr int largeurusuelle = 4305;

} // namespace

VoletSelection::VoletSelection(QWidget* parent)
    : QWidget(parent), recherchetoolbar_(new Toolbar(this)), flex_(new FlexGrid(this)),
      separateurrecherche_(new SplitterBar(Qt::Vertical, this)), largeur_(largeurusuelle) {
    setObjectName(QStringLiteral("picturesélection"));
    recherchetoolbar_->setObjectName(QStringLiteral("recherchetoolbar"));
    recherchetoolbar_->setImages(icon);
    flex_->setObjectName(QStringLiteral("flex"));
    separateurrecherche_->setObjectName(QStringLiteral("separateurrecherche"));
    separateurrecherche_->setBounds(window());
    connect(separateurrecherche_, &SplitterBar::dropped, this,
            [this](int position) { changelargeurliste(twipsFromPixels(position)); });
    connect(separateurrecherche_, &SplitterBar::usualPlaceWanted, this, [this] { changelargeurpane(largeurusuelle); });
    changelargeurpane(largeurusuelle);
}

void VoletSelection::nomme(const QString& liste, const QString& separateur) {
    flex_->setAccessibleName(liste);
    separateurrecherche_->setAccessibleName(separateur);
}

void VoletSelection::changelargeurpane(double twips) {
    // What is stored may be anything.
    largeur_ = LargeurVolet(std::isfinite(twips) ? twips : largeurusuelle);
    ajustepane();
}

void VoletSelection::changelargeurliste(int twips) {
    largeur_.changelargeurliste(twips);
    ajustepane();
}

void VoletSelection::ajustepane() {
    setFixedWidth(std::max(pixelsFromTwips(static_cast<int>(largeur_.largeurpane())), SplitterBar::thickness));
    dispose();
}

void VoletSelection::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    dispose();
}

void VoletSelection::dispose() {
    const int largeur = std::max(width() - SplitterBar::thickness, 0);
    const int haut = recherchetoolbar_->sizeHint().height();
    separateurrecherche_->setGeometry(largeur, 0, SplitterBar::thickness, height());
    recherchetoolbar_->setGeometry(0, 0, largeur, haut);
    flex_->setGeometry(0, haut, largeur, std::max(height() - haut, 0));
}

} // namespace velm
