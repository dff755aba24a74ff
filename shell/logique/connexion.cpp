#include "shell/logique/connexion.h"

#include "core/noms.h"
#include "core/obstacles.h"
#include "core/texte.h"
#include "platform/system/files.h"

#include <limits>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

} // namespace

Connexion::Connexion(Services services) : services_(std::move(services)) {
    ouvre();
}

bool Connexion::ouvre() {
    erreur_ = services_.corpus.connecte(services_.seance.fichierbase());
    return erreur_ == OpenError::None;
}

bool Connexion::reessaie() {
    return ouvre();
}

bool Connexion::parcourtlecteurs() {
    for (const Lecteur& lecteur : services_.lecteurs.liste()) {
        if (lecteur.genre != Lecteur::Genre::Optique || !lecteur.pret ||
            !fileExists(joinPath(lecteur.racine, noms::base)))
            continue;
        services_.seance.choisitrepertoiredebase(lecteur.racine);
        if (!surledisque(lecteur.racine))
            break;
        if (ouvre())
            return true;
    }
    return services_.corpus.connecte();
}

/// Offers the copy and makes it. False when there is no room for it: then the other drives are left alone.
bool Connexion::surledisque(const QString& racine) {
    Langue& langue = services_.langue;
    const QString question = langue.lireressource(Texte::QuestionCopierLaBase) + u"\r\n"_s +
                             langue.lireressource(Texte::AvantageDeLaCopie) + u"\r\n\r\n"_s +
                             langue.lireressource(Texte::LectureSansCopie);
    if (services_.dialogues.message(question, langue.lireressource(Texte::TitreBaseSurLecteur) + u' ' + racine,
                                    Icone::Question, Bouton::Oui | Bouton::Non, Bouton::Non) != Bouton::Oui)
        return true;
    return copie();
}

bool Connexion::copie() {
    Langue& langue = services_.langue;
    const QString source = services_.seance.fichierbase();
    // Where nobody knows how much is left, the copy tells.
    const qint64 place = placelibre(services_.dossierprogramme).value_or(std::numeric_limits<qint64>::max());
    if (place < fileSize(source).value_or(0)) {
        services_.dialogues.message(langue.lireressource(Texte::PasDePlacePourCopier),
                                    langue.lireressource(Texte::TitreConnexion), Icone::Exclamation);
        return false;
    }
    const QString cible = joinPath(services_.dossierprogramme, noms::base);
    services_.copie.commence(langue.lireressource(Texte::CopieDeLaBase));
    const CopieResultat resultat = copiefichier(source, cible, services_.copie.avance);
    services_.copie.finit();
    if (!resultat.ok()) {
        // The base stays readable where it is.
        services_.dialogues.message(u"Erreur de copie"_s, langue.lireressource(Texte::NomDuProgramme), Icone::Stop);
        return true;
    }
    makeWritable(cible);
    services_.seance.choisitrepertoiredebase(services_.dossierprogramme);
    return true;
}

bool Connexion::cherche() {
    Langue& langue = services_.langue;
    ChoixFichier choix;
    choix.titre = langue.lireressource(Texte::TitreConnexion);
    choix.dossier = services_.seance.parametres().repertoiredebase;
    choix.filtre = langue.lireressource(Texte::BaseDocumentaire) + u" (*.DAT)|*.DAT|"_s +
                   langue.lireressource(Texte::TousLesFichiers) + u" (*.*)|*.*"_s;
    const std::optional<QString> choisi = services_.dialogues.openFile(choix);
    if (!choisi)
        return false;
    services_.seance.choisitrepertoiredebase(folderOf(*choisi));
    return ouvre();
}

QString Connexion::lieu() const {
    return services_.langue.lireressource(Texte::BasePasOuverteDans) + u'"' +
           services_.seance.parametres().repertoiredebase + u"\"."_s;
}

QString Connexion::cause() const {
    const QString fichier = services_.seance.fichierbase();
    switch (erreur_) {
    case OpenError::None:
    case OpenError::Missing:
        return services_.langue.lireressource(Texte::DisqueOuBaseAbsents);
    case OpenError::OldEngine:
        return remplace(services_.langue.lireressource(Texte::BaseDUnAncienMoteur), {fichier});
    case OpenError::Foreign:
        return remplace(services_.langue.lireressource(Texte::BaseEndommagee), {fichier});
    case OpenError::Unreadable:
    case OpenError::ReadOnly:
        break;
    }
    const Corpus::Echec& echec = services_.corpus.echec();
    const auto texte = [this](Texte numero) { return services_.langue.lireressource(numero); };
    return remplace(services_.langue.lireressource(Texte::FichierIllisible),
                    {fichier, raison(echec.kind, echec.words, texte)});
}

} // namespace velm
