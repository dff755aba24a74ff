#pragma once
// The vertical scroll bar of a document view: it always keeps its place, so that the measure of the lines does not
// depend on how many there are; with nothing to scroll it shows what lies around it.
#include <QScrollBar>

#include <functional>

namespace velm {

class SheetBar : public QScrollBar {
public:
    /// `beside` gives the colour at the view's right edge; it is asked while painting.
    SheetBar(std::function<QColor()> beside, QWidget* parent) : QScrollBar(parent), beside_(std::move(beside)) {}

    /// Where its thumb moves: what stands for the whole height.
    QRect groove() const;
    QColor beside() const { return beside_(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<QColor()> beside_;
};

} // namespace velm
