#include "search/ui/pagerecherche.h"

#include "core/texte.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"
#include "search/ui/boitederniers.h"
#include "search/ui/controles.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace velm {

using namespace Qt::Literals::StringLiterals;

PageRecherche::PageRecherche(Libelles texte) : texte_(std::move(texte)) {
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(0, look::groupSpacing, 0, 0);
    rangees_ = new Rangees;
    disposition->addLayout(rangees_);
    disposition->addStretch();
    pied_ = new QWidget(this);
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
    lanceur_ = nouveaubouton(chercher, texte(Texte::Rechercher), pied_);
    lanceur_->setDefault(true);
    lanceur_->setAutoDefault(false); // it is the default one, also once the focus has been on it and has gone
    // As wide for either of its captions.
    const int chercheur = lanceur_->sizeHint().width();
    lanceur_->setText(texte(Texte::Arreter));
    lanceur_->setMinimumWidth(std::max(chercheur, lanceur_->sizeHint().width()));
    connect(lanceur_, &QPushButton::clicked, this, &PageRecherche::cherchevoulu);
    auto* fin = nouveaubouton(annuler, texte(Texte::Annuler), pied_);
    connect(fin, &QPushButton::clicked, this, &PageRecherche::annulationvoulue);
    auto* ligne = new Rangees;
    ligne->rangee(nullptr, {.adroite = gauche != nullptr});
    if (gauche)
        ligne->addWidget(gauche);
    ligne->ajouteressort();
    ligne->addWidget(lanceur_);
    ligne->addWidget(fin);
    note_ = new NoteLine(pied_);
    note_->link()->setObjectName(u"tout"_s + chercher);
    note_->link()->setAccessibleName(texte(Texte::BilanToutAfficher));
    connect(note_, &NoteLine::linkClicked, this, &PageRecherche::toutvoulu);
    auto* lignes = new QVBoxLayout(pied_);
    lignes->setContentsMargins({});
    lignes->setSpacing(look::spacing);
    lignes->addLayout(ligne);
    lignes->addWidget(note_);
}

QLabel* PageRecherche::ajouterangee(Texte intitule, QWidget* nomme, const Rangees::Espaces& espaces) {
    QLabel* etiquette = nouvelleetiquette(texte(intitule), nomme, this);
    rangees_->rangee(etiquette, espaces);
    return etiquette;
}

QLabel* PageRecherche::ajouteconseil(Texte conseil) {
    auto* dit = nouvelleetiquette(texte(conseil), nullptr, this);
    dit->setWordWrap(true);
    dit->setForegroundRole(QPalette::PlaceholderText);
    QSizePolicy place(QSizePolicy::Expanding, QSizePolicy::Preferred);
    place.setHeightForWidth(true);
    dit->setSizePolicy(place);
    rangees_->rangee(nullptr, {.dessus = -look::grid});
    rangees_->addWidget(dit);
    return dit;
}

void PageRecherche::ditbilan(const BilanRecherche& bilan) {
    note_->say(bilan.phrase, bilan.rien ? NoteLine::Tone::Warning : NoteLine::Tone::Quiet,
               bilan.coupe ? texte(Texte::BilanToutAfficher) : QString());
}

} // namespace velm
