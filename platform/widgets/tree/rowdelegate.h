#pragma once
// How a row of a tree is drawn.
#include "platform/widgets/grid/gridlook.h"

#include <QStyledItemDelegate>

#include <algorithm>

namespace velm {

struct RowDelegate : public QStyledItemDelegate {
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const int width = QStyledItemDelegate::sizeHint(option, index).width();
        return {width, gridlook::rowHeight(QFontMetrics(option.font))};
    }
    /// Whether the whole text can be seen.
    bool fits(QStyleOptionViewItem option, const QModelIndex& index) const {
        initStyleOption(&option, index);
        return option.fontMetrics.horizontalAdvance(option.text) <= room(option).width();
    }
    /// Where the words stand in a row, and no more.
    QRect words(QStyleOptionViewItem option, const QModelIndex& index) const {
        initStyleOption(&option, index);
        QRect place = room(option);
        place.setWidth(std::min(place.width(), option.fontMetrics.horizontalAdvance(option.text) + 1));
        return place;
    }

private:
    static QRect room(const QStyleOptionViewItem& option) {
        const QStyle* style = option.widget->style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
        return style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget)
            .adjusted(margin, 0, -margin, 0);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        // One row, one look: no frame around the text of the current one.
        option->state.setFlag(QStyle::State_HasFocus, false);
        const bool grey =
            option->state.testFlag(QStyle::State_Selected) && option->widget && !option->widget->hasFocus();
        if (grey && !option->icon.isNull()) {
            // On grey, the picture keeps its colours.
            const QPixmap usual = option->icon.pixmap(option->decorationSize, option->widget->devicePixelRatioF());
            option->icon = QIcon(usual);
            option->icon.addPixmap(usual, QIcon::Selected);
        }
    }
};

} // namespace velm
