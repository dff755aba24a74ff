#pragma once
// frmchrono: the documents of the chosen collections in the order of their dates, under a strip that shows how many
// each year has.
#include "shell/fenetretypes.h"

namespace velm {

class BandeAnnees;
class ListeChrono;

class FenetreChrono final : public FenetreTypes {
    Q_OBJECT

public:
    explicit FenetreChrono(const ContexteTypes& contexte, QWidget* parent = nullptr);

    BandeAnnees& bande() const { return *bande_; }
    void reselect() override;

protected:
    void rempli() override;
    void avantordre(const SourceDocuments& source) override;

private:
    void donneplace();
    void va(int annee, int derniere);

    BandeAnnees* bande_;
};

} // namespace velm
