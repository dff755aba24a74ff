#pragma once
// Choosing in a list or a tree where one entry is chosen, or none.
#include <QItemSelectionModel>

namespace velm {

/// What a click or a key on an entry does to the selection, where the view would do `wanted`. It takes nothing away,
/// neither with the control key nor beside all entries: the view's own would leave a current entry that does not look
/// chosen, while the commands still mean it.
inline QItemSelectionModel::SelectionFlags chosenAlone(const QModelIndex& entry,
                                                       QItemSelectionModel::SelectionFlags wanted) {
    if (!entry.isValid())
        return QItemSelectionModel::NoUpdate;
    if (!wanted.testFlag(QItemSelectionModel::Deselect))
        return wanted;
    wanted.setFlag(QItemSelectionModel::Deselect, false);
    return wanted | QItemSelectionModel::ClearAndSelect;
}

} // namespace velm
