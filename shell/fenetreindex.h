#pragma once
// fIndex: all documents of the chosen collections, in the order of their keys.
#include "search/listeindex.h"
#include "shell/fenetretypes.h"

class QLabel;

namespace velm {

class FenetreIndex final : public FenetreTypes {
    Q_OBJECT

public:
    explicit FenetreIndex(const ContexteTypes& contexte, QWidget* parent = nullptr);

    void reselect() override;
    /// Asks the query again, whatever was chosen last.
    void actualise() override;

protected:
    void rempli() override;

private:
    void montregrille();

    RequeteIndex requete_;
    QLabel* rien_; ///< in the place of the list while no collection is chosen
};

} // namespace velm
