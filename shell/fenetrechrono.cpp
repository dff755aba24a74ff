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
    donneplace();
    connect(bande_, &BandeAnnees::voulue, this, &FenetreChrono::va);
    reselect();
}

void FenetreChrono::reselect() {
    prend(std::make_unique<ListeChrono>(corpus(), types()));
}

/// Names of months are as wide as the language makes them.
void FenetreChrono::donneplace() {
    QString lemois;
    for (int mois = 1; mois <= 12; ++mois) {
        const QString nom = ListeChrono::nomdumois(mois);
        const QFontMetrics mesure = flex().fontMetrics();
        lemois = mesure.horizontalAdvance(nom) > mesure.horizontalAdvance(lemois) ? nom : lemois;
    }
    const std::vector<ModeleColonne> colonnes = ListeChrono::modele().colonnes;
    for (const auto& [place, texte] :
         {std::pair{ListeChrono::Annee, u"0000"_s}, {ListeChrono::Mois, lemois}, {ListeChrono::Jour, u"00"_s}}) {
        const int champ = colonnes.at(static_cast<std::size_t>(place)).champ;
        for (int ici = 0; ici < flex().cols(); ++ici) {
            if (flex().colData(ici) == champ)
                flex().setHeader(ici, flex().header(ici), texte);
        }
    }
}

/// The strip counts the years by where each begins in the rows: this works only as long as these stand in the order of
/// the dates.
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
