#include "dossiers/fichiersdossiers.h"

#include "platform/system/files.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

ChoixFichier FichiersDossiers::choix(Texte titre, Texte filtre) const {
    ChoixFichier choix;
    choix.titre = texte_(titre);
    choix.filtre = texte_(filtre) + u"(*.dv2)|*.dv2"_s;
    choix.extension = u"dv2"_s;
    return choix;
}

std::optional<QString> FichiersDossiers::choisi() {
    std::optional<QString> chemin = dialogues_.openFile(choix(Texte::OuvrirFichierDossier, Texte::FichiersDuProgramme));
    if (chemin && chemin->right(4).toUpper() != u".DV2" &&
        dialogues_.message(texte_(Texte::QuestionExtensionImprevue), texte_(Texte::TitreExtensionImprevue),
                           Icone::Question, Bouton::Oui | Bouton::Non) != Bouton::Oui)
        return std::nullopt;
    return chemin;
}

std::optional<FichierDossier> FichiersDossiers::ouvre(const QString& nom) {
    const std::optional<QString> chemin = nom.isEmpty() ? choisi() : nom;
    if (!chemin)
        return std::nullopt;
    const std::optional<QByteArray> octets = fichiers_.lit(*chemin, FichierDossier::entete);
    std::optional<FichierDossier> lu = octets ? litfichierdossier(*octets) : std::nullopt;
    if (octets && !lu)
        fichiers_.ditautreformat();
    return lu;
}

bool FichiersDossiers::enregistre(const FichierDossier& fichier) {
    ChoixFichier ou = choix(Texte::EnregistrerDossier, Texte::TitreDossiers);
    const QString nom = fileNameOf(fichier.nom);
    ou.nom = (nom.isEmpty() ? texte_(Texte::TitreDossiers).trimmed() : nom) + u".dv2"_s;
    return fichiers_.enregistre(ou, Icone::Stop, [&fichier] { return ecritfichierdossier(fichier); });
}

void FichiersDossiers::envoie(const FichierDossier& fichier) {
    fichiers_.envoie(u"VELM2000.DV2"_s, ecritfichierdossier(fichier));
}

} // namespace velm
