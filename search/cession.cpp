#include "search/cession.h"

namespace velm {

Cession::Cession(std::function<void()> evenements, std::chrono::milliseconds pas)
    : evenements_(std::move(evenements)), pas_(pas) {}

bool Cession::cede(const std::stop_token& arret) {
    if (evenements_)
        evenements_();
    commence();
    return !arret.stop_requested();
}

bool Cession::cede(Recordset& table, const std::stop_token& arret) {
    const QString index = table.index();
    const Bookmark place = table.bookmark();
    if (!cede(arret))
        return false;
    table.setIndex(index);
    if (place.valid())
        table.setBookmark(place);
    return true;
}

} // namespace velm
