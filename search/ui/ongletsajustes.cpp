#include "search/ui/ongletsajustes.h"

#include <QStyle>
#include <QTabBar>

namespace velm {

OngletsAjustes::OngletsAjustes(QWidget* parent) : QTabWidget(parent) {
    QSizePolicy place(QSizePolicy::Expanding, QSizePolicy::Minimum);
    place.setHeightForWidth(true);
    setSizePolicy(place);
    connect(this, &QTabWidget::currentChanged, this, &OngletsAjustes::updateGeometry);
}

QSize OngletsAjustes::sizeHint() const {
    const int largeur = QTabWidget::sizeHint().width();
    return {largeur, heightForWidth(largeur)};
}

QSize OngletsAjustes::minimumSizeHint() const {
    const int largeur = QTabWidget::minimumSizeHint().width();
    return {largeur, heightForWidth(largeur)};
}

int OngletsAjustes::heightForWidth(int largeur) const {
    const QWidget* page = currentWidget();
    if (!page)
        return tabBar()->sizeHint().height();
    const int bords = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    return tabBar()->sizeHint().height() + bords +
           (page->hasHeightForWidth() ? page->heightForWidth(largeur - bords) : page->sizeHint().height());
}

} // namespace velm
