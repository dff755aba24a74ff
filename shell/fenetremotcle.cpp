#include "shell/fenetremotcle.h"

#include "core/nombres.h"
#include "core/tablereglages.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/listemotcle.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

DescriptionListe descriptionmotcle(const Libelles& texte) {
    return {.nom = u"frmrechmotcle"_s,
            .titre = texte(Texte::TitreRechercheMotCle),
            .colonnes = ListeMotcle::modele(),
            .cles = {reglage::motclecolonnes, reglage::motclelargeurs},
            .usage = {.clicouvre = true, .plage = false, .suitletri = true},
            .ouvrir = Texte::ListerLesDocuments};
}

} // namespace

FenetreMotcle::FenetreMotcle(const ContexteListe& contexte, Corpus& corpus, QWidget* parent)
    : FenetreListe(descriptionmotcle(contexte.texte), contexte, parent), corpus_(corpus) {
    flex().setObjectName(u"tableau"_s);
    flex().setEmptyText(contexte.texte(Texte::AucunMotCle));
    const auto enmilliers = [texte = contexte.texte](const QString& nombre) {
        bool entier = false;
        const qint64 valeur = nombre.toLongLong(&entier);
        return entier ? nombreecrit(valeur, texte) : nombre;
    };
    for (int colonne = 0; colonne < flex().cols(); ++colonne) {
        if (flex().colData(colonne) == ListeMotcle::Nombre)
            flex().setColAlignment(colonne, FlexGrid::Align::Right, enmilliers);
    }
    // Each has its number beside it, however narrow the list.
    flex().setNarrowBelow(0);
    // No two keywords are equal: there is nothing to merge.
    barre().hide();
    actualise();
}

void FenetreMotcle::actualise() {
    remplit([this] { return std::make_unique<ListeMotcle>(corpus_); });
}

QString FenetreMotcle::compte() const {
    return comptemotscles(flex().rows() - 1, contexte().texte);
}

} // namespace velm
