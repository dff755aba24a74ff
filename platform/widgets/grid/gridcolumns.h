#pragma once
// The columns of a grid as they stand on the screen: places, widths, headers and their marks. The program and the user
// both arrange them; what the user does with the mouse is told.
#include "platform/widgets/grid/gridmodel.h"
#include "platform/widgets/grid/gridview.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace velm {

class GridColumns {
public:
    using Align = FlexGrid::Align;
    using Mark = FlexGrid::Mark;

    /// Both outlive it.
    GridColumns(GridModel& model, GridView& view);

    /// The user has moved a column to another place.
    std::function<void(int from, int to)> onMoved;

    int count() const { return model_.columnCount(); }
    bool has(int place) const { return place >= 0 && place < count(); }
    /// Those of the model, as they stand.
    std::vector<int> order() const;
    /// The cells of the rows from one to another, as the columns stand; with the hidden ones or without. None from -1.
    std::vector<QStringList> cells(int first, int last, bool hidden) const;
    /// By its own width: in a narrow list others are not seen either.
    bool isHidden(int place) const { return column(place).twips <= 0; }
    /// New ones are empty, at the right; the others keep what they have.
    void setCount(int count);

    /// See FlexGrid::setNarrowBelow().
    void setNarrowBelow(int pixels);
    bool narrow() const { return alone_ >= 0; }
    std::function<void()> onNarrow; ///< it has become so, or is no more

    // ---- by place; one that there is not has nothing and takes nothing
    /// Twips; 0 hides.
    void setWidth(int place, int twips);
    int width(int place) const;
    /// Takes the width that the others leave; -1 for none.
    void setStretched(int place);
    void setWeight(int place, int weight);
    void setHeld(int place, bool held);
    /// See FlexGrid::fitShares().
    void fitShares();
    void move(int place, int to);
    void setAlignment(int place, Align align, FlexGrid::Wording wording); ///< of the cells and of the header
    /// See FlexGrid::setColPicture().
    void setPicture(int place, FlexGrid::Picture picture, int before);
    void setData(int place, int number);
    int data(int place) const;
    /// See FlexGrid::setHeader().
    void setHeader(int place, const QString& text, const QString& widest);
    QString header(int place) const; ///< without its mark
    void setMark(int place, Mark mark);
    Mark mark(int place) const;
    /// The header with its mark behind it.
    void setHeaderCell(int place, const QString& text);
    QString headerCell(int place) const;

private:
    int logical(int place) const { return view_.logicalAt(place); }
    GridModel::Column& column(int place) { return model_.column(logical(place)); }
    const GridModel::Column& column(int place) const { return std::as_const(model_).column(logical(place)); }
    bool isStretched(int column) const;
    bool isShared(int column) const;
    int heaviest() const;
    void show(int column);
    int shownWidth(int column) const;
    void showAll();
    void arrange();
    void share(int fromPlace);
    bool isNarrow() const;
    int needOf(int column) const;
    void resized(int column, int size);

    GridModel& model_;
    GridView& view_;
    int stretched_ = -1; ///< column of the model
    int narrowBelow_ = 0;
    int alone_ = -1;         ///< the one column that a narrow list shows
    bool arranging_ = false; ///< the program, not the user, changes the header
};

} // namespace velm
