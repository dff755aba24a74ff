#include "shell/fenetreindex.h"

#include "core/tablereglages.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QLabel>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

DescriptionTypes descriptiondelindex(const Libelles& texte) {
    return {.liste = {.nom = u"fIndex"_s,
                      .titre = texte(Texte::TitreIndex),
                      .colonnes = ListeIndex::modele(),
                      .cles = {reglage::indexcolonnes, reglage::indexlargeurs},
                      .usage = {.suitletri = true, .champimage = 5},
                      // The frame's command of copying takes all rows of a list, but not of this one. The list's own
                      // menu copies the selected ones.
                      .copiable = false,
                      .indice = nombredefenetres - 1},
            .statut = reglage::indexstatut};
}

} // namespace

FenetreIndex::FenetreIndex(const ContexteTypes& contexte, QWidget* parent)
    : FenetreTypes(descriptiondelindex(contexte.liste.texte), contexte, parent),
      rien_(plainLabel(contexte.liste.texte(Texte::BilanAucuneCollection), this)) {
    rien_->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::windowMargin);
    rien_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    rien_->setForegroundRole(QPalette::PlaceholderText);
    rien_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    rien_->hide();
    insere(rien_);
    reselect();
}

void FenetreIndex::reselect() {
    if (requete_.reselect(types()) == RequeteIndex::Suite::Nouvelle)
        prend(std::make_unique<ListeIndex>(corpus(), requete_.source()));
    montregrille();
}

void FenetreIndex::actualise() {
    if (!requete_.source().isEmpty())
        prend(std::make_unique<ListeIndex>(corpus(), requete_.source()));
}

void FenetreIndex::rempli() {
    montregrille();
}

/// The rows stay behind a list that hides, and are there when it shows again.
void FenetreIndex::montregrille() {
    rien_->setVisible(types().aucun());
    flex().setVisible(!types().aucun() && documents().source() != nullptr);
    ditlignes();
}

} // namespace velm
