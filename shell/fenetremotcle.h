#pragma once
// frmrechmotcle: all keywords with the number of documents of each. A click on one, or Enter, puts its documents into
// the selection list.
#include "core/corpus.h"
#include "document/ui/fenetreliste.h"

namespace velm {

class FenetreMotcle final : public FenetreListe {
    Q_OBJECT

public:
    /// What `contexte` opens is a keyword, the number of a key without a code.
    FenetreMotcle(const ContexteListe& contexte, Corpus& corpus, QWidget* parent = nullptr);

    void actualise() override;

protected:
    QString compte() const override;

private:
    Corpus& corpus_;
};

} // namespace velm
