#include "dossiers/ui/retourdossiers.h"

#include "dossiers/ui/dialoguepertes.h"

#include <QKeyEvent>
#include <QPushButton>

#include <utility>

namespace velm {

RetourDossiers::RetourDossiers(GestionDossiers& gestion, QPushButton& bouton, QWidget* fenetre)
    : gestion_(gestion), reprises_(gestion, gestion.donnees().magasin, gestion.donnees().noeuds, journal_),
      bouton_(bouton), fenetre_(fenetre) {
    journal_.ouvre(gestion.donnees().magasin.cheminbasedossiers());
    reprises_.quandchange = [this] { permet(); };
    connect(&bouton_, &QPushButton::clicked, this, &RetourDossiers::montre);
    // Whoever listens is there only later.
    QMetaObject::invokeMethod(this, &RetourDossiers::permet, Qt::QueuedConnection);
    permet();
}

void RetourDossiers::permet() {
    const bool perdu = !journal_.pertes().empty();
    bouton_.setEnabled(perdu);
    bouton_.setToolTip(gestion_.donnees().texte(perdu ? Texte::DossiersRetrouverConseil : Texte::DossiersRien));
    if (std::exchange(refuse_, false))
        emit dit({});
    if (journal_.manque() && fenetre_->isVisible() && !std::exchange(manquedit_, true))
        emit dit(gestion_.donnees().texte(Texte::DossiersJournalManque));
}

void RetourDossiers::montre() {
    auto* const pertes = new DialoguePertes(reprises_, gestion_, fenetre_);
    pertes->show();
}

void RetourDossiers::annule() {
    if (!reprises_.peutannuler())
        return;
    const auto fait = reprises_.annule();
    if (!gestion_.reussi(fait.echec, Texte::DossiersPasModifies) || fait.fait)
        return;
    refuse_ = true;
    emit dit(gestion_.donnees().texte(Texte::DossiersAnnulationImpossible));
}

bool RetourDossiers::cle(const QKeyEvent& evenement) {
    if (!evenement.matches(QKeySequence::Undo))
        return false;
    annule();
    return true;
}

} // namespace velm
