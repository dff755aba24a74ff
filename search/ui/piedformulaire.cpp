#include "search/ui/piedformulaire.h"

#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"

#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace velm {

PiedFormulaire::PiedFormulaire(QWidget* parent) : QWidget(parent), disposition_(new QVBoxLayout(this)) {
    disposition_->setContentsMargins(look::windowMargin, look::spacing, look::windowMargin, look::spacing);
    disposition_->setSpacing(look::spacing);
}

void PiedFormulaire::ajoute(QWidget* celui) {
    disposition_->addWidget(celui);
}

void PiedFormulaire::separe(bool coupes) {
    if (std::exchange(coupes_, coupes) != coupes)
        update();
}

void PiedFormulaire::paintEvent(QPaintEvent*) {
    if (coupes_)
        QPainter(this).fillRect(0, 0, width(), 1, quietLine(palette()));
}

} // namespace velm
