#pragma once
// Finds a row of a grid by typing the beginning of its text. Rows count from 0, -1 is none.
#include "platform/widgets/grid/gridmodel.h"

#include <QElapsedTimer>

namespace velm {

class RowLookUp {
public:
    /// The model outlives it.
    explicit RowLookUp(const GridModel& model) : model_(model) {}

    /// The row that is meant by what was typed, together with what was typed just before; `current` is where one
    /// stands, `column` one of the model's.
    int typed(const QString& keys, int current, int column);

private:
    int find(const QString& beginning, int from, int column) const;
    int walk(const QString& folded, int from, int column) const;

    const GridModel& model_;
    QString typed_;
    QElapsedTimer typedAt_;
};

} // namespace velm
