#include "platform/widgets/gridlook.h"

#include "platform/widgets/look.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace velm::gridlook {

using namespace Qt::Literals::StringLiterals;

namespace {

QColor mixed(const QColor& a, const QColor& b, double part) {
    const auto mix = [part](int x, int y) { return qRound(x + (y - x) * part); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

} // namespace

int rowHeight(const QFontMetrics& metrics) {
    const int height = metrics.height() + 2 * look::grid;
    return height + height % 2;
}

QColor hairline(const QPalette& palette) {
    return mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.10);
}

QPalette unfocused(const QPalette& palette) {
    QPalette quiet = palette;
    quiet.setColor(QPalette::Highlight, mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.15));
    quiet.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return quiet;
}

QRect textRect(const QRect& cell, int textWidth) {
    const int free = cell.width() - textWidth;
    const int side = free >= 2 * padding ? padding : qBound(narrowPadding, free / 2, padding);
    return cell.adjusted(side, 0, -side, 0);
}

void showTip(QWidget* widget, const QHelpEvent& event, const QRect& cell, const QString& text, bool elided) {
    if (elided) {
        QToolTip::showText(event.globalPos(), u"<qt>"_s + text.toHtmlEscaped() + u"</qt>"_s, widget, cell);
    } else {
        QToolTip::hideText();
    }
}

} // namespace velm::gridlook
