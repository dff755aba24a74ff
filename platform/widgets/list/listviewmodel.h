#pragma once
// ListItems as a view of Qt sees them.
#include "platform/controls/listitems.h"

#include <QAbstractListModel>
#include <QHash>
#include <QIcon>

#include <functional>
#include <utility>

namespace velm {

class ListViewModel : public QAbstractListModel {
public:
    static constexpr int FaintRole = Qt::UserRole;

    ListViewModel(const ListItems& items, QObject* parent) : QAbstractListModel(parent), items_(items) {}

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : told_; }
    QVariant data(const QModelIndex& index, int role) const override;

    QModelIndex indexOf(int item) const { return item >= 1 && item <= told_ ? index(item - 1, 0) : QModelIndex(); }
    static int itemOf(const QModelIndex& index) { return index.isValid() ? index.row() + 1 : 0; }
    void setImages(std::function<QIcon(const QString& name)> images);
    void setFaint(std::function<bool(const QString& key)> faint) { faint_ = std::move(faint); }
    /// What is said of an entry to who cannot see it, besides its text.
    void setDescriptions(std::function<QString(int item)> descriptions) { descriptions_ = std::move(descriptions); }

    // ---- what happened to the entries
    void reset();
    void comes(int item) { beginInsertRows({}, item - 1, item - 1); }
    void came();
    void goes(int item) { beginRemoveRows({}, item - 1, item - 1); }
    void gone();
    void changed(int item);

private:
    QIcon picture(const QString& name) const;

    const ListItems& items_;
    int told_ = 0;
    std::function<QIcon(const QString& name)> images_;
    std::function<bool(const QString& key)> faint_;
    std::function<QString(int item)> descriptions_;
    mutable QHash<QString, QIcon> pictures_;
};

} // namespace velm
