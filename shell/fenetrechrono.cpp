#include "shell/fenetrechrono.h"

#include "core/tablereglages.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/listechrono.h"
#include "search/ui/bandeannees.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

DescriptionTypes descriptionchrono(const Libelles& texte) {
    return {.liste = {.nom = u"frmchrono"_s,
                      .titre = texte(Texte::TitreChrono),
                      .colonnes = ListeChrono::modele(),
                      .cles = {reglage::chronocolonnes, reglage::chronolargeurs}},
            .statut = reglage::chronostatut};
}

} // namespace

FenetreChrono::FenetreChrono(const ContexteTypes& contexte, QWidget* parent)
    : FenetreTypes(descriptionchrono(contexte.liste.texte), contexte, parent),
      bande_(new BandeAnnees(contexte.liste.texte, this)) {
    insere(bande_);
    connect(bande_, &BandeAnnees::voulue, this, &FenetreChrono::va);
    reselect();
}

void FenetreChrono::reselect() {
    prend(std::make_unique<ListeChrono>(corpus(), types()));
}

/// The years are told while the rows still stand in their order.
void FenetreChrono::avantordre(const SourceDocuments& source) {
    if (const auto* liste = dynamic_cast<const ListeChrono*>(&source))
        bande_->montre(liste->annees());
}

void FenetreChrono::rempli() {
    const auto& texte = contexte().texte;
    flex().setEmptyText(texte(types().aucun() ? Texte::BilanAucuneCollection : Texte::ListeSansDocument));
}

void FenetreChrono::va(int annee, int derniere) {
    const auto* liste = dynamic_cast<const ListeChrono*>(documents().source());
    const int rang = liste ? liste->premiere(annee, derniere) : -1;
    if (rang < 0)
        return;
    flex().setTopRow(rang + 1);
    flex().setRow(rang + 1);
}

} // namespace velm
