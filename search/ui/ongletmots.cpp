#include "search/ui/ongletmots.h"

#include "core/parametres.h"
#include "core/texte.h"
#include "platform/widgets/look/plaintext.h"
#include "search/motscommencant.h"
#include "search/ui/boitederniers.h"
#include "search/ui/completionmots.h"
#include "search/ui/controles.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int lignesvues = 2; ///< of the words' list, however low the window is

} // namespace

OngletMots::OngletMots(const Libelles& texte, Corpus& corpus) : PageRecherche(texte) {
    Textedico_ = PageRecherche::boite(u"Textedico"_s, Texte::MotsARechercher);
    completion_ = new CompletionMots(
        Textedico_->lineEdit(),
        [&corpus](const QString& debut, int nombre) { return motscommencant(corpus, debut, nombre); },
        separateursmots(), texte(Texte::MotsProposes));
    checkandordico_ = nouvellecoche(u"checkandordico"_s, texte(Texte::TousLesMots), this);
    Combonombredico_ = limites(u"Combonombredico"_s);
    suite_ = new QWidget(this);
    auto* dedans = new QVBoxLayout(suite_);
    dedans->setContentsMargins({});
    resultat_ = new QListWidget(suite_);
    dedans->addWidget(resultat_);
    resultat_->setObjectName(u"resultat"_s);
    resultat_->setAccessibleName(texte(Texte::MotsTrouves));
    resultat_->setToolTip(plainTip(texte(Texte::MotsTrouves)));
    resultat_->setUniformItemSizes(true);
    resultat_->setMinimumHeight(lignesvues * resultat_->fontMetrics().lineSpacing() + 2 * resultat_->frameWidth());
    for (const auto choisie : {&QListWidget::itemClicked, &QListWidget::itemActivated})
        connect(resultat_, choisie, this, [this](const QListWidgetItem* ligne) { emit lignechoisie(ligne->text()); });
    ajouterangee(Texte::MotsARechercher, Textedico_)->setObjectName(u"libeldico"_s);
    rangees().addWidget(Textedico_);
    ajouteconseil(Texte::ConseilEtoile)->setObjectName(u"messagedico"_s);
    rangees().rangee(nullptr, {});
    rangees().addWidget(checkandordico_);
    ajouterangee(Texte::NombreMaximal, Combonombredico_)->setObjectName(u"libelnombredico"_s);
    rangees().addWidget(Combonombredico_);
    ajouteboutons(u"cmdokdico"_s, u"annulerdico"_s);
    videresultat();
}

QLineEdit& OngletMots::champ() const {
    return *Textedico_->lineEdit();
}

void OngletMots::lit(EtatFormulaire& etat) const {
    etat.Textedico = Textedico_->texte();
    etat.checkandordico = checkandordico_->isChecked();
    etat.Combonombredico = Combonombredico_->currentIndex();
}

void OngletMots::montre(const EtatFormulaire& etat) {
    montremots(etat.Textedico);
    checkandordico_->setChecked(etat.checkandordico);
    Combonombredico_->setCurrentIndex(etat.Combonombredico);
}

void OngletMots::montremots(const QString& mots) {
    Textedico_->metstexte(mots);
}

void OngletMots::videresultat() {
    resultat_->clear();
    resultat_->hide();
}

void OngletMots::ajouteresultat(const QString& ligne) {
    resultat_->addItem(ligne);
    resultat_->show();
}

void OngletMots::renonce() {
    completion_->renonce();
}

} // namespace velm
