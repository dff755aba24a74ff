#include "shell/programme.h"

#include "core/extensions.h"
#include "core/noms.h"
#include "document/ui/frmfindform.h"
#include "platform/system/files.h"
#include "shell/bureau.h"
#include "shell/commandes.h"
#include "shell/ecrangeneral.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/splash.h"

#include <QCoreApplication>
#include <QFileInfo>

/// A library's resources do not come in by themselves; the macro wants the global name space.
static void initialiseressources() {
    Q_INIT_RESOURCE(velm);
}

namespace velm {

Programme::Programme(const OptionsProgramme& options, MondeExterieur monde)
    : options_(options), monde_(monde), instance_(noms::verrou(), options.dossierinstance),
      magasin_(options.fichierreglages), reglages_(magasin_),
      langue_([this](const QString& numero) { avis_.textemanquant(numero); }), avis_(monde.dialogues, langue_),
      seance_(environnement(), reglages_, langue_, corpus_, monde.dialogues, *this), barres_(reglages_) {
    initialiseressources();
    reglages_.surechec([this](const FileError& raison) { ditechec(raison); });
}

Programme::~Programme() = default;

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
        Extensions::Libelles libelles;
        libelles.application = langue_.lireressource(8);
        libelles.editeur = langue_.lireressource(2624);
        libelles.criteres = langue_.lireressource(9440);
        libelles.dossier = langue_.lireressource(9441);
        libelles.modele = langue_.lireressource(9442);
        Extensions(options_.dossierdonnees).registerAll(application, editeur, libelles, &monde_.processus);
    };
    return env;
}

Demarrage Programme::demarre() {
    // A setting that keeps the program from starting can be left aside; later ones end it.
    reglages_.surfaute([this](const RuntimeFailure& faute) { return avis_.continueavecledefaut(faute); });
    const Demarrage issue = seance_.demarre();
    reglages_.surfaute(nullptr);
    if (issue == Demarrage::EnMarche) {
        instance_.setOnRaise([this] {
            if (!ecran_)
                return;
            // Out of the icon, and as large as it was before.
            ecran_->setWindowState(ecran_->windowState() & ~Qt::WindowMinimized);
            ecran_->raise();
            ecran_->activateWindow();
        });
    }
    return issue;
}

void Programme::erreurfatale(const RuntimeFailure& erreur) {
    monde_.sablier.fixepointeur(Sablier::defaut);
    fermeaccueil();
    avis_.fin(erreur);
    corpus_.fermebase();
}

void Programme::ditsansmemoire(bool audebut) {
    monde_.sablier.fixepointeur(Sablier::defaut);
    if (audebut)
        fermeaccueil();
    avis_.sansmemoire(audebut);
}

void Programme::ouvreaide() {
    // Disks that tell upper from lower case may hold the file under its other usual spelling.
    const Preferences& preferences = seance_.preferences();
    for (const QString& nom : {preferences.aidefichier, QStringLiteral("Velm2000.chm")}) {
        const QString chemin = joinPath(preferences.aidechemin, nom);
        if (!nom.isEmpty() && fileExists(chemin)) {
            monde_.navigateur.openFile(chemin);
            return;
        }
    }
    monde_.dialogues.message(langue_.lireressource(7030), langue_.lireressource(8), Icone::Information);
}

} // namespace velm
