#include "search/cession.h"

namespace velm {

Cession::Cession(std::function<void()> evenements, std::chrono::milliseconds pas)
    : evenements_(std::move(evenements)), pas_(pas) {}

bool Cession::cede(const bool& active) {
    if (evenements_)
        evenements_();
    commence();
    return active;
}

bool Cession::cede(Recordset& table, const bool& active) {
    const QString index = table.index();
    const Bookmark place = table.bookmark();
    if (!cede(active))
        return false;
    table.setIndex(index);
    if (place.valid())
        table.setBookmark(place);
    return true;
}

} // namespace velm
