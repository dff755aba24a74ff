#include "platform/widgets/grid/gridlook.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <QWidget>

namespace velm::gridlook {

int rowHeight(const QFontMetrics& metrics, int lines) {
    const int height = lines * metrics.height() + 2 * look::grid + 1;
    return height + height % 2;
}

int iconEdge(const QFontMetrics& metrics) {
    constexpr int usual = 16;
    return std::max(usual, metrics.height() / look::grid * look::grid);
}

QColor hairline(const QPalette& palette) {
    return look::mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.10);
}

QPalette unfocused(const QPalette& palette) {
    QPalette quiet = palette;
    quiet.setColor(QPalette::Highlight,
                   look::mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.15));
    quiet.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return quiet;
}

void paintUnfocused(QPainter& painter, const QRect& row, const QPalette& palette) {
    painter.fillRect(row.left(), row.top(), row.width(), 1, look::edge(palette));
    painter.fillRect(row.left(), row.bottom(), row.width(), 1, look::edge(palette));
}

QRect textRect(const QRect& cell) {
    const int side = cell.width() < 6 * padding ? narrowPadding : padding;
    return cell.adjusted(side, 0, -side, 0);
}

void paintChevron(QPainter& painter, const QPointF& centre, Point point, const QColor& colour) {
    constexpr double half = chevronWidth / 2.0;
    constexpr double stroke = 1.6;
    const double turn = point == Point::Up ? 0 : point == Point::Right ? 90 : 180;
    QPainterPath path(QPointF(-half, half / 2));
    path.lineTo(0, -half / 2);
    path.lineTo(half, half / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(centre);
    painter.rotate(turn);
    painter.drawPath(path);
    painter.restore();
}

void showTip(QWidget* widget, const QHelpEvent& event, const QRect& cell, const QString& text) {
    QToolTip::showText(event.globalPos(), plainTip(text), widget, cell);
}

} // namespace velm::gridlook
