#pragma once
// A tick for each place that was found in the text, beside the scroll bar and as high as its groove. The room is always
// kept, so that nothing moves when something is found.
#include <QWidget>

#include <vector>

namespace velm {

class SheetBar;

class HitStrip final : public QWidget {
    Q_OBJECT

public:
    /// The bar outlives it.
    HitStrip(const SheetBar& bar, QWidget* parent);

    static constexpr int room = 7; ///< pixels of width
    /// Places in the whole height, from 0 to 1 and ascending, the one that is shown now, or -1, and the pixels of that
    /// height: ticks of a text that is seen whole stand beside their places.
    void setTicks(std::vector<float> places, int current, double height);
    void setCurrent(int current);
    const std::vector<float>& ticks() const { return ticks_; }
    /// The upper edge of a tick, in the strip's own pixels.
    int top(std::size_t tick) const;

signals:
    void clicked(int tick);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int topOf(float place) const;

    const SheetBar& bar_;
    double height_ = 0;
    std::vector<float> ticks_;
    int current_ = -1;
};

} // namespace velm
