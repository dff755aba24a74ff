#include "core/fichiersechanges.h"

#include "core/langue.h"
#include "core/obstacles.h"
#include "platform/system/files.h"
#include "platform/text/ansi.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

std::optional<QByteArray> FichiersEchanges::lit(const QString& chemin, QStringView entete) const {
    const FileBytes lus = [&] {
        const Attente attente(sablier_);
        return readBeginningWith(chemin, ansi::encode(entete));
    }();
    if (lus.ok())
        return lus.bytes;
    dialogues_.message(texte_(Texte::LeFichier) + u' ' + chemin + u' ' + texte_(Texte::NePeutPasEtreOuvert),
                       texte_(Texte::TitreOuvertureImpossible), Icone::Stop);
    return std::nullopt;
}

void FichiersEchanges::ditautreformat() const {
    dialogues_.message(texte_(Texte::FormatNonReconnu), texte_(Texte::TitreErreurDeFichier), Icone::Stop);
}

bool FichiersEchanges::enregistre(ChoixFichier ou, Icone icone, const std::function<QByteArray()>& octets) const {
    ou.demanderemplacement = false;
    const std::optional<QString> chemin = dialogues_.saveFile(ou);
    if (!chemin)
        return false;
    if (fileSize(*chemin).value_or(0) != 0 &&
        dialogues_.message(texte_(Texte::LeFichier) + u' ' + *chemin + u' ' + texte_(Texte::ExisteDeja),
                           texte_(Texte::TitreEnregistrement), icone, Bouton::Oui | Bouton::Non) != Bouton::Oui)
        return false;
    const FileError erreur = [&] {
        const Attente attente(sablier_);
        return writeWhole(*chemin, octets());
    }();
    if (!erreur.ok())
        ditnonecrit(*chemin, erreur, Texte::TitreEnregistrement);
    return erreur.ok();
}

void FichiersEchanges::envoie(const QString& nom, const QByteArray& octets) const {
    envoie({{}, u" "_s, nom, octets});
}

void FichiersEchanges::envoie(const Courriel& courriel) const {
    courrier_.compose(courriel, [this, nom = courriel.fileName](Courrier::Failure echec, const FileError& erreur) {
        if (echec == Courrier::Failure::NotWritten)
            ditnonecrit(nom, erreur, Texte::TitreEnvoi);
        else
            dialogues_.message(texte_(Texte::AucuneMessagerie), texte_(Texte::TitreEnvoi), Icone::Exclamation);
    });
}

void FichiersEchanges::ditnonecrit(const QString& nom, const FileError& erreur, Texte titre) const {
    dialogues_.message(remplace(texte_(Texte::FichierPasEnregistre), {nom, raison(erreur.kind, erreur.words, texte_)}),
                       texte_(titre), Icone::Stop);
}

} // namespace velm
