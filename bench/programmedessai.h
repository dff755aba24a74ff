#pragma once
// The whole program in a folder of its own, over a base of the bench's, without what asks at its start and at its end.
#include "platform/system/settings.h"
#include "platform/system/ui/qtdialogues.h"
#include "platform/system/ui/qtimprimante.h"
#include "platform/system/ui/qtoutside.h"
#include "shell/programme.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace velm::bench {

/// Puts its base at a path; false when that cannot be.
using PoseBase = std::function<bool(const QString& chemin)>;

inline PoseBase lien(const QString& base) {
    return [base](const QString& chemin) { return QFile::link(QFileInfo(base).absoluteFilePath(), chemin); };
}

class ProgrammeDessai {
public:
    explicit ProgrammeDessai(const PoseBase& base) {
        QDir(dossier_.path()).mkpath(QStringLiteral("langues"));
        QFile::copy(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.FR"),
                    dossier_.filePath(QStringLiteral("langues/RES2000.FR")));
        if (!base(dossier_.filePath(QStringLiteral("velm2000.dat"))))
            return;
        ecrit(u"OPTIONS", u"TIPS", QStringLiteral("0"));
        ecrit(u"GENERALITES", u"CHECKQUIT", QStringLiteral("1"));
    }
    /// A setting, before the start.
    void ecrit(QStringView section, QStringView nom, const QString& valeur) const {
        ReglagesStore(reglages()).save(section, nom, valeur);
    }
    /// True when the program runs.
    bool demarre() {
        if (!QFile::exists(dossier_.filePath(QStringLiteral("velm2000.dat"))))
            return false;
        OptionsProgramme options;
        options.dossierprogramme = dossier_.path();
        options.fichierprogramme = dossier_.filePath(QStringLiteral("velm2000"));
        options.fichierreglages = reglages();
        options.dossierinstance = dossier_.path();
        options.dossierdonnees = dossier_.filePath(QStringLiteral("donnees"));
        programme_ =
            std::make_unique<Programme>(options, MondeExterieur{dialogues_, navigateur_, processus_, sablier_,
                                                                pressepapiers_, courrier_, imprimante_, lecteurs_});
        prete_ = programme_->demarre() == Demarrage::EnMarche;
        peint();
        return prete_;
    }
    bool prete() const { return prete_; }
    Programme& programme() const { return *programme_; }

    /// Paints what waits to be painted.
    static void peint() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    /// Lets go of windows that were closed.
    static void oublie() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

private:
    QString reglages() const { return dossier_.filePath(QStringLiteral("reglages.ini")); }

    QTemporaryDir dossier_;
    QtDialogues dialogues_{[](int) {}};
    QtNavigateur navigateur_;
    SystemProcessus processus_;
    SablierMuet sablier_;
    QtPressePapiers pressepapiers_;
    SystemCourrier courrier_;
    QtImprimante imprimante_;
    SystemLecteurs lecteurs_;
    std::unique_ptr<Programme> programme_;
    bool prete_ = false;
};

} // namespace velm::bench
