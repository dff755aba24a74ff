#include "shell/logique/seance.h"

#include "core/cle.h"
#include "core/noms.h"
#include "core/tablereglages.h"
#include "core/texte.h"
#include "platform/base/failure.h"
#include "platform/base/memory.h"
#include "platform/system/files.h"
#include "platform/text/number.h"

#include <QFile>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

bool finitpar(const QString& ligne, QStringView extension) {
    return ligne.right(4).toUpper() == extension;
}

} // namespace

Seance::Seance(Environnement environnement, Reglages& reglages, Langue& langue, Corpus& corpus, Dialogues& dialogues,
               const Ecrans& ecrans)
    : env_(std::move(environnement)), reglages_(reglages), langue_(langue), corpus_(corpus), dialogues_(dialogues),
      ecrans_(ecrans) {}

void Seance::afficheetape(const QString& texte) {
    ecrans_.accueil.afficheetape(texte + u"..."_s);
}

QString Seance::libelle(int indice) {
    return langue_.lireressource(libelledefenetre(indice));
}

QString Seance::libelleetape(int indice) {
    return libelle(indice) + u" - "_s + langue_.lireressource(Texte::EtapeFenetres);
}

void Seance::choisitrepertoiredebase(const QString& repertoire) {
    parametres_.repertoiredebase = repertoire;
    fichierbase_ = joinPath(repertoire, noms::base);
}

Demarrage Seance::demarre() {
    if (env_.autreinstance()) {
        env_.remonteinstance(reglages_.lit(reglage::instance));
        return Demarrage::AutreInstance;
    }
    restaureriched();
    reglages_.ecrit(reglage::dossierapplication, env_.dossierprogramme);
    parametres_ = litparametres(reglages_, langue_, env_.dossierprogramme);
    env_.enregistreextensions(parametres_.repertoireapplication, parametres_.repertoireediteur);
    ecrans_.litstyles();
    if (parametres_.repertoiredebase.isEmpty())
        parametres_.repertoiredebase = env_.dossierprogramme;
    if (parametres_.repertoireediteur.isEmpty())
        parametres_.repertoireediteur = env_.dossierprogramme;
    choisitrepertoiredebase(parametres_.repertoiredebase);
    afficheetape(langue_.lireressource(Texte::EtapeDemarrage));
    cherchepartenaires();
    if (metajour())
        return Demarrage::MiseAJour;
    ecrans_.accueil.montreaccueil();
    ecrans_.cadre.effacereconstructions();
    preferences_ = litpreferences(reglages_, env_.dossierprogramme);
    if (!ouvrebase())
        return Demarrage::Renonce;
    ecrans_.dossiers.ouvredossiers();
    afficheetape(langue_.lireressource(Texte::EtapeBaseOuverte));
    afficheetape(langue_.lireressource(Texte::EtapeFenetrePrincipale));
    const QString handle = ecrans_.cadre.chargeprincipale();
    reglages_.ecrit(reglage::instance, handle);
    ecrans_.cadre.montreprincipale();
    ecrans_.accueil.fermeaccueil();
    if (!env_.lignedecommande.isEmpty())
        traitelignedecommande(env_.lignedecommande);
    if (reglages_.lit(reglage::astuces) != 0 && !sansastuce_)
        ecrans_.cadre.astuce(documentvoulu_);
    return Demarrage::EnMarche;
}

void Seance::restaureriched() const {
    const QString bibliotheque = joinPath(env_.dossierprogramme, u"riched32.dll");
    const QString reserve = joinPath(env_.dossierprogramme, u"riched32.tmp");
    if (!fileExists(bibliotheque) && fileExists(reserve))
        QFile::rename(reserve, bibliotheque); // a failure is of no consequence
}

void Seance::cherchepartenaires() {
    for (const QStringView nom : {QStringView(u"partners.bmp"), QStringView(u"partners.rle")}) {
        const QString chemin = joinPath(parametres_.repertoireapplication, nom);
        if (fileExists(chemin)) {
            fichierpartenaires_ = chemin;
            return;
        }
    }
    fichierpartenaires_.clear();
}

bool Seance::metajour() {
    const QString outil = joinPath(parametres_.repertoiredebase, u"MAJver.exe");
    if (!fileExists(outil))
        return false;
    const QString nom = env_.nomprogramme + u".exe"_s;
    const auto nouvelle = fileDate(joinPath(parametres_.repertoiredebase, nom));
    auto presente = fileDate(joinPath(env_.dossierprogramme, nom));
    // Where programs have no suffix, the running file itself is the copy in the program's folder.
    if (!presente)
        presente = fileDate(env_.fichierprogramme);
    if (!nouvelle || !presente || *nouvelle <= *presente)
        return false;
    if (othersCanChange(outil)) {
        dialogues_.message(remplace(langue_.lireressource(Texte::MiseAJourModifiable), {outil}),
                           langue_.lireressource(Texte::NomDuProgramme), Icone::Exclamation);
        return false;
    }
    const QString argument = QStringList{withSeparator(env_.dossierprogramme), parametres_.repertoiredebase, nom,
                                         langue_.lireressource(Texte::NomDuProgramme)}
                                 .join(u',');
    return env_.lance(outil, argument);
}

bool Seance::trouvebase() {
    const OpenError erreur = corpus_.connecte(fichierbase_);
    // What is there and is no base that can be read is told, and not passed over for another one.
    if (erreur != OpenError::Missing && erreur != OpenError::Unreadable)
        return erreur == OpenError::None;
    if (corpus_.connecte(joinPath(env_.dossierprogramme, noms::base)) != OpenError::None)
        return false;
    choisitrepertoiredebase(withSeparator(env_.dossierprogramme));
    return true;
}

bool Seance::ouvrebase() {
    bool ouverte = false;
    if (!withinMemory([&] { ouverte = ouvrelabase(); })) {
        ecrans_.accueil.fermeaccueil();
        corpus_.fermebase();
        dialogues_.message(remplace(langue_.lireressource(Texte::BaseTropGrande), {fichierbase_}),
                           langue_.lireressource(Texte::NomDuProgramme), Icone::Stop);
        return false;
    }
    return ouverte;
}

bool Seance::ouvrelabase() {
    if (!trouvebase()) {
        ecrans_.accueil.fermeaccueil();
        if (!ecrans_.connexion() || !corpus_.connecte())
            return false;
    }
    reglages_.ecrit(reglage::dossierbase, parametres_.repertoiredebase);
    corpus_.ouvretables();
    return true;
}

void Seance::traitelignedecommande(const QString& ligne) {
    if (finitpar(ligne, u".DV2")) {
        sansastuce_ = true;
        ecrans_.dossiers.ouvrefichierdossier(ligne);
        return;
    }
    if (const auto cle = clesaisie(ligne))
        ouvrelevoulu(*cle);
}

/// The window of the collection opens even for a document that is not there.
void Seance::ouvrelevoulu(const Cle& cle) {
    documentvoulu_ = true;
    ecrans_.cadre.ouvre(cle);
    bool absent = false;
    failureOf([&] { absent = corpus_.rangee(cle) == nullptr; });
    if (absent)
        dialogues_.message(remplace(langue_.lireressource(Texte::DocumentAbsent), {cle.texte()}),
                           langue_.lireressource(Texte::NomDuProgramme), Icone::Exclamation);
}

PositionFenetre Seance::positionprincipale() {
    PositionFenetre position;
    position.etat = reglages_.lit(reglage::cadreetat);
    position.gauche = reglages_.lit(reglage::cadregauche);
    position.haut = reglages_.lit(reglage::cadrehaut);
    position.largeur = reglages_.lit(reglage::cadrelargeur);
    position.hauteur = reglages_.lit(reglage::cadrehauteur);
    if (position.etat == 1)
        sansastuce_ = true;
    return position;
}

void Seance::restaurefenetres() {
    if (preferences_.restaurefen == 0)
        return;
    const auto lit = [&](const ReglageTexte& reglage, int blancs) {
        const QString texte = reglages_.lit(reglage);
        return texte.isEmpty() ? QString(blancs, u' ') : texte;
    };
    const QString fenetres = lit(reglage::fenetresouvertes, 12);
    const QString contenus = lit(reglage::fenetrescontenus, 88);
    // Two blanks, or two characters that are no number, mean that no window was active.
    const int active = static_cast<int>(wholeNumber(QStringView(fenetres).left(2)).value_or(-1));
    const auto ouvre = [&](int indice) {
        afficheetape(libelleetape(indice));
        const QString cle = contenus.mid(8 * static_cast<qsizetype>(indice), 8);
        if (cle.size() == 8 && !QStringView(cle).trimmed().isEmpty())
            ecrans_.cadre.ouvre(decoupecle(cle));
    };
    for (int indice = 0; indice < nombredecollections; ++indice) {
        if (indice != active && fenetres.mid(indice + 2, 1) == u"X")
            ouvre(indice);
    }
    if (active >= 0 && active < nombredefenetres)
        ouvre(active);
}

void Seance::ouvrecriteresdelaligne() {
    if (finitpar(env_.lignedecommande, u".CV2"))
        ecrans_.cadre.ouvrefichiercriteres(env_.lignedecommande);
}

} // namespace velm
