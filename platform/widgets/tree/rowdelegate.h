#pragma once
// How a row of a tree is drawn.
#include "platform/widgets/grid/gridlook.h"

#include <QStyledItemDelegate>

#include <algorithm>
#include <functional>

namespace velm {

struct RowDelegate : public QStyledItemDelegate {
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const int width = QStyledItemDelegate::sizeHint(option, index).width();
        return {width, gridlook::rowHeight(QFontMetrics(option.font))};
    }
    /// How many characters at the end of a text stay when it is cut; none where nobody says so.
    std::function<qsizetype(const QString& text)> keptEnd;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        row.text = cut(row);
        row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
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
    QString cut(const QStyleOptionViewItem& option) const {
        const qsizetype kept = keptEnd ? keptEnd(option.text) : 0;
        const QFontMetrics& metrics = option.fontMetrics;
        const int width = room(option).width();
        if (kept == 0 || metrics.horizontalAdvance(option.text) <= width)
            return option.text;
        const QString end = option.text.right(kept);
        const int rest = std::max(width - metrics.horizontalAdvance(end), 0);
        return metrics.elidedText(option.text.chopped(kept), option.textElideMode, rest) + end;
    }
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
