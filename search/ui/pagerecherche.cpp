#include "search/ui/pagerecherche.h"

#include "core/texte.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

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
    note_ = new NoteLine(this);
    note_->link()->setObjectName(u"tout"_s + chercher);
    note_->link()->setAccessibleName(texte(Texte::BilanToutAfficher));
    connect(note_, &NoteLine::linkClicked, this, &PageRecherche::toutvoulu);
    disposition_->addWidget(note_);
}

QLabel* PageRecherche::ajouteconseil(Texte conseil, int ligne, int colonne, int colonnes) {
    auto* dit = nouvelleetiquette(texte(conseil), nullptr, this);
    dit->setWordWrap(true);
    dit->setForegroundRole(QPalette::PlaceholderText);
    grille_->addWidget(dit, ligne, colonne, 1, colonnes);
    return dit;
}

void PageRecherche::ditbilan(const BilanRecherche& bilan) {
    note_->say(bilan.phrase, bilan.rien ? NoteLine::Tone::Warning : NoteLine::Tone::Quiet,
               bilan.coupe ? texte(Texte::BilanToutAfficher) : QString());
}

} // namespace velm
