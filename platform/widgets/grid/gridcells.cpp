#include "platform/widgets/grid/gridcells.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/grid/gridview.h"

#include <QPainter>

namespace velm {
namespace {

/// The colours of a list with or without the focus.
struct Tones {
    explicit Tones(const QWidget& view)
        : palette(view.hasFocus() ? view.palette() : gridlook::unfocused(view.palette())),
          group(!view.isEnabled()       ? QPalette::Disabled
                : view.isActiveWindow() ? QPalette::Active
                                        : QPalette::Inactive) {}
    QColor ground() const { return palette.color(group, QPalette::Highlight); }
    QColor text(bool selected) const {
        return palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    }
    QColor line() const { return gridlook::hairline(palette); }

    QPalette palette;
    QPalette::ColorGroup group;
};

void paintGround(QPainter& painter, const QRect& rect, const Tones& tones, bool selected, bool line) {
    if (selected) {
        painter.fillRect(rect, tones.ground());
    } else if (line) {
        painter.setPen(QPen(tones.line(), 0));
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
}

} // namespace

GridCells::GridCells(GridView& view) : QStyledItemDelegate(&view), view_(view) {}

void GridCells::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int row = index.row();
    const int place = view_.placeOf(index.column());
    const bool selected = view_.isSelected(row);
    const Tones tones(view_);
    paintGround(*painter, option.rect, tones, selected, !view_.joinsAbove(row + 1, place));
    if (!view_.showsText(row, place))
        return;
    const QString text = index.data().toString();
    if (text.isEmpty())
        return;
    painter->setFont(option.font);
    painter->setPen(tones.text(selected));
    const QFontMetrics& metrics = option.fontMetrics;
    const QRect rect = gridlook::textRect(option.rect);
    // Titles that share their beginning ("Code de commerce, art. …") are told apart by their end.
    painter->drawText(rect, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine,
                      metrics.elidedText(text, Qt::ElideMiddle, rect.width()));
}

QSize GridCells::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetrics metrics(option.font);
    return {metrics.horizontalAdvance(index.data().toString()) + 2 * gridlook::padding + 1,
            gridlook::rowHeight(metrics)};
}

void GridCells::paintBeside(int left, int first, int behind) const {
    const int width = view_.viewport()->width() - left;
    if (width <= 0)
        return;
    QPainter painter(view_.viewport());
    const Tones tones(view_);
    for (int row = first; row < behind; ++row)
        paintGround(painter, {left, view_.rowViewportPosition(row), width, view_.rowHeight(row)}, tones,
                    view_.isSelected(row), true);
}

} // namespace velm
