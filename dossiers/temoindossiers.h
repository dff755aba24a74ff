#pragma once
// Who hears what becomes of the rows of the store, so that it can be taken back.
#include "dossiers/cleelement.h"

#include <optional>
#include <vector>

namespace velm {

/// A row of an item.
struct RangeeRangee {
    qint64 dossier = 0;
    qint64 noordre = 0;
    Cle document;
    QString titre;
    Extrait extrait;
    friend bool operator==(const RangeeRangee&, const RangeeRangee&) = default;
};

/// What a row was and what it is now; nothing where there is none.
struct ChangementElement {
    std::optional<RangeeRangee> avant;
    std::optional<RangeeRangee> apres;
};

/// A dossier that was never stored and will not be; its items are.
struct DossierPerdu {
    qint64 numero = 0;
    qint64 parent = 0;
    QString nom;
};

struct Changements {
    std::vector<ChangementElement> elements;
    std::vector<DossierPerdu> dossiers;
    bool parcommande = true; ///< one change of an item; false: what a save brought with it

    bool vide() const { return elements.empty() && dossiers.empty(); }
};

class TemoinDossiers {
public:
    virtual ~TemoinDossiers() = default;
    /// Before the transaction ends that makes the changes, so that nothing is lost between them and their note.
    virtual void vachanger(const Changements& changements) = 0;
    /// How it ended; after each vachanger().
    virtual void change(bool fait) = 0;
};

} // namespace velm
