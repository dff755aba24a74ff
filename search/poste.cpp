#include "search/poste.h"

#include <QScopedValueRollback>

namespace velm {

Poste::Poste(std::function<void()> evenements, std::chrono::milliseconds pas) : cession_(std::move(evenements), pas) {}

void Poste::fait(Travail travail) {
    if (occupe_) {
        suite_ = std::move(travail);
        arret_.request_stop();
        return;
    }
    const QScopedValueRollback occupe(occupe_, true);
    for (; travail; travail = std::exchange(suite_, {})) {
        arret_ = std::stop_source();
        travail(arret_.get_token());
    }
}

void Poste::arrete() {
    suite_ = {};
    arret_.request_stop();
}

} // namespace velm
