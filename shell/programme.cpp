#include "shell/programme.h"

#include "core/extensions.h"
#include "core/noms.h"
#include "core/obstacles.h"
#include "core/texte.h"
#include "shell/bureau.h"
#include "shell/frmconnexion.h"
#include "shell/logique/connexion.h"

#include <QFileInfo>

#include <utility>

/// A library's resources do not come in by themselves; the macro wants the global name space.
static void initialiseressources() {
    Q_INIT_RESOURCE(velm);
}

namespace velm {

Programme::Programme(const OptionsProgramme& options, MondeExterieur monde)
    : options_(options), monde_(monde), instance_(noms::verrou(), options.dossierinstance),
      magasin_(options.fichierreglages), reglages_(magasin_),
      langue_([this](const QString& numero) { avis_.textemanquant(numero); }), avis_(monde.dialogues, langue_),
      accueil_(langue_, monde.sablier, options.patience),
      impressions_({reglages_, langue_, corpus_, styles_, seance_, monde_}),
      dossiers_({reglages_, langue_, corpus_, seance_, monde_, impressions_}), aide_{seance_, langue_, monde_},
      cadre_({reglages_, langue_, corpus_, styles_, seance_, fin_, monde_, aide_, dossiers_, impressions_}),
      seance_(environnement(), reglages_, langue_, corpus_, monde.dialogues, ecrans()),
      fin_(seance_, reglages_, langue_, corpus_, monde.dialogues, ecrans()) {
    initialiseressources();
    reglages_.surechec([this](const FileError& raison) { ditechec(raison); });
}

Programme::~Programme() {
    cadre_.decharge();
}

Ecrans Programme::ecrans() {
    return {accueil_, cadre_, dossiers_, impressions_, [this] { litstyles(); }, [this] { return connexion(); }};
}

Environnement Programme::environnement() {
    Environnement env;
    env.dossierprogramme = options_.dossierprogramme;
    env.fichierprogramme = options_.fichierprogramme;
    env.nomprogramme = QFileInfo(options_.fichierprogramme).completeBaseName();
    env.lignedecommande = options_.lignedecommande;
    env.autreinstance = [this] { return !instance_.first(); };
    // The handle of the settings names nothing here: the request to come forward goes to whoever holds the lock.
    env.remonteinstance = [this](const QString&) { instance_.raiseFirst(); };
    env.lance = [this](const QString& programme, const QString& argument) {
        return monde_.processus.runDetached(programme, {argument});
    };
    env.enregistreextensions = [this](const QString& application, const QString& editeur) {
        Extensions::Descriptions descriptions;
        descriptions.application = langue_.lireressource(Texte::NomDuProgramme);
        descriptions.editeur = langue_.lireressource(Texte::Editeur);
        descriptions.criteres = langue_.lireressource(Texte::FichierDeCriteres);
        descriptions.dossier = langue_.lireressource(Texte::FichierDeDossier);
        descriptions.modele = langue_.lireressource(Texte::FichierDEditeur);
        Extensions(options_.dossierdonnees).registerAll(application, editeur, descriptions, &monde_.processus);
    };
    return env;
}

Demarrage Programme::demarre() {
    // A setting that keeps the program from starting can be left aside; later ones end it.
    reglages_.surfaute([this](const RuntimeFailure& faute) { return avis_.continueavecledefaut(faute); });
    const Demarrage issue = seance_.demarre();
    reglages_.surfaute(nullptr);
    if (issue == Demarrage::EnMarche)
        instance_.setOnRaise([this] { cadre_.remonte(); });
    return issue;
}

void Programme::erreurfatale(const RuntimeFailure& erreur) {
    monde_.sablier.fixepointeur(Sablier::defaut);
    accueil_.fermeaccueil();
    avis_.fin(erreur);
    corpus_.fermebase();
}

void Programme::ditsansmemoire(bool audebut) {
    monde_.sablier.fixepointeur(Sablier::defaut);
    if (audebut)
        accueil_.fermeaccueil();
    avis_.sansmemoire(audebut);
}

void Programme::ditechec(const FileError& erreur) {
    // The first write comes before the language file is known: the words have to wait for it.
    if (langue_.fichier().isEmpty()) {
        echecretenu_ = erreur;
        return;
    }
    const auto texte = [this](Texte numero) { return langue_.lireressource(numero); };
    monde_.dialogues.message(
        remplace(texte(Texte::ReglagesPasEnregistres), {magasin_.path(), raison(erreur.kind, erreur.words, texte)}),
        texte(Texte::NomDuProgramme), Icone::Exclamation);
}

SortesFichier Programme::sortesdefichiers() {
    const auto texte = [this](Texte numero) { return langue_.lireressource(numero); };
    return {texte(Texte::SorteDossier), texte(Texte::SorteLecteur), texte(Texte::SorteFichier),
            texte(Texte::SorteFichierSansExtension)};
}

MotsImprimante Programme::motsdelimprimante() {
    return {langue_.lireressource(Texte::AvanceTitre),
            langue_.lireressource(Texte::MenuConfigurerImprimante).remove(u'&'),
            langue_.lireressource(Texte::ConfigurationValider), noms::languedesdocuments.toString()};
}

void Programme::litstyles() {
    if (const auto erreur = std::exchange(echecretenu_, std::nullopt))
        ditechec(*erreur);
    styles_ = velm::litstyles(reglages_, langue_, seance_.parametres().textes);
}

bool Programme::connexion() {
    Connexion::Copie copie;
    copie.commence = [this](const QString& etape) {
        accueil_.montreaccueil();
        seance_.afficheetape(etape);
    };
    copie.avance = [this](double pourcentage) { accueil_.avance(pourcentage); };
    copie.finit = [this] { accueil_.fermeaccueil(); };
    Connexion connexion(
        {seance_, corpus_, monde_.dialogues, monde_.lecteurs, langue_, options_.dossierprogramme, copie});
    if (connexion.parcourtlecteurs())
        return true;
    return frmconnexion([this](Texte numero) { return langue_.lireressource(numero); }, connexion).exec() ==
           QDialog::Accepted;
}

Textes* Programme::fenetre(int indice) const {
    return cadre_.bureau() ? cadre_.bureau()->fenetre(indice) : nullptr;
}

} // namespace velm
