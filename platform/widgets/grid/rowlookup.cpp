#include "platform/widgets/grid/rowlookup.h"

#include "platform/text/letters.h"

#include <QApplication>

namespace velm {
namespace {

constexpr int lookUpPatience = 200; ///< milliseconds that a look-up may take

QString folded(const QString& text) {
    return normalisemot(upperCase(text));
}

} // namespace

int RowLookUp::typed(const QString& keys, int current, int column) {
    const bool goesOn = typedAt_.isValid() && typedAt_.elapsed() < QApplication::keyboardInputInterval();
    typedAt_.start();
    typed_ = goesOn ? typed_ + keys : keys;
    // One letter again and again walks through its rows; a longer beginning stays where it still fits.
    const bool same = typed_.count(typed_.at(0)) == typed_.size();
    return find(same ? typed_.left(1) : typed_, std::max(0, same ? current + 1 : current), column);
}

/// Asks the rows whose text begins so, from a row on and around.
int RowLookUp::find(const QString& beginning, int from, int column) const {
    const int count = model_.count();
    if (count == 0 || !model_.hasColumn(column))
        return -1;
    const int start = from >= count ? 0 : from;
    if (const GridSource* source = model_.source()) {
        if (const std::optional<int> found = source->find(column, beginning, start))
            return *found >= 0 || start == 0 ? *found : source->find(column, beginning, 0).value_or(-1);
    }
    return walk(folded(beginning), start, column);
}

int RowLookUp::walk(const QString& beginning, int from, int column) const {
    QElapsedTimer time;
    time.start();
    const int count = model_.count();
    for (int step = 0; step < count; ++step) {
        const int row = (from + step) % count;
        if (folded(model_.text(row, column).left(beginning.size())) == beginning)
            return row;
        if (step % 256 == 255 && time.elapsed() > lookUpPatience)
            return -1;
    }
    return -1;
}

} // namespace velm
