#include "search/ui/ongletcriteres.h"

#include "core/texte.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "search/ui/boitederniers.h"
#include "search/ui/champdate.h"
#include "search/ui/controles.h"
#include "search/ui/listeavecvide.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What stands in a row and is no field stands further apart.
constexpr int ecartdescoches = look::groupSpacing;

} // namespace

OngletCriteres::OngletCriteres(const Libelles& texte, const ItemsFormulaire& items, const TypesDocument& types,
                               std::function<bool(const QWidget*)> dansformulaire)
    : PageRecherche(texte), dansformulaire_(std::move(dansformulaire)) {
    construittextes(items.conjonction);
    construitlieux();
    construitfiche(items, types);
    construitdate();
    construitportee();
    ajouteconseil(Texte::ChercheTousLesCriteres);
    auto* effacer = nouveaubouton(u"annulercriteres"_s, texte(Texte::EffacerLesCriteres), this);
    connect(effacer, &QPushButton::clicked, this, &OngletCriteres::effacementvoulu);
    ajouteboutons(u"cmdok"_s, u"annuler"_s, effacer);
}

/// The two texts with what they must be.
void OngletCriteres::construittextes(const QStringList& conjonctions) {
    prefixe_ = new ListeAvecVide(texte(Texte::Contient), this);
    nommeliste(*prefixe_, u"prefixe"_s, texte(Texte::PresenceDuPremierTexte), {u" "_s, texte(Texte::NeContientPas)});
    conjonction_ = nouvelleliste(u"conjonction"_s, texte(Texte::LienEntreLesTextes), conjonctions, this);
    for (std::size_t i = 0; i < texterech_.size(); ++i) {
        const int numero = static_cast<int>(i);
        const Texte intitule = i == 0 ? Texte::CriterePremierTexte : Texte::CritereSecondTexte;
        texterech_.at(i) = PageRecherche::boite(nomnumerote(u"texterech"_s, numero), intitule);
        motentier_.at(i) = nouvellecoche(nomnumerote(u"motentier"_s, numero), texte(Texte::MotEntier), this);
        respectminmaj_.at(i) =
            nouvellecoche(nomnumerote(u"respectminmaj"_s, numero), texte(Texte::RespecterLesMajuscules), this);
        QComboBox* lien = i == 0 ? prefixe_ : conjonction_;
        lien->setToolTip(plainTip(lien->accessibleName()));
        ajouterangee(intitule, texterech_.at(i));
        rangees().addWidget(lien);
        auto* bloc = new Rangees;
        bloc->rangee(nullptr, {});
        bloc->addWidget(texterech_.at(i));
        bloc->rangee(nullptr, {.ecart = ecartdescoches});
        bloc->addWidget(motentier_.at(i));
        bloc->addWidget(respectminmaj_.at(i));
        rangees().addLayout(bloc);
    }
}

/// Where the texts are looked for.
void OngletCriteres::construitlieux() {
    constexpr std::array lieux{Texte::Titre, Texte::TexteDuDocument, Texte::Source};
    for (std::size_t i = 0; i < emplacement_.size(); ++i)
        emplacement_.at(i) =
            nouvellecoche(nomnumerote(u"emplacement"_s, static_cast<int>(i)), texte(lieux.at(i)), this);
    ajouterangee(Texte::CritereRechercherDans, emplacement_.front(), {.ecart = ecartdescoches});
    for (QCheckBox* lieu : emplacement_)
        rangees().addWidget(lieu);
}

/// Its items may be many, and long.
QComboBox* OngletCriteres::longueliste(const QString& nom, Texte intitule, const QStringList& items) {
    QComboBox* nouvelle = nouvelleliste(nom, texte(intitule), items, this);
    nouvelle->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    nouvelle->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return nouvelle;
}

/// What the document's own fields must be.
void OngletCriteres::construitfiche(const ItemsFormulaire& items, const TypesDocument& types) {
    combomotcle_ = longueliste(u"combomotcle"_s, Texte::CritereMotCle, {});
    combomotcle_->setModel(new QStringListModel(combomotcle_));
    auto* vue = new QListView(combomotcle_);
    vue->setUniformItemSizes(true);
    combomotcle_->setView(vue);
    ajouterangee(Texte::CritereMotCle, combomotcle_, {.dessus = look::spacing});
    rangees().addWidget(combomotcle_);
    combotype_ = longueliste(u"combotype"_s, Texte::CritereTypeDeDocument, items.combotype);
    ajouterangee(Texte::CritereTypeDeDocument, combotype_);
    rangees().addWidget(combotype_);
    auto* numerotype = new QListWidget(this);
    numerotype->setObjectName(u"numerotype"_s);
    numerotype->addItems(types.numerotype);
    numerotype->hide();
}

void OngletCriteres::construitdate() {
    constexpr std::array textesdeladate{Texte::CritereJour, Texte::CritereMois, Texte::CritereAnnee};
    date_ = {champdate(u"textejour"_s, textesdeladate[0], 2), champdate(u"textemois"_s, textesdeladate[1], 2),
             champdate(u"texteannée"_s, textesdeladate[2], 4)};
    date_[0]->valide = &validejour;
    date_[1]->valide = &validemois;
    date_[2]->complete = &valideannee;
    date_[2]->touche = &touchedelannee;
    ajouterangee(Texte::CritereDate, date_.front(), {.ecart = ecartdescoches});
    for (std::size_t i = 0; i < date_.size(); ++i) {
        auto* partie = new QHBoxLayout;
        partie->setContentsMargins({});
        partie->setSpacing(look::spacing);
        partie->addWidget(nouvelleetiquette(texte(textesdeladate.at(i)), date_.at(i), this));
        partie->addWidget(date_.at(i));
        rangees().addLayout(partie);
    }
}

ChampDate* OngletCriteres::champdate(const QString& nom, Texte intitule, int chiffres) {
    auto* nouveau = new ChampDate(this);
    nouveau->setObjectName(nom);
    nouveau->setAccessibleName(texte(intitule).remove(u'&'));
    nouveau->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    nouveau->setFixedWidth(nouveau->fontMetrics().horizontalAdvance(QString(chiffres, u'0')) + 3 * look::spacing);
    connect(nouveau, &QLineEdit::returnPressed, this, &OngletCriteres::cherchevoulu);
    // A wrong date holds the focus in the form and takes it from no other window; nor from the button that searches,
    // which looks at the dates itself, and stops whatever they are.
    nouveau->retient = [this](const QWidget* ou) { return dansformulaire_(ou) && ou != &lanceur(); };
    return nouveau;
}

/// All documents, or those of the list.
void OngletCriteres::construitportee() {
    Option1_ = new QRadioButton(texte(Texte::NouvelleRecherche), this);
    Option1_->setObjectName(u"Option1"_s);
    Option1_->setChecked(true);
    Option2_ = new QRadioButton(texte(Texte::RechercherDansLaListe), this);
    Option2_->setObjectName(u"Option2"_s);
    auto* groupe = new QButtonGroup(this);
    groupe->addButton(Option1_);
    groupe->addButton(Option2_);
    ajouterangee(Texte::CritereEtendue, Option1_, {.ecart = ecartdescoches, .dessus = look::spacing});
    rangees().addWidget(Option1_);
    rangees().addWidget(Option2_);
}

// ---- what stands there

QLineEdit& OngletCriteres::champ() const {
    return *texterech_.front()->lineEdit();
}

Criteres OngletCriteres::criteres() const {
    Criteres criteres;
    criteres.motcle = combomotcle_->currentIndex() > 0 ? combomotcle_->currentText() : QString();
    criteres.type = combotype_->currentIndex();
    criteres.textejour = date_[0]->text();
    criteres.textemois = date_[1]->text();
    criteres.texteannee = date_[2]->text();
    for (std::size_t i = 0; i < texterech_.size(); ++i) {
        criteres.texterech[i] = texterech_[i]->texte();
        criteres.motentier[i] = motentier_[i]->isChecked();
        criteres.respectminmaj[i] = respectminmaj_[i]->isChecked();
    }
    for (std::size_t i = 0; i < emplacement_.size(); ++i)
        criteres.emplacement[i] = emplacement_[i]->isChecked();
    criteres.prefixe = prefixe_->currentIndex();
    criteres.conjonction = conjonction_->currentIndex();
    return criteres;
}

void OngletCriteres::montre(const Criteres& criteres) {
    combomotcle_->setCurrentIndex(
        criteres.motcle.isEmpty()
            ? 0
            : std::max(combomotcle_->findText(criteres.motcle, Qt::MatchFixedString | Qt::MatchCaseSensitive), 0));
    combotype_->setCurrentIndex(criteres.type);
    date_[0]->setText(criteres.textejour);
    date_[1]->setText(criteres.textemois);
    date_[2]->setText(criteres.texteannee);
    for (std::size_t i = 0; i < texterech_.size(); ++i) {
        texterech_[i]->metstexte(criteres.texterech[i]);
        motentier_[i]->setChecked(criteres.motentier[i]);
        respectminmaj_[i]->setChecked(criteres.respectminmaj[i]);
    }
    for (std::size_t i = 0; i < emplacement_.size(); ++i)
        emplacement_[i]->setChecked(criteres.emplacement[i]);
    prefixe_->setCurrentIndex(criteres.prefixe);
    conjonction_->setCurrentIndex(criteres.conjonction);
}

void OngletCriteres::offremotscles(const QStringList& items) {
    const QString choisi = combomotcle_->currentText();
    auto* const modele = qobject_cast<QStringListModel*>(combomotcle_->model());
    modele->setStringList(items);
    combomotcle_->setCurrentIndex(rangditem(items, choisi));
}

void OngletCriteres::permetaffinage(bool permis) {
    Option2_->setEnabled(permis);
}

void OngletCriteres::choisitaffinage(bool affinage) {
    (affinage ? Option2_ : Option1_)->setChecked(true);
}

bool OngletCriteres::affinage() const {
    return Option2_->isEnabled() && Option2_->isChecked();
}

bool OngletCriteres::quittedates() {
    return std::ranges::all_of(date_, [](ChampDate* champ) { return champ->quitte(); });
}

} // namespace velm
