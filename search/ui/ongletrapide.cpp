#include "search/ui/ongletrapide.h"

#include "core/texte.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace velm {

using namespace Qt::Literals::StringLiterals;

OngletRapide::OngletRapide(const Libelles& texte) : PageRecherche(texte) {
    texterapide_ = PageRecherche::boite(u"texterapide"_s, Texte::TexteDuDocument);
    combonombre_ = limites(u"combonombre"_s);
    auto* libelrapide = nouvelleetiquette(texte(Texte::TexteDuDocument), texterapide_, this);
    libelrapide->setObjectName(u"libelrapide"_s);
    auto* libelnombre = nouvelleetiquette(texte(Texte::NombreMaximal), combonombre_, this);
    libelnombre->setObjectName(u"libelnombre"_s);
    grille().addWidget(libelrapide, 0, 0);
    grille().addWidget(texterapide_, 0, 1);
    ajouteconseil(Texte::ChercheDansLesTitres, 1, 1);
    grille().addWidget(libelnombre, 2, 0);
    grille().addWidget(combonombre_, 2, 1, Qt::AlignLeft);
    grille().setColumnStretch(1, 1);
    ajouteboutons(u"cmdokrapide"_s, u"annulerrapide"_s);
}

QLineEdit& OngletRapide::champ() const {
    return *texterapide_->lineEdit();
}

void OngletRapide::lit(EtatFormulaire& etat) const {
    etat.texterapide = texterapide_->texte();
    etat.combonombre = combonombre_->currentIndex();
}

void OngletRapide::montre(const EtatFormulaire& etat) {
    texterapide_->metstexte(etat.texterapide);
    combonombre_->setCurrentIndex(etat.combonombre);
}

} // namespace velm
