#include "platform/widgets/grid/gridheader.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/grid/gridmodel.h"
#include "platform/widgets/look/look.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>

namespace velm {
namespace {

constexpr int arrowWidth = gridlook::chevronWidth;
constexpr int arrowGap = 6;

QColor arrowColour(const QPalette& palette) {
    return look::accentColour(look::themeOf(palette));
}

} // namespace

struct GridHeader::Parts {
    QString text; ///< as it fits
    QRect textRect;
    QPointF arrow;
};

GridHeader::GridHeader(const GridModel& model, QWidget* parent) : QHeaderView(Qt::Horizontal, parent), model_(model) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setStretchLastSection(false);
    setMinimumSectionSize(gridlook::padding * 2);
    connect(this, &QHeaderView::sectionClicked, this, [this](int logical) {
        if (onClicked)
            onClicked(visualIndex(logical));
    });
    connect(this, &QHeaderView::sectionDoubleClicked, this, [this](int logical) {
        if (onDoubleClicked)
            onDoubleClicked(visualIndex(logical));
    });
}

QFont GridHeader::textFont() const {
    QFont text = font();
    text.setWeight(QFont::DemiBold);
    return text;
}

QSize GridHeader::sizeHint() const {
    const int height = gridlook::rowHeight(QFontMetrics(textFont())) + look::grid;
    return {QHeaderView::sizeHint().width(), height};
}

GridHeader::Parts GridHeader::partsOf(const QRect& rect, int logicalIndex) const {
    const GridModel::Column& column = model_.column(logicalIndex);
    const QFontMetrics metrics(textFont());
    const bool marked = column.mark != FlexGrid::Mark::None;
    const int beside = marked ? arrowWidth + arrowGap : 0;
    const QRect inner = gridlook::textRect(rect);
    const int room = std::max(inner.width() - beside, 0);
    Parts parts;
    parts.text = metrics.elidedText(column.header, Qt::ElideRight, room);
    const int width = std::min(metrics.horizontalAdvance(parts.text), room);
    const int free = room - width;
    const int left = column.align == FlexGrid::Align::Left     ? inner.left()
                     : column.align == FlexGrid::Align::Centre ? inner.left() + free / 2
                                                               : inner.left() + free;
    parts.textRect = QRect(left, rect.top(), width + 1, rect.height());
    parts.arrow = QPointF(inner.right() + 1 - arrowWidth / 2.0, rect.center().y() + 0.5);
    return parts;
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    if (!rect.isValid() || !model_.hasColumn(logicalIndex))
        return;
    const QPalette& colours = palette();
    painter->fillRect(rect, colours.color(QPalette::Window));
    const Parts parts = partsOf(rect, logicalIndex);
    painter->setFont(textFont());
    painter->setPen(colours.color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::PlaceholderText));
    painter->drawText(parts.textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, parts.text);
    const FlexGrid::Mark mark = model_.column(logicalIndex).mark;
    if (mark != FlexGrid::Mark::None)
        gridlook::paintChevron(*painter, parts.arrow,
                               mark == FlexGrid::Mark::Ascending ? gridlook::Point::Up : gridlook::Point::Down,
                               arrowColour(colours));
    painter->setPen(QPen(colours.color(QPalette::Mid), 0));
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    if (rect.right() < viewport()->width() - 1)
        painter->drawLine(rect.right(), rect.top() + 6, rect.right(), rect.bottom() - 6);
}

void GridHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    // The style would draw a section of its own beside the last one.
    const int end = length() - offset();
    const QRect rest(end, 0, viewport()->width() - end, viewport()->height());
    if (!rest.isValid())
        return;
    QPainter painter(viewport());
    painter.fillRect(rest, palette().color(QPalette::Window));
    painter.setPen(QPen(palette().color(QPalette::Mid), 0));
    painter.drawLine(rest.bottomLeft(), rest.bottomRight());
}

int GridHeader::firstShown() const {
    for (int place = 0; place < count(); ++place) {
        if (!isSectionHidden(logicalIndex(place)))
            return place;
    }
    return 0;
}

int GridHeader::neededWidth(int logicalIndex) const {
    return QFontMetrics(textFont()).horizontalAdvance(model_.column(logicalIndex).header) + arrowWidth + arrowGap +
           2 * gridlook::padding + 1;
}

QSize GridHeader::sectionSizeFromContents(int logicalIndex) const {
    if (!model_.hasColumn(logicalIndex))
        return {};
    const GridModel::Column& column = model_.column(logicalIndex);
    const int beside = column.mark == FlexGrid::Mark::None ? 0 : arrowWidth + arrowGap;
    return {QFontMetrics(textFont()).horizontalAdvance(column.header) + beside + 2 * gridlook::padding + 1,
            sizeHint().height()};
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    const int place = visualIndexAt(event->position().toPoint().x());
    if (event->button() == Qt::RightButton && place >= 0 && onRightClicked)
        onRightClicked(place, event->globalPosition().toPoint());
}

void GridHeader::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

bool GridHeader::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QHeaderView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int logical = logicalIndexAt(help.pos());
    if (!model_.hasColumn(logical))
        return true;
    const QRect rect(sectionViewportPosition(logical), 0, sectionSize(logical), height());
    gridlook::showTip(viewport(), help, rect, model_.column(logical).header);
    return true;
}

} // namespace velm
