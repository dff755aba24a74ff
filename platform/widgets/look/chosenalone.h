#pragma once
// Choosing in a list or a tree where one entry is chosen, or none.
#include <QItemSelectionModel>

namespace velm {

/// What a click or a key does to the selection: with the control key, too, it takes none away. The view's own would
/// leave a current entry that does not look chosen, while the commands still mean it.
inline QItemSelectionModel::SelectionFlags chosenAlone(QItemSelectionModel::SelectionFlags wanted) {
    if (!wanted.testFlag(QItemSelectionModel::Deselect))
        return wanted;
    wanted.setFlag(QItemSelectionModel::Deselect, false);
    return wanted | QItemSelectionModel::ClearAndSelect;
}

} // namespace velm
