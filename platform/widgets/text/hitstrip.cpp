#include "platform/widgets/text/hitstrip.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/text/sheetbar.h"

#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace velm {

namespace {

constexpr int tickHeight = 2;
constexpr int currentHeight = 4;
constexpr int reach = 6; // pixels from a tick within which a click means it

} // namespace

HitStrip::HitStrip(const SheetBar& bar, QWidget* parent) : QWidget(parent), bar_(bar) {
    setCursor(Qt::ArrowCursor);
}

void HitStrip::setTicks(std::vector<float> places, int current, double height) {
    if (ticks_ == places && current_ == current && qFuzzyCompare(height_, height))
        return;
    ticks_ = std::move(places);
    current_ = current;
    height_ = height;
    update();
}

void HitStrip::setCurrent(int current) {
    if (std::exchange(current_, current) != current)
        update();
}

int HitStrip::topOf(float place) const {
    const QRect groove = bar_.groove();
    const int rows = std::max(0, std::min(groove.height(), qCeil(height_)) - tickHeight);
    return groove.top() + std::clamp(static_cast<int>(std::floor(place * float(rows))), 0, rows);
}

int HitStrip::top(std::size_t tick) const {
    return topOf(ticks_[tick]);
}

// Of thousands those that fall on one row are painted once.
void HitStrip::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QColor ground = bar_.beside();
    painter.fillRect(event->rect(), ground);
    const QColor colour = look::foundTick(ground, false);
    int painted = -1;
    for (const float place : ticks_) {
        const int top = topOf(place);
        if (top != std::exchange(painted, top))
            painter.fillRect(1, top, room - 2, tickHeight, colour);
    }
    if (current_ >= 0 && static_cast<std::size_t>(current_) < ticks_.size())
        painter.fillRect(0, top(static_cast<std::size_t>(current_)) - 1, room, currentHeight,
                         look::foundTick(ground, true));
}

void HitStrip::mousePressEvent(QMouseEvent* event) {
    const int at = event->position().toPoint().y();
    int nearest = -1;
    int least = reach + 1;
    for (std::size_t tick = 0; tick < ticks_.size(); ++tick) {
        const int away = std::abs(topOf(ticks_[tick]) + tickHeight / 2 - at);
        if (away < least) {
            least = away;
            nearest = static_cast<int>(tick);
        }
    }
    if (event->button() == Qt::LeftButton && nearest >= 0)
        emit clicked(nearest);
}

// The view behind must not take the end of a click for one of its own.
void HitStrip::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

} // namespace velm
