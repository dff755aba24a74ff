#include "shell/feuilledepart.h"

#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"

#include <QPainter>

namespace velm {

namespace {

constexpr double arrondi = 1.5 * look::grid;

} // namespace

FeuilleDepart::FeuilleDepart(QWidget* parent) : QWidget(parent) {}

void FeuilleDepart::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(quietLine(palette()));
    peintre.setBrush(palette().window());
    peintre.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), arrondi, arrondi);
}

} // namespace velm
