#include "platform/widgets/grid/gridcells.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/grid/gridview.h"
#include "platform/widgets/look/look.h"

#include <QPainter>

namespace velm {
namespace {

/// The colours of a list with or without the focus.
struct Tones {
    explicit Tones(const QWidget& view)
        : focused(view.hasFocus()), palette(focused ? view.palette() : gridlook::unfocused(view.palette())),
          group(!view.isEnabled()       ? QPalette::Disabled
                : view.isActiveWindow() ? QPalette::Active
                                        : QPalette::Inactive) {}
    QColor ground() const { return palette.color(group, QPalette::Highlight); }
    QColor marked() const { return look::accentColour(look::themeOf(palette)); }
    QColor text(bool selected) const {
        return palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    }
    QColor quiet(bool selected) const {
        return selected ? text(true) : palette.color(group, QPalette::PlaceholderText);
    }
    QColor line() const { return gridlook::hairline(palette); }

    bool focused;
    QPalette palette;
    QPalette::ColorGroup group;
};

QFont heavier(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

/// Titles that share their beginning ("Code de commerce, art. …") are told apart by their end. In a few letters two
/// ends of a word are no word.
QString cutTo(int width, const QString& text, const QFontMetrics& metrics) {
    constexpr int letters = 14;
    const bool few = width < letters * metrics.averageCharWidth();
    return metrics.elidedText(text, few ? Qt::ElideRight : Qt::ElideMiddle, width);
}

enum class Ground { Plain, Marked, Selected };

void paintGround(QPainter& painter, const QRect& rect, const Tones& tones, Ground ground, bool line) {
    if (ground == Ground::Marked)
        painter.fillRect(rect, look::chosenGround(tones.palette));
    if (ground == Ground::Selected) {
        painter.fillRect(rect, tones.ground());
        if (!tones.focused)
            gridlook::paintUnfocused(painter, rect, tones.palette);
    } else if (line) {
        painter.setPen(QPen(tones.line(), 0));
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
}

Ground groundOf(const GridView& view, int row) {
    if (view.isSelected(row))
        return Ground::Selected;
    return row == view.marked() ? Ground::Marked : Ground::Plain;
}

} // namespace

GridCells::GridCells(GridView& view) : QStyledItemDelegate(&view), view_(view) {}

void GridCells::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int row = index.row();
    const int place = view_.placeOf(index.column());
    const Ground ground = groundOf(view_, row);
    const bool selected = ground == Ground::Selected;
    const Tones tones(view_);
    paintGround(*painter, option.rect, tones, ground, !view_.joinsAbove(row + 1, place));
    if (!view_.showsText(row, place))
        return;
    painter->setFont(option.font);
    QRect rect = gridlook::textRect(option.rect);
    const int height = option.fontMetrics.height();
    const bool two = !view_.secondLine().empty();
    if (two)
        rect = QRect(rect.left(), rect.top() + (rect.height() - 2 * height) / 2, rect.width(), height);
    rect.setLeft(rect.left() + paintBefore(*painter, rect, option, index, selected));
    if (two) {
        painter->setPen(tones.quiet(selected));
        paintSecondLine(*painter, rect.translated(0, height), row);
    }
    const QString text = index.data().toString();
    if (text.isEmpty() || paintPicture(*painter, option, index.column(), text, selected))
        return;
    painter->setPen(ground == Ground::Marked ? tones.marked() : tones.text(selected));
    if (row == view_.marked())
        painter->setFont(heavier(option.font));
    painter->drawText(rect, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine,
                      cutTo(rect.width(), text, painter->fontMetrics()));
}

/// The texts of a row that stand in no column, one behind the other.
void GridCells::paintSecondLine(QPainter& painter, const QRect& rect, int row) const {
    constexpr int gap = 2 * gridlook::padding;
    const QFontMetrics metrics = painter.fontMetrics();
    QRect rest = rect;
    for (const int column : view_.secondLine()) {
        const QString text = view_.rows().text(row, column);
        if (text.isEmpty() || rest.width() <= 0)
            continue;
        painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(text, Qt::ElideRight, rest.width()));
        rest.setLeft(rest.left() + metrics.horizontalAdvance(text) + gap);
    }
}

bool GridCells::paintPicture(QPainter& painter, const QStyleOptionViewItem& option, int column, const QString& text,
                             bool selected) const {
    const FlexGrid::Picture& picture = view_.rows().column(column).picture;
    const QIcon icon = picture ? picture(text) : QIcon();
    if (icon.isNull())
        return false;
    const int edge = std::min(gridlook::iconEdge(option.fontMetrics), option.rect.width());
    QRect place(0, 0, edge, edge);
    place.moveCenter(option.rect.center());
    paintIcon(painter, icon, place, selected);
    return true;
}

/// The picture before a text; comes back with the width that it takes, also where a row has none.
int GridCells::paintBefore(QPainter& painter, const QRect& cell, const QStyleOptionViewItem& option,
                           const QModelIndex& index, bool selected) const {
    const GridModel::Column& column = view_.rows().column(index.column());
    if (!column.before)
        return 0;
    const int edge = gridlook::iconEdge(option.fontMetrics);
    const QIcon icon = column.before(view_.rows().text(index.row(), column.beforeOf));
    if (!icon.isNull() && cell.width() >= edge)
        paintIcon(painter, icon, {cell.left(), cell.top() + (cell.height() - edge) / 2, edge, edge}, selected);
    return edge + gridlook::padding;
}

void GridCells::paintIcon(QPainter& painter, const QIcon& icon, const QRect& place, bool selected) const {
    // On a grey selection the picture keeps its colours, as the text does.
    const bool light = selected && view_.hasFocus();
    icon.paint(&painter, place, Qt::AlignCenter, light ? QIcon::Selected : QIcon::Normal);
}

QSize GridCells::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetrics metrics(option.font);
    const int before = view_.rows().column(index.column()).before ? gridlook::iconEdge(metrics) + gridlook::padding : 0;
    return {before + metrics.horizontalAdvance(index.data().toString()) + 2 * gridlook::padding + 1,
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
                    groundOf(view_, row), true);
}

} // namespace velm
