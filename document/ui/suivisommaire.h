#pragma once
// The contents tree of a document window follows the document: what leads to it opens.
#include "document/ui/suividocument.h"

namespace velm {

class Arborescence;
class TreeView;
struct ContexteTextes;

class SuiviSommaire final : public SuiviDocument {
public:
    /// In a tree that this belongs to, filled by `arborescence`. Both and what the context holds live longer.
    SuiviSommaire(TreeView& arbre, Arborescence& arborescence, const ContexteTextes& contexte);

    /// Also when more of the tree has been loaded: the document may be in it now.
    void marque() override;

private:
    bool remplie() const override;
    void montre() override;

    TreeView& arbre_;
    Arborescence& arborescence_;
    const ContexteTextes& contexte_;
};

} // namespace velm
