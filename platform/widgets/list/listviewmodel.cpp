#include "platform/widgets/list/listviewmodel.h"

#include <utility>

namespace velm {

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
    const int item = itemOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return items_.text(item);
    case Qt::DecorationRole: {
        const QIcon icon = picture(items_.image(item));
        return icon.isNull() ? QVariant() : icon;
    }
    case Qt::AccessibleDescriptionRole:
        return descriptions_ ? descriptions_(item) : QString();
    case FaintRole:
        return faint_ && faint_(items_.key(item));
    default:
        return {};
    }
}

QIcon ListViewModel::picture(const QString& name) const {
    if (name.isEmpty() || !images_)
        return {};
    const auto known = pictures_.constFind(name);
    return known != pictures_.constEnd() ? *known : *pictures_.insert(name, images_(name));
}

void ListViewModel::setImages(std::function<QIcon(const QString& name)> images) {
    images_ = std::move(images);
    pictures_.clear();
}

void ListViewModel::reset() {
    beginResetModel();
    told_ = items_.count();
    endResetModel();
}

void ListViewModel::came() {
    told_ = items_.count();
    endInsertRows();
}

void ListViewModel::gone() {
    told_ = items_.count();
    endRemoveRows();
}

void ListViewModel::changed(int item) {
    const QModelIndex index = indexOf(item);
    if (index.isValid())
        emit dataChanged(index, index);
}

} // namespace velm
