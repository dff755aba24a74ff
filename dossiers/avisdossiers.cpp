#include "dossiers/avisdossiers.h"

#include "core/langue.h"
#include "core/obstacles.h"

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int pagedaide = 8;

} // namespace

QString AvisDossiers::raisonde(const EchecEcriture& echec) const {
    return raison(echec.obstacle, echec.mots, texte_);
}

void AvisDossiers::endommage(const QString& copie) const {
    dialogues_.message(copie.isEmpty() ? texte(Texte::DossiersEndommagesSansCopie)
                                       : remplace(texte(Texte::DossiersEndommages), {copie}),
                       texte(Texte::NomDuProgramme), Icone::Exclamation);
}

void AvisDossiers::manque(Texte message, const EchecEcriture& echec) const {
    dialogues_.message(remplace(texte(message), {raisonde(echec)}), texte(Texte::NomDuProgramme), Icone::Exclamation);
}

bool AvisDossiers::veutsupprimer(const QString& dossier) const {
    const QString question =
        texte(Texte::SuppressionLeDossier) + u" \""_s + dossier + u"\" "_s + texte(Texte::SuppressionSousDossiers);
    return dialogues_.message(question, texte(Texte::TitreSuppressionDossier), Icone::Question,
                              Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Non, pagedaide) == Bouton::Oui;
}

bool AvisDossiers::veutimprimer(const QString& dossier) const {
    return dialogues_.message(texte(Texte::QuestionImprimerDossier) + u" \""_s + dossier + u"\" ?"_s,
                              texte(Texte::TitreImpressionDossier), Icone::Question,
                              Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Aucun, pagedaide) == Bouton::Oui;
}

bool AvisDossiers::veutreparer() const {
    return dialogues_.message(texte(Texte::QuestionReparer), texte(Texte::Reparer), Icone::Question,
                              Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Non, pagedaide) == Bouton::Oui;
}

void AvisDossiers::deplacementrefuse() const {
    dialogues_.message(texte(Texte::DeplacementRefuse), texte(Texte::TitreDeplacementRefuse), Icone::Stop,
                       Bouton::Ok | Bouton::Aide, Bouton::Ok, pagedaide);
}

bool AvisDossiers::veutfermer(const EchecEcriture& echec) const {
    Message message;
    message.texte = remplace(texte(Texte::DossiersFermerQuandMeme), {raisonde(echec)});
    message.titre = texte(Texte::NomDuProgramme);
    message.icone = Icone::Exclamation;
    message.boutons = Bouton::Oui | Bouton::Non;
    message.defaut = Bouton::Non;
    message.accord = texte(Texte::DossiersFermerSansEnregistrer);
    message.refus = texte(Texte::DossiersRevenir);
    return dialogues_.message(message) == Bouton::Oui;
}

} // namespace velm
