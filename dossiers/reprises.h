#pragma once
// Takes changes of items back, keeps the journal of what is lost, and puts that back. Each is one transaction; where it
// can no longer be done nothing happens.
#include "dossiers/gestiondossiers.h"
#include "dossiers/journaldossiers.h"
#include "dossiers/rangeesdossiers.h"

namespace velm {

class Reprises final : public TemoinDossiers {
public:
    /// None is owned. `gestion` tells it of its changes from now on, until this ends.
    Reprises(GestionDossiers& gestion, Magasin& magasin, TreeNodes& noeuds, JournalDossiers& journal);
    ~Reprises() override;
    Reprises(const Reprises&) = delete;
    Reprises& operator=(const Reprises&) = delete;

    static constexpr std::size_t pas = 100; ///< that can be taken back

    struct Fait {
        EchecEcriture echec;
        bool fait = false; ///< false: nothing was changed
    };
    /// Takes the last change of an item back that was not yet. One that failed can be tried again, one that is no
    /// longer possible is given up.
    Fait annule();
    bool peutannuler() const { return !faits_.empty(); }
    /// Puts losses back, all of them or none: an item into its dossier, at its place if that is free. A dossier that is
    /// gone comes back under its old name, with that; also where its number has become another's.
    Fait remet(const std::vector<Perte>& pertes);
    Fait remet(const Perte& perte) { return remet(std::vector{perte}); }
    const JournalDossiers& journal() const { return journal_; }
    /// Called when a loss was noted, or is none any more.
    std::function<void()> quandchange;

    // ---- TemoinDossiers
    void vachanger(const Changements& changements) override;
    void change(bool fait) override;
    /// Notes the items of lost dossiers, which a repair takes out for good.
    void vareparer() override;
    bool connait(qint64 numero) const override;

private:
    std::vector<Perte> pertes(const Changements& changements) const;
    bool possible(const ChangementElement& un) const;
    bool ecarte(const std::vector<ChangementElement>& elements) const;
    bool refait(const Changements& changements, const ChangementElement& un, qint64 provisoire) const;
    bool refaittout(const Changements& changements) const;
    void compte(std::optional<qint64> dossier, qint64 delta);
    void relit(const RangeeRangee* rangee);
    void dit() const;

    GestionDossiers& gestion_;
    Magasin& magasin_;
    TreeNodes& noeuds_;
    JournalDossiers& journal_;
    RangeesDossiers rangees_;
    std::vector<Changements> faits_;
    Changements encours_;
    std::vector<Perte> notees_; ///< of what is going on
};

} // namespace velm
