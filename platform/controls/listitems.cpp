#include "platform/controls/listitems.h"

#include <utility>

namespace velm {

const ListItems::Item& ListItems::none() {
    static const Item item;
    return item;
}

ListObserver* ListItems::watcher() {
    if (redraw_)
        return observer_;
    untold_ = true;
    return nullptr;
}

bool ListItems::add(int index, const QString& key, const QString& text, const QString& image) {
    if (keys_.contains(key))
        return false;
    const int place = index >= 1 && index <= count() ? index : count() + 1;
    ListObserver* const told = watcher();
    if (told)
        told->itemComes(place);
    keys_.insert(key);
    items_.insert(items_.begin() + (place - 1), Item{key, text, image});
    if (selected_ >= place)
        ++selected_;
    if (told)
        told->itemCame();
    return true;
}

void ListItems::remove(int index) {
    if (!contains(index))
        return;
    ListObserver* const told = watcher();
    if (told)
        told->itemGoes(index);
    keys_.remove(key(index));
    items_.erase(items_.begin() + (index - 1));
    if (selected_ == index)
        selected_ = 0;
    else if (selected_ > index)
        --selected_;
    if (told)
        told->itemGone();
}

void ListItems::clear() {
    items_.clear();
    keys_.clear();
    selected_ = 0;
    if (ListObserver* const told = watcher())
        told->listReset();
}

int ListItems::indexOf(const QString& key) const {
    if (!keys_.contains(key))
        return 0;
    int index = 1;
    while (this->key(index) != key)
        ++index;
    return index;
}

bool ListItems::setKey(int index, const QString& key) {
    if (!contains(index))
        return false;
    QString& known = items_[static_cast<std::size_t>(index - 1)].key;
    if (known == key)
        return true;
    if (keys_.contains(key))
        return false;
    keys_.remove(known);
    keys_.insert(key);
    known = key;
    return true;
}

void ListItems::setText(int index, const QString& text) {
    if (!contains(index) || this->text(index) == text)
        return;
    items_[static_cast<std::size_t>(index - 1)].text = text;
    if (ListObserver* const told = watcher())
        told->itemChanged(index);
}

void ListItems::select(int index) {
    noteSelected(index);
    if (ListObserver* const told = watcher())
        told->itemSelected(selected_);
}

void ListItems::setRedraw(bool on) {
    redraw_ = on;
    if (on && std::exchange(untold_, false) && observer_)
        observer_->listReset();
}

} // namespace velm
