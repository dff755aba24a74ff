#pragma once
// The selection list as its logic sees it, in the panel of the frame.
#include "document/ui/grilledocuments.h"
#include "search/controleliste.h"

#include <memory>

namespace velm {

class FlexGrid;
class VoletSelection;

class GrilleSelection final : public VueLignes {
public:
    explicit GrilleSelection(VoletSelection& volet) : volet_(volet) {}

    /// Makes the columns and shows the rows of a list, until relache().
    void construit(ListeSelection& liste);
    void relache();

    FlexGrid& flex() const;
    /// From construit() on.
    const GrilleDocuments& documents() const { return *documents_; }

    void cache() override;
    void fige() override;
    void relit() override;
    void montre(bool visible) override;
    void montremarque(int colonne, ListeSelection::Marque marque) override;
    void trie(int colonne, bool descendant) override;
    void regroupe(bool regroupees) override;
    std::pair<int, int> choix() const override;
    void choisit(int row, int rowsel) override;
    void choisittout() override;
    QString copie() const override;
    int largeur(int colonne) const override;
    bool etroite() const override;

private:
    VoletSelection& volet_;
    std::unique_ptr<GrilleDocuments> documents_;
};

} // namespace velm
