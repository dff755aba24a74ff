#include "search/ui/ongletrapide.h"

#include "core/texte.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace velm {

using namespace Qt::Literals::StringLiterals;

OngletRapide::OngletRapide(const Libelles& texte) : PageRecherche(texte) {
    texterapide_ = PageRecherche::boite(u"texterapide"_s, Texte::TexteDuDocument);
    combonombre_ = limites(u"combonombre"_s);
    ajouterangee(Texte::TexteDuDocument, texterapide_)->setObjectName(u"libelrapide"_s);
    rangees().addWidget(texterapide_);
    ajouteconseil(Texte::ChercheDansLesTitres);
    ajouterangee(Texte::NombreMaximal, combonombre_)->setObjectName(u"libelnombre"_s);
    rangees().addWidget(combonombre_);
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
