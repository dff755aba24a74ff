#pragma once
// The entries of a list control, without the control: unique keys, texts, pictures. Entries count from 1 in the order
// in which they stand; 0 is none. Views watch through ListObserver.
#include <QSet>
#include <QString>

#include <vector>

namespace velm {

class ListObserver {
public:
    virtual ~ListObserver() = default;
    virtual void listReset() = 0; ///< all entries are others; told when redraw comes back on, too
    virtual void itemComes(int index) = 0;
    virtual void itemCame() = 0;
    virtual void itemGoes(int index) = 0;
    virtual void itemGone() = 0;
    virtual void itemChanged(int index) = 0;  ///< its text
    virtual void itemSelected(int index) = 0; ///< by the program; 0 for none
};

class ListItems {
public:
    ListItems() = default;
    ListItems(const ListItems&) = delete;
    ListItems& operator=(const ListItems&) = delete;

    /// Adds an entry that comes to stand at `index`, from 1 to count() + 1; 0 for the end. False, with nothing changed,
    /// when the key is in use.
    bool add(int index, const QString& key, const QString& text, const QString& image);
    void remove(int index);
    void clear();

    int count() const { return static_cast<int>(items_.size()); }
    bool contains(int index) const { return index >= 1 && index <= count(); }
    /// Index of a key, 0 for none; looks through the list.
    int indexOf(const QString& key) const;

    // ---- of an entry; one that does not stand has empty texts
    const QString& key(int index) const { return at(index).key; }
    const QString& text(int index) const { return at(index).text; }
    const QString& image(int index) const { return at(index).image; }

    /// Another key; false, with nothing changed, when it is in use.
    bool setKey(int index, const QString& key);
    void setText(int index, const QString& text);

    /// The selected entry stays selected when others come and go; where it goes itself, none is.
    int selected() const { return selected_; }
    void select(int index);
    /// What the view tells of the user's doing: kept, not told back.
    void noteSelected(int index) { selected_ = contains(index) ? index : 0; }

    /// While off, the observer hears of nothing; when it comes back on, of a reset if anything changed.
    void setRedraw(bool on);
    bool redraw() const { return redraw_; }

    void setObserver(ListObserver* observer) { observer_ = observer; }

private:
    struct Item {
        QString key;
        QString text;
        QString image;
    };
    static const Item& none();
    const Item& at(int index) const { return contains(index) ? items_[static_cast<std::size_t>(index - 1)] : none(); }
    /// Who is to be told now; nobody while redraw is off, where it is noted instead.
    ListObserver* watcher();

    std::vector<Item> items_;
    QSet<QString> keys_; ///< in use
    int selected_ = 0;
    bool redraw_ = true;
    bool untold_ = false;
    ListObserver* observer_ = nullptr;
};

} // namespace velm
