#pragma once
// How a row of a tree is drawn.
#include "platform/widgets/grid/gridlook.h"

#include <QStyledItemDelegate>

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
        const QStyle* style = option.widget->style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
        const int room =
            style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget).width() - 2 * margin;
        return option.fontMetrics.horizontalAdvance(option.text) <= room;
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
