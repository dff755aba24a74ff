#include "search/ui/ongletsajustes.h"

#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>

namespace velm {

OngletsAjustes::OngletsAjustes(QWidget* parent) : QTabWidget(parent) {
    QSizePolicy place(QSizePolicy::Expanding, QSizePolicy::Preferred);
    place.setHeightForWidth(true);
    setSizePolicy(place);
    connect(this, &QTabWidget::currentChanged, this, &OngletsAjustes::updateGeometry);
}

QSize OngletsAjustes::sizeHint() const {
    const int largeur = QTabWidget::sizeHint().width();
    return {largeur, heightForWidth(largeur)};
}

QSize OngletsAjustes::minimumSizeHint() const {
    // The less wide, the higher it is: what it needs at its width heightForWidth() tells.
    return {QTabWidget::minimumSizeHint().width(), tabBar()->sizeHint().height()};
}

int OngletsAjustes::heightForWidth(int largeur) const {
    const QWidget* page = currentWidget();
    if (!page)
        return tabBar()->sizeHint().height();
    // The style says what the bar and the edges take of it.
    QStyleOptionTabWidgetFrame option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, largeur, QWIDGETSIZE_MAX);
    option.tabBarSize = tabBar()->sizeHint();
    const QSize dedans = style()->subElementRect(QStyle::SE_TabWidgetTabContents, &option, this).size();
    return QWIDGETSIZE_MAX - dedans.height() +
           (page->hasHeightForWidth() ? page->heightForWidth(dedans.width()) : page->sizeHint().height());
}

} // namespace velm
