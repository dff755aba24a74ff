#include "core/extensions.h"
#include "core/noms.h"
#include "platform/system/drives.h"
#include "platform/system/settings.h"
#include "platform/system/ui/qtdialogues.h"
#include "platform/system/ui/qtimprimante.h"
#include "platform/system/ui/qtoutside.h"
#include "platform/system/ui/qtsablier.h"
#include "platform/widgets/look/look.h"
#include "shell/application.h"
#include "shell/lancement.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The portable folder beside the executable, or, installed under a prefix, the program's share of it.
QString dossierprogramme() {
    const QString executable = QCoreApplication::applicationDirPath();
    const QString installe = QDir::cleanPath(executable + u"/../share/velmorante2000"_s);
    const bool portable = QDir(executable + u"/langues"_s).exists() || !QDir(installe).exists();
    return portable ? executable : installe;
}

} // namespace

int main(int argc, char** argv) {
    velm::Application application(argc, argv);
    QCoreApplication::setApplicationName(u"VELMORANTE2000"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VELM_VERSION));
    velm::look::apply(application, velm::look::themeOf(application.palette()));

    // The boxes' help button needs the program, which needs the boxes.
    velm::Programme* programmepret = nullptr;
    velm::QtDialogues dialogues(
        [&](int) {
            if (programmepret)
                programmepret->ouvreaide();
        },
        [&] { return programmepret && programmepret->aidepresente(); });
    velm::QtNavigateur navigateur;
    velm::SystemProcessus processus;
    velm::QtSablier sablier;
    velm::QtPressePapiers pressepapiers;
    velm::SystemCourrier courrier;
    velm::QtImprimante imprimante;
    const velm::SystemLecteurs lecteurs;
    velm::OptionsProgramme options;
    options.dossierprogramme = dossierprogramme();
    options.fichierprogramme = QCoreApplication::applicationFilePath();
    options.lignedecommande = QCoreApplication::arguments().mid(1).join(u' ');
    options.fichierreglages = velm::noms::fichierreglages();
    options.dossierinstance = velm::SingleInstance::defaultFolder(velm::noms::dossierducache());
    options.dossierdonnees = velm::Extensions::defaultDataFolder();
    return velm::lance(application, options,
                       {dialogues, navigateur, processus, sablier, pressepapiers, courrier, imprimante, lecteurs},
                       [&](velm::Programme& programme) {
                           programmepret = &programme;
                           dialogues.setCaptions(
                               [&programme](velm::Bouton bouton) { return programme.libellebouton(bouton); });
                           imprimante.setMots([&programme] { return programme.motsdelimprimante(); });
                           dialogues.setKinds([&programme] { return programme.sortesdefichiers(); });
                       });
}
