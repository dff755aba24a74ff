#pragma once
// How a ListView follows its entries.
#include "platform/widgets/list/listview.h"
#include "platform/widgets/list/listviewmodel.h"
#include "platform/widgets/look/entryhands.h"

#include <QScopedValueRollback>

namespace velm {

/// Brings what the program does to the entries into the view, and tells it from what the user does.
class ListView::Watch final : public ListObserver {
public:
    explicit Watch(ListView& owner)
        : view(owner), model(owner.items_, &owner), delegate(&owner),
          hands(owner, {.at = [this](const QPoint& at) { return view.itemAt(at); },
                        .labelPlace =
                            [this](int item) {
                                const QRect cell = view.itemPlace(item);
                                return cell.isValid() ? delegate.wordsPlace(cell, view.fontMetrics()) : QRect();
                            },
                        .label = [this](int item) { return view.items_.text(item); },
                        .setLabel = [this](int item, const QString& text) { view.items_.setText(item, text); },
                        .selected = [this] { return view.items_.selected(); }}) {}

    void listReset() override {
        {
            const QScopedValueRollback guard(program, true);
            hands.renumber(0);
            measured = false;
            model.reset();
            showSelected();
        }
        hands.tellGone();
    }
    void itemComes(int index) override {
        place = index;
        model.comes(index);
    }
    void itemCame() override {
        const QScopedValueRollback guard(program, true);
        // A longer text may need wider columns.
        measured = false;
        if (hands.edited() >= place)
            hands.renumber(hands.edited() + 1);
        model.came();
    }
    void itemGoes(int index) override {
        const QScopedValueRollback guard(program, true);
        place = index;
        if (hands.edited() == index)
            hands.renumber(0);
        model.goes(index);
    }
    void itemGone() override {
        {
            const QScopedValueRollback guard(program, true);
            if (hands.edited() > place)
                hands.renumber(hands.edited() - 1);
            model.gone();
            showSelected();
        }
        hands.tellGone();
    }
    void itemChanged(int index) override {
        measured = false;
        model.changed(index);
        view.scheduleDelayedItemsLayout();
    }
    void itemSelected(int) override {
        const QScopedValueRollback guard(program, true);
        showSelected();
        view.ensureVisible(view.items_.selected());
    }
    void showSelected() {
        const QModelIndex index = model.indexOf(view.items_.selected());
        if (index.isValid())
            view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        else
            view.selectionModel()->clear();
    }

    ListView& view;
    ListViewModel model;
    ListDelegate delegate;
    EntryHands hands;
    bool program = false;  ///< the program is at work, not the user
    bool doubled = false;  ///< the release that follows ends a double click
    bool measured = false; ///< the cells are as wide as the texts want
    int place = 0;         ///< where an entry comes or goes
};

} // namespace velm
