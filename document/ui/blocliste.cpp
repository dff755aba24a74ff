#include "document/ui/blocliste.h"

#include "core/texte.h"
#include "document/listecollection.h"
#include "document/ui/suiviliste.h"
#include "platform/base/memory.h"
#include "platform/widgets/grid/flexgrid.h"

#include <QScopeGuard>

namespace velm {

using namespace Qt::Literals::StringLiterals;

BlocListe::BlocListe(const QString& code, Corpus& corpus, Sablier& sablier, const Libelles& texte, QWidget* fenetre)
    : QObject(fenetre), code_(code), corpus_(corpus), sablier_(sablier), grille_(new FlexGrid(fenetre)),
      colonnes_(ListeCollection::modele(), texte), documents_(*grille_, colonnes_, {.plage = false}),
      suivi_(new SuiviListe(documents_, this)) {
    grille_->setObjectName(u"flex"_s);
    grille_->setAccessibleName(texte(Texte::ListeDeLaCollection));
    grille_->setEmptyText(texte(Texte::CouvertureSansDocument));
    grille_->setMergeCells(true);
    connect(&documents_, &GrilleDocuments::trivoulu, this, &BlocListe::trie);
    connect(&documents_, &GrilleDocuments::ouvertes, this,
            [this](const std::vector<Cle>& cles) { emit ouverte(cles.front()); });
}

void BlocListe::charge(const ReglagesTextes& reglages) {
    const Attente attente(sablier_);
    grille_->setRedraw(false);
    const auto redessine = qScopeGuard([this] { grille_->setRedraw(true); });
    const QString fixe = Colonnes(ListeCollection::modele()).ordre();
    colonnes_.prend(reglages.listeordre, reglages.listelargeurs);
    documents_.montrecolonnes();
    documents_.charge(std::make_unique<ListeCollection>(corpus_, code_, fixe));
    documents_.trie(0);
    chargee_ = true;
}

void BlocListe::retient(ReglagesTextes& reglages) {
    if (!chargee_) {
        reglages.listeordre = ListeCollection::ordrejamaisrempli.toString();
        return;
    }
    documents_.releve();
    reglages.listeordre = colonnes_.ordre();
    reglages.listelargeurs = colonnes_.largeurs();
}

void BlocListe::trie(int colonne) {
    const bool fait = withinMemory([this, colonne] {
        const Attente attente(sablier_);
        documents_.trie(colonne);
        suivi_->marque();
    });
    if (!fait)
        emit sansmemoire();
}

} // namespace velm
