#pragma once
// The drop-down entries of a tool button: an ordered collection with unique keys. Entries count from 1, 1 on top.
#include <QSet>
#include <QString>

#include <deque>
#include <functional>

namespace velm {

struct ButtonMenu {
    QString key; ///< empty, or unique in its collection
    QString text;
};

class ButtonMenus {
public:
    enum class Added {
        Yes,
        NotUnique ///< the key stands in the collection already; nothing changed
    };

    /// Inserts at an index from 1; an index outside 1 to count() appends.
    Added add(int index, const QString& key, const QString& text);
    /// Removes an entry; an index outside 1 to count() does nothing. At either end in constant time.
    void remove(int index);

    int count() const { return static_cast<int>(entries_.size()); }
    bool isEmpty() const { return entries_.empty(); }
    /// The entry of an index from 1 to count().
    const ButtonMenu& at(int index) const;
    bool contains(const QString& key) const { return keys_.contains(key); }

private:
    std::deque<ButtonMenu> entries_;
    QSet<QString> keys_;
};

} // namespace velm
