#include "search/dialoguescriteres.h"

#include "core/langue.h"
#include "core/obstacles.h"
#include "platform/system/files.h"

#include <QFile>

namespace velm {

using namespace Qt::Literals::StringLiterals;

ChoixFichier FichiersCriteres::choix(Texte titre) const {
    ChoixFichier choix;
    choix.titre = texte_(titre);
    choix.filtre = texte_(Texte::FichiersDuProgramme) + u"(*.cv2)|*.cv2"_s;
    choix.extension = u"cv2"_s;
    return choix;
}

/// The bytes of a file, or nothing when it cannot be read. Of a file that does not begin as these do only the
/// beginning is read, however long it is.
std::optional<QByteArray> FichiersCriteres::lit(const QString& chemin) {
    const Attente attente(sablier_);
    QFile fichier;
    if (!openPlain(fichier, chemin).ok())
        return std::nullopt;
    const QByteArray debut = fichier.read(FichierCriteres::entete.size() + 2);
    if (fichier.error() == QFileDevice::NoError && !litfichiercriteres(debut))
        return debut;
    const FileBytes suite = readRest(fichier);
    return suite.ok() ? std::optional(debut + suite.bytes) : std::nullopt;
}

std::optional<FichierCriteres> FichiersCriteres::ouvrircriteres(const QString& nom) {
    QString chemin = nom;
    if (chemin.isEmpty()) {
        const std::optional<QString> choisi = dialogues_.openFile(choix(Texte::TitreOuvrirCriteres));
        if (!choisi)
            return std::nullopt;
        chemin = *choisi;
        if (chemin.right(4).toUpper() != u".CV2" &&
            dialogues_.message(texte_(Texte::QuestionExtensionImprevue), texte_(Texte::FormatNonReconnu), Icone::Aucune,
                               Bouton::Oui | Bouton::Non) != Bouton::Oui)
            return std::nullopt;
    }
    const std::optional<QByteArray> octets = lit(chemin);
    if (!octets) {
        dialogues_.message(texte_(Texte::LeFichier) + u' ' + chemin + u' ' + texte_(Texte::NePeutPasEtreOuvert),
                           texte_(Texte::TitreOuvertureImpossible), Icone::Stop);
        return std::nullopt;
    }
    std::optional<FichierCriteres> lu = litfichiercriteres(*octets);
    if (!lu)
        dialogues_.message(texte_(Texte::FormatNonReconnu), texte_(Texte::TitreErreurDeFichier), Icone::Stop);
    return lu;
}

bool FichiersCriteres::sauvercriteres(const FichierCriteres& fichier) {
    ChoixFichier ou = choix(Texte::TitreEnregistrerCriteres);
    const QString mots = fileNameOf(motsdelarecherche(fichier));
    ou.nom = (mots.isEmpty() ? texte_(Texte::NomDesCriteres) : mots) + u".cv2"_s;
    ou.demanderemplacement = false;
    const std::optional<QString> chemin = dialogues_.saveFile(ou);
    if (!chemin)
        return false;
    if (fileSize(*chemin).value_or(0) != 0 &&
        dialogues_.message(texte_(Texte::LeFichier) + u' ' + *chemin + u' ' + texte_(Texte::ExisteDeja),
                           texte_(Texte::TitreEnregistrement), Icone::Aucune, Bouton::Oui | Bouton::Non) != Bouton::Oui)
        return false;
    const FileError erreur = [&] {
        const Attente attente(sablier_);
        return writeWhole(*chemin, ecritcriteres(fichier));
    }();
    if (!erreur.ok())
        ditnonecrit(*chemin, erreur, Texte::TitreEnregistrement);
    return erreur.ok();
}

void FichiersCriteres::envoyercriteres(const FichierCriteres& fichier) {
    if (fichier.lignes.empty())
        return;
    const Courriel courriel{{}, u" "_s, u"VELM2000.CV2"_s, ecritcriteres(fichier)};
    courrier_.compose(courriel, [this, nom = courriel.fileName](Courrier::Failure echec, const FileError& erreur) {
        if (echec == Courrier::Failure::NotWritten)
            ditnonecrit(nom, erreur, Texte::TitreEnvoi);
        else
            dialogues_.message(texte_(Texte::AucuneMessagerie), texte_(Texte::TitreEnvoi), Icone::Exclamation);
    });
}

void FichiersCriteres::ditnonecrit(const QString& nom, const FileError& erreur, Texte titre) {
    dialogues_.message(remplace(texte_(Texte::FichierPasEnregistre), {nom, raison(erreur.kind, erreur.words, texte_)}),
                       texte_(titre), Icone::Stop);
}

} // namespace velm
