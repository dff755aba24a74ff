#include "shell/volet.h"

#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"

#include <QLayout>

#include <algorithm>
#include <cmath>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int largeurusuelle = 4305;

} // namespace

VoletSelection::VoletSelection(QWidget* parent)
    : QWidget(parent), recherchetoolbar_(new Toolbar(this)), note_(new NoteLine(this)), flex_(new FlexGrid(this)),
      separateurrecherche_(new SplitterBar(Qt::Vertical, this)), largeur_(largeurusuelle) {
    setObjectName(u"picturesélection"_s);
    recherchetoolbar_->setObjectName(u"recherchetoolbar"_s);
    note_->setObjectName(u"bilan"_s);
    flex_->setObjectName(u"flex"_s);
    separateurrecherche_->setObjectName(u"separateurrecherche"_s);
    separateurrecherche_->setBounds(window());
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    setMinimumWidth(SplitterBar::thickness);
    connect(separateurrecherche_, &SplitterBar::dropped, this, &VoletSelection::lache);
    connect(separateurrecherche_, &SplitterBar::usualPlaceWanted, this, [this] { changelargeurpane(largeurusuelle); });
    changelargeurpane(largeurusuelle);
}

void VoletSelection::nomme(const QString& liste, const QString& separateur) {
    flex_->setAccessibleName(liste);
    separateurrecherche_->setAccessibleName(separateur);
}

void VoletSelection::dit(const QString& phrase, const QString& suite) {
    note_->say(phrase, NoteLine::Tone::Quiet, suite);
    dispose();
}

void VoletSelection::changelargeurpane(double twips) {
    // The settings may hold what is no width.
    largeur_ = LargeurVolet(std::isfinite(twips) ? twips : largeurusuelle);
    ajustepane();
}

void VoletSelection::changelargeurliste(int twips) {
    largeur_.changelargeurliste(twips);
    ajustepane();
}

QSize VoletSelection::sizeHint() const {
    return {std::max(pixelsFromTwips(static_cast<int>(largeur_.largeurpane())), SplitterBar::thickness), 0};
}

void VoletSelection::ajustepane() {
    updateGeometry();
    // At once: whoever drags the bar sees it follow.
    if (QLayout* autour = parentWidget() ? parentWidget()->layout() : nullptr)
        autour->activate();
}

void VoletSelection::lache(int position) {
    changelargeurliste(twipsFromPixels(position));
    // What there was no room for is not kept either: the bar stays under the hand on its way back.
    if (width() < sizeHint().width())
        changelargeurpane(twipsFromPixels(width()));
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
    const int note = note_->heightForWidth(largeur - 2 * look::spacing);
    const int autour = note > 0 ? look::grid : 0;
    note_->setGeometry(look::spacing, haut + autour, std::max(largeur - 2 * look::spacing, 0), note);
    const int liste = haut + note + 2 * autour;
    flex_->setGeometry(0, liste, largeur, std::max(height() - liste, 0));
}

} // namespace velm
