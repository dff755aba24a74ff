#pragma once
// The header row of a grid: quiet, semi-bold, on the edge of the cells below, with a small arrow at the right of the
// sorted column.
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

    QFont textFont() const;
    QSize sizeHint() const override;
    /// The place of the first column that is seen; 0 for none.
    int firstShown() const;
    /// At which neither the header of a column nor its sort mark is cut.
    int neededWidth(int logicalIndex) const;

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
};

} // namespace velm
