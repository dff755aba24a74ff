#pragma once
// The list of rows that all lists of the program use.
//
// Row 0 is the fixed header; rows of data count from 1, columns from 0 *as they stand on the screen*: a column that the
// user drags elsewhere takes its texts, width and column data with it, and is addressed by its new place. Rows lie in
// memory (addItem, setText) or come from a source that is asked when they are painted (setSource). Widths are twips.
//
// Offered: rows and cells; column data, widths, moves; sort with marks; merging of equal neighbours; selection of a
// range of rows; the clip; tool tips of cells that do not fit; Redraw. Keyboard: arrows, Page, Home, End move, with
// Shift extend; Ctrl+A selects all; Ctrl+C copies what is seen of the selected rows as a table, in text and HTML, even
// where a menu has that key; typing looks a row up by the beginning of the sorted column, else of the first that is
// shown; Return activates. A press on one of several selected rows keeps them for the time of a double click, which is
// told with all of them selected.
#include "platform/controls/gridsource.h"

#include <QIcon>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

class QTableView;

namespace velm {

class FlexGrid : public QWidget {
    Q_OBJECT

public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    /// The grid that has the focus, or holds what has it; null for none.
    static FlexGrid* withFocus();

    enum class Align { Left, Centre, Right };
    enum class Mark { None, Ascending, Descending };
    using Picture = std::function<QIcon(const QString& text)>;
    using Wording = std::function<QString(const QString& text)>;

    // ---- columns
    void setCols(int count);
    int cols() const;
    /// A width of 0 hides the column.
    void setColWidth(int col, int twips);
    int colWidth(int col) const;
    /// Of the cells and of the header. Cells show what a wording makes of their texts; all else goes by the texts.
    void setColAlignment(int col, Align align, Wording wording = {});
    /// A number that the owner keeps with a column; it moves with it.
    void setColData(int col, int number);
    int colData(int col) const;
    /// Moves a column to another place.
    void setColPosition(int col, int place);
    /// Cells of the column are painted as pictures: `picture` is asked with the text of each cell that is seen, and
    /// must be quick; where it gives none, and without it, the text is painted. Sort, clip, merging, look-up and tool
    /// tips know the text alone. With another column named as `before`, the pictures stand before the texts of that
    /// one, until columns are added or removed, and the cells of `col` show their texts.
    void setColPicture(int col, Picture picture, int before = -1);
    /// Lets the user drag columns by their header cells.
    void setColumnsMovable(bool movable);
    /// One column takes the width that the others leave; -1 for none.
    void setStretchCol(int col);
    /// Columns with a weight above 0 share, by their weights, what the others leave of the list's width: whatever their
    /// own, which colWidth() goes on to give. A held one keeps its own; the user's hand on a column's edge holds it.
    void setColWeight(int col, int weight);
    void setColHeld(int col, bool held);
    /// From now on none of them takes more than its header and its texts need, as these are now, as long as another
    /// one needs it; what none needs has the heaviest.
    void fitShares();
    /// Where columns with a weight have less than this together (0: never), the heaviest column stands alone, over the
    /// whole width, and the texts of the others with a weight under its own in a quiet second line. Cells are not
    /// merged then.
    void setNarrowBelow(int pixels);
    bool isNarrow() const; ///< it is shown so
    /// A sort mark at its end is left out. With the widest text of its cells told, the column is shown wide enough for
    /// both, whatever its own width, until it is held.
    void setHeader(int col, const QString& text, const QString& widest = {});
    QString header(int col) const; ///< without its sort mark
    /// As it stands in the cell: the header, then ">" for the column sorted ascending, "<" descending.
    QString headerCell(int col) const;
    /// What stands in the place of the rows while there are none.
    void setEmptyText(const QString& text);
    QString emptyText() const;

    // ---- rows. Counts include row 0: an empty grid has one row. Rows of a source are neither added, removed nor
    // changed.
    int rows() const;
    /// Cuts or adds empty rows at the end; 1 empties the grid. With a source, only 1 has a meaning: it drops the
    /// source.
    void setRows(int count);
    /// Appends a row from texts parted by tabs; the order is that of the columns as they stand.
    void addItem(const QString& cells);
    /// The same for many rows at once: one update of the view.
    void addItems(const std::vector<QStringList>& rows);
    /// The rows below move up; the selection stays at its place.
    void removeItem(int row);
    QString text(int row, int col) const; ///< row 0: the header cell; outside: the empty text
    /// In row 0, a mark at the end of the text sets the sort mark.
    void setText(int row, int col, const QString& text);
    /// Shows the rows of a source, which the grid takes over; null drops it. When their number changes, Redraw off and
    /// on tells the grid.
    void setSource(std::unique_ptr<GridSource> source);
    GridSource* source() const;

    // ---- order
    /// Sorts by the text of a column (French order, case and accents last; equal rows keep their order) and puts the
    /// mark on its header, and on no other. The selected row stays selected where it goes. Nothing happens, and false
    /// comes back, when a source cannot sort so.
    bool sort(int col, bool descending);
    Mark sortMark(int col) const;
    /// Puts or takes the mark alone.
    void setSortMark(int col, Mark mark);
    /// Equal neighbours of a column are shown as one cell, within what equals in the columns left of it.
    void setMergeCells(bool merge);
    bool mergeCells() const;
    /// Whether a cell is shown as one with the cell above it.
    bool joinsAbove(int row, int col) const;

    // ---- selection: the rows between row() and rowSel(); 0 when there is none. Row numbers beyond the last are it.
    int row() const;
    int rowSel() const;
    void setRow(int row); ///< also rowSel; scrolls it into view
    void setRowSel(int row);
    void selectAll();
    /// First and last selected rows; 0, 0 when there is none.
    std::pair<int, int> selectedRows() const;
    /// Selected cells of all columns, hidden ones too: tabs between columns, CR between rows.
    QString clip() const;
    /// Puts what is seen of the selected rows on the clipboard, as Ctrl+C does.
    void copySelection();
    /// What Ctrl+C does instead.
    void setCopy(std::function<void()> copy);
    int topRow() const; ///< the first data row that is seen
    void setTopRow(int row);
    /// Scrolls until a row can be seen: one out of sight comes to stand in the middle.
    void bringIntoSight(int row);
    /// Shows one row as the one that is looked at elsewhere: heavier, in the accent's ink and tint. It is neither
    /// selected nor scrolled to. 0 for none, as after a sort or with another source.
    void setMarked(int row);
    int marked() const;

    /// Off during fills: one repaint when it comes back on.
    void setRedraw(bool on);
    bool redraw() const;

    /// The inner view, for focus and tests.
    QTableView* view() const;

signals:
    void clicked(int row, int col);                                    ///< left button; row 0 is the header
    void doubleClicked(int row, int col);                              ///< left button; row 0 is the header
    void rightClicked(int row, int col, const QPoint& globalPosition); ///< also by the context-menu key
    void activated(int row);                                           ///< Return on a row
    void deletePressed();
    void columnMoved(int from, int to); ///< by the user
    void narrowChanged();               ///< see setNarrowBelow()

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showFirst();

    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
