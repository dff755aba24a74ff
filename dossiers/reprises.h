#pragma once
// Takes changes of items back, and puts back what the journal knows to be lost. Each is one transaction; where it can
// no longer be done nothing happens.
#include "dossiers/gestiondossiers.h"
#include "dossiers/journaldossiers.h"

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
    /// Takes the last change of an item back that was not yet. One that failed can be tried again.
    Fait annule();
    bool peutannuler() const { return !faits_.empty(); }
    /// Puts a loss back: an item into its dossier, at its place if that is free. A dossier that is gone comes back
    /// under its old name, with that.
    Fait remet(const Perte& perte);
    const JournalDossiers& journal() const { return journal_; }
    /// Called when a loss was noted, or is none any more.
    std::function<void()> quandchange;

    // ---- TemoinDossiers
    void vachanger(const Changements& changements) override;
    void change(bool fait) override;

private:
    QString nomdudossier(qint64 numero) const;
    std::vector<Perte> pertes(const Changements& changements) const;
    bool dossierlu(qint64 numero) const;
    bool existe(qint64 numero) const;
    bool trouve(const RangeeRangee& rangee) const;
    bool occupee(qint64 dossier, qint64 noordre) const;
    bool place(RangeeRangee rangee, bool nouvelle) const;
    bool ajoute(const RangeeRangee& rangee) const;
    bool refait(const ChangementElement& changement, qint64 provisoire) const;
    bool recree(const DossierPerdu& dossier) const;
    bool remettitre(const Perte& perte) const;
    void recompte(const std::vector<ChangementElement>& elements);
    void montre(qint64 parent);
    void dit() const;

    GestionDossiers& gestion_;
    Magasin& magasin_;
    TreeNodes& noeuds_;
    JournalDossiers& journal_;
    std::vector<std::vector<ChangementElement>> faits_;
    Changements encours_;
};

} // namespace velm
