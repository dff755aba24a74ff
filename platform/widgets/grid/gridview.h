#pragma once
// The view inside a grid: turns mouse and keyboard into a selection that is always one range of rows, and shows it.
// Rows count from 0 here, -1 is none; columns ("places") as they stand on the screen.
#include "platform/widgets/grid/gridheader.h"
#include "platform/widgets/grid/gridmodel.h"
#include "platform/widgets/grid/gridmouse.h"
#include "platform/widgets/grid/mergedcells.h"
#include "platform/widgets/grid/rowlookup.h"

#include <QTableView>

#include <functional>

namespace velm {

class GridCells;

class GridView : public QTableView {
public:
    GridView(GridModel& model, QWidget* parent);

    std::function<void(int row, int place)> onClicked;
    std::function<void(int row, int place)> onDoubleClicked;
    std::function<void(int row, int place, const QPoint& global)> onRightClicked;
    std::function<void(int row)> onActivated;
    std::function<void()> onDelete;
    std::function<void()> onCopy;
    std::function<void()> onResized; ///< before the rows are laid out

    GridHeader& header() const { return *header_; }
    const GridModel& rows() const { return model_; }
    int placeOf(int logical) const { return header_->visualIndex(logical); }
    int logicalAt(int place) const { return header_->logicalIndex(place); }
    int placeAt(int x) const { return header_->visualIndexAt(x); }
    /// Row height and header font follow the view's font.
    void takeFont();
    /// Rows of two lines: under the text of the one column that is seen those of these columns. None: of one line.
    void setSecondLine(std::vector<int> columns);
    const std::vector<int>& secondLine() const { return secondLine_; }
    void setEmptyText(const QString& text);
    const QString& emptyText() const { return emptyText_; }

    // ---- selection
    int anchor() const { return anchor_; }
    int end() const { return end_; }
    bool isSelected(int row) const { return row >= std::min(anchor_, end_) && row <= std::max(anchor_, end_); }
    /// The range from one row to another; `reveal` scrolls the second one into view.
    void select(int anchor, int end, bool reveal);
    /// Brings the selection model in line, after the model was reset.
    void restoreSelection();
    /// A change of the model that moves rows: the selection is set anew behind it.
    template <typename Change>
    void whileChanging(Change change) {
        const bool before = std::exchange(syncing_, true);
        change();
        syncing_ = before;
    }
    void selectAll() override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    int topRow() const;
    void setTopRow(int row);
    void bringIntoSight(int row);
    /// The row that is looked at elsewhere.
    void setMarked(int row);
    int marked() const { return marked_; }

    // ---- merging
    void setMerging(bool merging);
    bool merging() const { return merging_; }
    /// Whether a cell is shown as one with the cell above it.
    bool joinsAbove(int row, int place) const {
        const int joined = merged_.joined(row);
        return joined > 0 && merged_.rank(place) < joined;
    }
    /// Another column bears the sort mark, or none.
    void sortingChanged();
    /// Whether a cell is the first one of its merged group that can be seen: the one that shows the text.
    bool showsText(int row, int place) const { return row == topRow() || !joinsAbove(row, place); }
    QRect cellRect(int row, int place) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& search) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    int pageRows() const;
    int lookUpPlace() const;
    bool moveKey(const QKeyEvent& event);
    void moveTo(int row, bool extend);
    void adoptSelection();
    void revealEnd();
    void paintEmpty();

    GridModel& model_;
    GridHeader* header_;
    GridCells* cells_;
    MergedCells merged_;
    GridMouse mouse_;
    RowLookUp lookUp_;
    std::vector<int> secondLine_;
    QString emptyText_;
    bool merging_ = false;
    int anchor_ = -1;
    int end_ = -1;
    int marked_ = -1;
    bool syncing_ = false;
    bool revealWhenShown_ = false;
};

} // namespace velm
