#include "shell/logique/connexion.h"

#include "core/obstacles.h"
#include "platform/system/files.h"

#include <limits>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QStringView nomdelabase = u"velm2000.dat";

} // namespace

Connexion::Connexion(Monde monde) : monde_(std::move(monde)) {
    ouvre();
}

bool Connexion::ouvre() {
    erreur_ = monde_.corpus.connecte(monde_.seance.fichierbase());
    return erreur_ == OpenError::None;
}

bool Connexion::reessaie() {
    return ouvre();
}

bool Connexion::parcourtlecteurs() {
    for (const Lecteur& lecteur : monde_.lecteurs.liste()) {
        if (lecteur.genre != Lecteur::Genre::Optique || !lecteur.pret ||
            !fileExists(joinPath(lecteur.racine, nomdelabase)))
            continue;
        monde_.seance.choisitrepertoiredebase(lecteur.racine);
        if (!surledisque(lecteur.racine))
            break;
        if (ouvre())
            return true;
    }
    return monde_.corpus.connecte();
}

/// Offers the copy and makes it. False when there is no room for it: then the other drives are left alone.
bool Connexion::surledisque(const QString& racine) {
    Langue& langue = monde_.langue;
    const QString question = langue.lireressource(7401) + u" ?\r\n"_s + langue.lireressource(7402) + u"\r\n\r\n"_s +
                             langue.lireressource(7403);
    if (monde_.dialogues.message(question, langue.lireressource(7400) + u' ' + racine, Icone::Question,
                                 Bouton::Oui | Bouton::Non, Bouton::Non) != Bouton::Oui)
        return true;
    return copie();
}

bool Connexion::copie() {
    Langue& langue = monde_.langue;
    const QString source = monde_.seance.fichierbase();
    // Where nobody knows how much is left, the copy tells.
    const qint64 place = placelibre(monde_.dossierprogramme).value_or(std::numeric_limits<qint64>::max());
    if (place < fileSize(source).value_or(0)) {
        monde_.dialogues.message(langue.lireressource(9500), langue.lireressource(7100), Icone::Exclamation);
        return false;
    }
    const QString cible = joinPath(monde_.dossierprogramme, nomdelabase);
    monde_.copie.commence(langue.lireressource(7404));
    const CopieResultat resultat = copiefichier(source, cible, monde_.copie.avance);
    monde_.copie.finit();
    if (!resultat.ok()) {
        // The base stays readable where it is.
        monde_.dialogues.message(u"Erreur de copie"_s, langue.lireressource(8), Icone::Stop);
        return true;
    }
    makeWritable(cible);
    monde_.seance.choisitrepertoiredebase(monde_.dossierprogramme);
    return true;
}

bool Connexion::cherche() {
    Langue& langue = monde_.langue;
    ChoixFichier choix;
    choix.titre = langue.lireressource(7100);
    choix.dossier = monde_.seance.parametres().repertoiredebase;
    choix.filtre = langue.lireressource(2152) + u" (*.DAT)|*.DAT|"_s + langue.lireressource(2405) + u" (*.*)|*.*"_s;
    const std::optional<QString> choisi = monde_.dialogues.openFile(choix);
    if (!choisi)
        return false;
    monde_.seance.choisitrepertoiredebase(folderOf(*choisi));
    return ouvre();
}

QString Connexion::lieu() const {
    return monde_.langue.lireressource(7101) + u'"' + monde_.seance.parametres().repertoiredebase + u"\"."_s;
}

QString Connexion::cause() const {
    const QString fichier = monde_.seance.fichierbase();
    switch (erreur_) {
    case OpenError::None:
    case OpenError::Missing:
        return monde_.langue.lireressource(7102);
    case OpenError::OldEngine:
        return remplace(monde_.langue.lireressource(9403), {fichier});
    case OpenError::Foreign:
        return remplace(monde_.langue.lireressource(9404), {fichier});
    case OpenError::Unreadable:
    case OpenError::ReadOnly:
        break;
    }
    const Corpus::Echec& echec = monde_.corpus.echec();
    const auto texte = [this](int numero) { return monde_.langue.lireressource(numero); };
    return remplace(monde_.langue.lireressource(9330), {fichier, raison(echec.kind, echec.words, texte)});
}

} // namespace velm
