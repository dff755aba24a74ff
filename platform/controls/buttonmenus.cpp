#include "platform/controls/buttonmenus.h"

namespace velm {

ButtonMenus::Added ButtonMenus::add(int index, const QString& key, const QString& text) {
    if (!key.isEmpty() && keys_.contains(key))
        return Added::NotUnique;
    const bool inside = index >= 1 && index <= count();
    entries_.insert(inside ? entries_.begin() + (index - 1) : entries_.end(), {key, text});
    if (!key.isEmpty())
        keys_.insert(key);
    return Added::Yes;
}

void ButtonMenus::remove(int index) {
    if (index < 1 || index > count())
        return;
    const auto entry = entries_.begin() + (index - 1);
    keys_.remove(entry->key);
    entries_.erase(entry);
}

const ButtonMenu& ButtonMenus::at(int index) const {
    return entries_.at(static_cast<std::size_t>(index - 1));
}

} // namespace velm
