#include "search/ui/bandecollections.h"

#include "platform/widgets/look/look.h"

#include <QBoxLayout>

namespace velm {

namespace {

QBoxLayout* ligne() {
    auto* nouvelle = new QHBoxLayout;
    nouvelle->setContentsMargins({});
    nouvelle->setSpacing(look::spacing);
    return nouvelle;
}

} // namespace

BandeCollections::BandeCollections(QWidget* etiquette, QWidget* barre, const QList<QWidget*>& boutons, QWidget* parent)
    : QWidget(parent), disposition_(new QBoxLayout(QBoxLayout::LeftToRight, this)), gauche_(ligne()), droite_(ligne()) {
    gauche_->addWidget(etiquette);
    gauche_->addWidget(barre, 1);
    droite_->addStretch(1);
    for (QWidget* bouton : boutons)
        droite_->addWidget(bouton);
    disposition_->setContentsMargins({});
    disposition_->setSpacing(look::spacing);
    disposition_->addLayout(gauche_, 1);
    disposition_->addLayout(droite_);
}

int BandeCollections::besoin() const {
    return gauche_->sizeHint().width() + disposition_->spacing() + droite_->sizeHint().width();
}

QSize BandeCollections::minimumSizeHint() const {
    // Not the width of both in a line: the form may become narrower than that.
    return {std::max(gauche_->minimumSize().width(), droite_->minimumSize().width()),
            disposition_->minimumSize().height()};
}

void BandeCollections::resizeEvent(QResizeEvent* evenement) {
    // A larger type comes with another height, and so through here as well.
    disposition_->setDirection(width() < besoin() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    QWidget::resizeEvent(evenement);
}

} // namespace velm
