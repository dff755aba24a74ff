#include "document/ui/contextetextes.h"

#include "core/texte.h"
#include "platform/base/memory.h"

namespace velm {

bool ContexteTextes::remplit(const std::function<void()>& travail) const {
    const bool rempli = withinMemory(travail);
    if (!rempli)
        ditsansmemoire();
    return rempli;
}

void ContexteTextes::ditsansmemoire() const {
    constexpr auto sansmemoire = Texte::ListeIncomplete;
    voisinage.dit(texte(sansmemoire));
}

} // namespace velm
