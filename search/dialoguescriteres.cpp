#include "search/dialoguescriteres.h"

#include "platform/system/files.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

ChoixFichier FichiersCriteres::choix(Texte titre) const {
    ChoixFichier choix;
    choix.titre = texte_(titre);
    choix.filtre = texte_(Texte::FichiersDuProgramme) + u"(*.cv2)|*.cv2"_s;
    choix.extension = u"cv2"_s;
    return choix;
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
    const std::optional<QByteArray> octets = fichiers_.lit(chemin, FichierCriteres::entete);
    std::optional<FichierCriteres> lu = octets ? litfichiercriteres(*octets) : std::nullopt;
    if (octets && !lu)
        fichiers_.ditautreformat();
    return lu;
}

bool FichiersCriteres::sauvercriteres(const FichierCriteres& fichier) {
    ChoixFichier ou = choix(Texte::TitreEnregistrerCriteres);
    const QString mots = fileNameOf(motsdelarecherche(fichier));
    ou.nom = (mots.isEmpty() ? texte_(Texte::NomDesCriteres) : mots) + u".cv2"_s;
    return fichiers_.enregistre(ou, Icone::Aucune, [&fichier] { return ecritcriteres(fichier); });
}

void FichiersCriteres::envoyercriteres(const FichierCriteres& fichier) {
    if (!fichier.lignes.empty())
        fichiers_.envoie(u"VELM2000.CV2"_s, ecritcriteres(fichier));
}

} // namespace velm
