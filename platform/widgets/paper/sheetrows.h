#pragma once
// Where the sheets of a job lie beside and below one another: as many in a row as there is room for. Lengths are
// pixels.
#include <QRect>
#include <QSize>

namespace velm {

class SheetRows {
public:
    enum class Fit { Page, Width, None };

    static constexpr int gap = 16; ///< around a sheet
    static constexpr double least = 0.1;
    static constexpr double most = 4;

    /// A sheet at the size of 100 %, and how many there are.
    void setSheets(QSizeF sheet, int count);
    void setRoom(QSize room);
    /// `zoom`: used where nothing is fitted; within bounds.
    void setFit(Fit fit, double zoom);

    int count() const { return count_; }
    Fit fit() const { return fit_; }
    double zoom() const { return zoom_; }
    int columns() const { return columns_; }
    /// Of all sheets with what lies around them.
    QSize size() const;
    /// The place of a sheet from 0, from the corner of all.
    QRect sheet(int number) const;
    /// The sheets that touch a stretch from top to bottom: first, and the one behind the last.
    std::pair<int, int> between(int top, int bottom) const;

private:
    void place();
    int rowHeight() const { return sheet_.height() + gap; }

    QSizeF whole_{1, 1};
    QSize room_;
    QSize sheet_{1, 1}; ///< at this zoom
    Fit fit_ = Fit::Page;
    double wanted_ = 1;
    double zoom_ = 1;
    int count_ = 0;
    int columns_ = 1;
};

} // namespace velm
