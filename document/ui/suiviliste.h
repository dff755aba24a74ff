#pragma once
// The list of a document window follows the document.
#include "document/ui/suividocument.h"

namespace velm {

class GrilleDocuments;

class SuiviListe final : public SuiviDocument {
public:
    /// In a list of documents that lives longer than `parent`.
    SuiviListe(GrilleDocuments& liste, QObject* parent);

    /// Also when the rows stand in another order.
    void marque() override;

private:
    bool remplie() const override;
    void montre() override;

    GrilleDocuments& liste_;
};

} // namespace velm
