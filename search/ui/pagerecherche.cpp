#include "search/ui/pagerecherche.h"

#include "core/texte.h"
#include "platform/widgets/look/look.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace velm {

using namespace Qt::Literals::StringLiterals;

PageRecherche::PageRecherche(Libelles texte) : texte_(std::move(texte)) {
    disposition_ = new QVBoxLayout(this);
    disposition_->setContentsMargins(look::windowMargin, look::groupSpacing, look::windowMargin, look::windowMargin);
    disposition_->setSpacing(look::groupSpacing);
    grille_ = new QGridLayout;
    grille_->setContentsMargins({});
    grille_->setHorizontalSpacing(look::spacing);
    grille_->setVerticalSpacing(look::spacing);
    disposition_->addLayout(grille_);
}

BoiteDerniers* PageRecherche::boite(const QString& nom, Texte intitule) {
    auto* nouvelle = new BoiteDerniers(nom, texte(Texte::DernieresRecherches), this);
    const QString libelle = texte(intitule).remove(u'&');
    nouvelle->setAccessibleName(libelle);
    nouvelle->lineEdit()->setAccessibleName(libelle);
    connect(nouvelle->lineEdit(), &QLineEdit::returnPressed, this, &PageRecherche::cherchevoulu);
    return nouvelle;
}

QComboBox* PageRecherche::limites(const QString& nom) {
    return nouvelleliste(nom, texte(Texte::NombreMaximal), {u"50"_s, u"100"_s, texte(Texte::SansLimite)}, this);
}

void PageRecherche::ajouteboutons(const QString& chercher, const QString& annuler, QWidget* gauche) {
    lanceur_ = nouveaubouton(chercher, texte(Texte::Rechercher), this);
    lanceur_->setDefault(true);
    // As wide for either of its captions.
    const int chercheur = lanceur_->sizeHint().width();
    lanceur_->setText(texte(Texte::Arreter));
    lanceur_->setMinimumWidth(std::max(chercheur, lanceur_->sizeHint().width()));
    connect(lanceur_, &QPushButton::clicked, this, &PageRecherche::cherchevoulu);
    auto* fin = nouveaubouton(annuler, texte(Texte::Annuler), this);
    connect(fin, &QPushButton::clicked, this, &PageRecherche::annulationvoulue);
    auto* ligne = new QHBoxLayout;
    ligne->setContentsMargins({});
    ligne->setSpacing(look::spacing);
    if (gauche)
        ligne->addWidget(gauche);
    ligne->addStretch(1);
    ligne->addWidget(lanceur_);
    ligne->addWidget(fin);
    disposition_->addLayout(ligne);
}

} // namespace velm
