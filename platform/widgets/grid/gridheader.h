#pragma once
// The header row of a grid: quiet, semi-bold, with a small arrow at the sorted column.
#include <QHeaderView>

#include <functional>

namespace velm {

class GridModel;

class GridHeader : public QHeaderView {
public:
    GridHeader(const GridModel& model, QWidget* parent);

    /// What is told of the mouse; columns count as they stand on the screen.
    std::function<void(int place)> onClicked;
    std::function<void(int place)> onDoubleClicked;
    std::function<void(int place, const QPoint& global)> onRightClicked;

    /// Text size in points, 0 for that of the grid.
    void setPoints(int points);
    QFont textFont() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    QSize sectionSizeFromContents(int logicalIndex) const override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    struct Parts;
    Parts partsOf(const QRect& rect, int logicalIndex) const;

    const GridModel& model_;
    int points_ = 0;
};

} // namespace velm
