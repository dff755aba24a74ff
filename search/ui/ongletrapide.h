#pragma once
// The tab of the quick search: a text, and how many documents are wanted.
#include "core/texte.h"
#include "search/etatformulaire.h"
#include "search/ui/pagerecherche.h"

namespace velm {

class OngletRapide final : public PageRecherche {
    Q_OBJECT

public:
    explicit OngletRapide(const Libelles& texte);

    QLineEdit& champ() const override;
    BoiteDerniers& boite() const { return *texterapide_; }
    /// Puts what stands in the tab into a state, and back.
    void lit(EtatFormulaire& etat) const;
    void montre(const EtatFormulaire& etat);

private:
    BoiteDerniers* texterapide_ = nullptr;
    QComboBox* combonombre_ = nullptr;
};

} // namespace velm
