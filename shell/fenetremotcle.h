#pragma once
// frmrechmotcle: all keywords with the number of documents of each. A click on one, or Enter, puts its documents into
// the selection list.
#include "core/corpus.h"
#include "document/ui/fenetreliste.h"

namespace velm {

class FenetreMotcle final : public FenetreListe {
    Q_OBJECT

public:
    /// A row's key has no code and a keyword for its number: such keys are what `contexte` is asked to open.
    FenetreMotcle(const ContexteListe& contexte, Corpus& corpus, QWidget* parent = nullptr);

    void actualise() override;

protected:
    QString compte() const override;

private:
    Corpus& corpus_;
};

} // namespace velm
