#include "platform/widgets/paper/sheetrows.h"

#include <algorithm>
#include <cmath>

namespace velm {

void SheetRows::setSheets(QSizeF sheet, int count) {
    whole_ = sheet.expandedTo({1, 1});
    count_ = std::max(0, count);
    place();
}

void SheetRows::setRoom(QSize room) {
    room_ = room;
    place();
}

void SheetRows::setFit(Fit fit, double zoom) {
    fit_ = fit;
    wanted_ = zoom;
    place();
}

void SheetRows::place() {
    const double across = std::max(1, room_.width() - 2 * gap) / whole_.width();
    const double down = std::max(1, room_.height() - 2 * gap) / whole_.height();
    const double fitted = fit_ == Fit::Page ? std::min(across, down) : across;
    zoom_ = std::clamp(fit_ == Fit::None ? wanted_ : fitted, least, most);
    sheet_ = (whole_ * zoom_).toSize().expandedTo({1, 1});
    columns_ = std::clamp((room_.width() - gap) / (sheet_.width() + gap), 1, std::max(1, count_));
    if (fit_ == Fit::Width)
        columns_ = 1;
}

QSize SheetRows::size() const {
    const int rows = (count_ + columns_ - 1) / columns_;
    return {gap + columns_ * (sheet_.width() + gap), gap + rows * rowHeight()};
}

QRect SheetRows::sheet(int number) const {
    const int left = std::max(0, (room_.width() - size().width()) / 2);
    const QPoint corner(left + gap + number % columns_ * (sheet_.width() + gap), gap + number / columns_ * rowHeight());
    return {corner, sheet_};
}

std::pair<int, int> SheetRows::between(int top, int bottom) const {
    const int first = std::max(0, (top - gap) / rowHeight());
    const int last = std::max(0, (bottom - gap) / rowHeight());
    return {std::min(count_, first * columns_), std::min(count_, (last + 1) * columns_)};
}

} // namespace velm
