#pragma once
// The grid of the selection list in the frame: shows the rows and columns of the list as they stand.
#include "search/controleliste.h"

namespace velm {

class FlexGrid;
class VoletSelection;

class GrilleSelection final : public VueLignes {
public:
    explicit GrilleSelection(VoletSelection& volet) : volet_(volet) {}

    /// Makes the columns and shows the rows of a list, until relache().
    void construit(ListeSelection& liste, const std::function<QString(int)>& texte);
    void relache();

    FlexGrid& flex() const;

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

private:
    void construitcolonnes(const std::function<QString(int)>& texte);
    void placecolonnes(const ListeSelection& liste);

    VoletSelection& volet_;
    bool focus_ = false; ///< the grid had it before it was hidden
};

} // namespace velm
