#pragma once
// The inside of a grid: its model, its view, and what its parts ask of both.
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/grid/gridmodel.h"
#include "platform/widgets/grid/gridview.h"

namespace velm {

struct FlexGrid::Private {
    explicit Private(FlexGrid* grid) : model(grid), view(new GridView(model, grid)) {}

    bool hasPlace(int place) const { return place >= 0 && place < model.columnCount(); }
    int logical(int place) const { return view->logicalAt(place); }
    GridModel::Column& column(int place) { return model.column(logical(place)); }
    std::vector<int> order() const {
        std::vector<int> columns;
        for (int place = 0; place < model.columnCount(); ++place)
            columns.push_back(logical(place));
        return columns;
    }
    bool isStretched(int column) const {
        return stretched == column && !view->header().isSectionHidden(column) && view->header().sectionSize(column) > 0;
    }
    void showColumn(int column);
    void showColumns();
    /// The selected rows by their cells; with the hidden columns or without.
    std::vector<QStringList> selected(bool hidden) const;
    void clampSelection(bool reveal = false) { view->select(view->anchor(), view->end(), reveal); }

    GridModel model;
    GridView* view;
    int stretched = -1;     ///< logical column
    bool arranging = false; ///< the program, not the user, changes the header
    bool goHome = false;    ///< the rows are others: show the first one
};

} // namespace velm
