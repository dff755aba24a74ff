#pragma once
// Who hears what becomes of the rows of the store, so that it can be taken back.
#include "dossiers/cleelement.h"
#include "dossiers/magasin.h"

#include <functional>
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

/// A dossier that has no row, or no longer.
struct DossierPerdu {
    qint64 numero = 0;
    qint64 parent = 0;
    QString nom;
};

/// A dossier has another name; `avant`: nothing where it had no row.
struct NomDossier {
    qint64 numero = 0;
    std::optional<QString> avant;
    QString apres;
};

struct Changements {
    std::vector<ChangementElement> elements;
    std::vector<DossierPerdu> dossiers; ///< never stored, and never to be; their items are
    bool parcommande = true;            ///< one change of an item; false: what a save brought with it
    // ---- of one change of an item: the dossiers that show one item less, and one more
    std::optional<qint64> moins = {};
    std::optional<qint64> plus = {};
    // ---- of a save
    std::vector<DossierPerdu> supprimes = {};
    std::vector<DossierPerdu> abandonnes = {}; ///< of these, those without items whose children have no parent now
    std::vector<NomDossier> noms = {};

    bool vide() const {
        return elements.empty() && dossiers.empty() && !moins && !plus && abandonnes.empty() && noms.empty();
    }
};

class TemoinDossiers {
public:
    virtual ~TemoinDossiers() = default;
    /// Before the transaction ends that makes the changes, so that nothing is lost between them and their note.
    virtual void vachanger(const Changements& changements) = 0;
    /// How it ended; after each vachanger() and vareparer().
    virtual void change(bool fait) = 0;
    /// What belongs to nobody is going to be taken out of the store.
    virtual void vareparer() = 0;
    /// Whether a number is that of a dossier which may come back: no other one may have it.
    virtual bool connait(qint64 numero) const = 0;
};

/// Does some work on the store, and tells a witness, who may be null, of the changes that it made.
EchecEcriture ecritvu(Magasin& magasin, TemoinDossiers* temoin, const std::function<bool(Changements&)>& travail);

} // namespace velm
