#include "platform/widgets/list/listdelegate.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/list/listview.h"
#include "platform/widgets/list/listviewmodel.h"
#include "platform/widgets/look/look.h"

#include <QPainter>
#include <QTextLayout>
#include <QWidget>

namespace velm {

int ListDelegate::largeEdge(const QFontMetrics& metrics) {
    return 2 * gridlook::iconEdge(metrics);
}

QColor ListDelegate::faintInk(const QPalette& palette) {
    constexpr double strength = 0.72;
    return look::mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), strength);
}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return cell_;
}

QRect ListDelegate::picturePlace(const QRect& cell, const QFontMetrics& metrics) const {
    if (arrangement_ == ListArrangement::LargeIcons) {
        const int edge = largeEdge(metrics);
        return {cell.left() + (cell.width() - edge) / 2, cell.top() + look::spacing, edge, edge};
    }
    const int edge = gridlook::iconEdge(metrics);
    return {cell.left() + look::grid, cell.top() + (cell.height() - edge) / 2, edge, edge};
}

QRect ListDelegate::wordsPlace(const QRect& cell, const QFontMetrics& metrics) const {
    const QRect picture = picturePlace(cell, metrics);
    if (arrangement_ == ListArrangement::LargeIcons)
        return {cell.left() + look::grid, picture.bottom() + 1 + look::grid, cell.width() - 2 * look::grid,
                2 * metrics.height()};
    QRect words = cell;
    words.setLeft(picture.right() + 1 + look::grid);
    words.setRight(cell.right() - look::spacing);
    return words;
}

QStringList ListDelegate::lines(const QString& text, const QFont& font, int width) const {
    const QFontMetrics metrics(font);
    if (arrangement_ != ListArrangement::LargeIcons || metrics.horizontalAdvance(text) <= width)
        return {metrics.elidedText(text, Qt::ElideRight, width)};
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    first.setLineWidth(width);
    layout.endLayout();
    const int end = first.textLength();
    return {text.left(end).trimmed(), metrics.elidedText(text.mid(end), Qt::ElideRight, width)};
}

bool ListDelegate::fits(const QString& text, const QRect& cell, const QFont& font) const {
    const QStringList shown = lines(text, font, wordsPlace(cell, QFontMetrics(font)).width());
    return !shown.last().endsWith(QChar(0x2026)) || text.endsWith(shown.last());
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool focused = option.widget && option.widget->hasFocus();
    if (selected) {
        painter->fillRect(option.rect, option.palette.brush(QPalette::Highlight));
        if (!focused)
            gridlook::paintUnfocused(*painter, option.rect, option.palette);
    }
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    const bool faint = index.data(ListViewModel::FaintRole).toBool();
    const QIcon::Mode mode = selected && focused ? QIcon::Selected : faint ? QIcon::Disabled : QIcon::Normal;
    icon.paint(painter, picturePlace(option.rect, option.fontMetrics), Qt::AlignCenter, mode);
    const auto* view = qobject_cast<const ListView*>(option.widget);
    if (view && view->editedItem() == ListViewModel::itemOf(index))
        return; // the field lies there
    const QColor ink = selected ? option.palette.color(QPalette::HighlightedText)
                       : faint  ? faintInk(option.palette)
                                : option.palette.color(QPalette::Text);
    painter->setPen(ink);
    painter->setFont(option.font);
    const QRect words = wordsPlace(option.rect, option.fontMetrics);
    const bool large = arrangement_ == ListArrangement::LargeIcons;
    const QStringList shown = lines(index.data().toString(), option.font, words.width());
    const Qt::Alignment side = large ? Qt::AlignHCenter | Qt::AlignTop : Qt::AlignLeft | Qt::AlignVCenter;
    painter->drawText(words, static_cast<int>(side), shown.join(u'\n'));
}

} // namespace velm
