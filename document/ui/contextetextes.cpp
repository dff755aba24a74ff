#include "document/ui/contextetextes.h"

#include "platform/base/memory.h"

namespace velm {

bool ContexteTextes::remplit(const std::function<void()>& travail) const {
    const bool rempli = withinMemory(travail);
    if (!rempli)
        ditsansmemoire();
    return rempli;
}

void ContexteTextes::ditsansmemoire() const {
    constexpr int sansmemoire = 9567;
    voisinage.dit(texte(sansmemoire));
}

} // namespace velm
