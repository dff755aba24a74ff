#include "shell/lancement.h"

#include "platform/system/endsignals.h"
#include "shell/application.h"

#include <QThread>

#include <cstdlib>
#include <new>
#include <utility>

namespace velm {

namespace {

class Lancement {
public:
    Lancement(Application& application, Programme& programme)
        : application_(application), programme_(programme), signaux_([this] { termine(); }) {
        avant_ = setRuntimeErrorHandler([this](const RuntimeFailure& erreur) { echoue(erreur); });
        application_.finvoulue = [this] { termine(); };
        application_.sansmemoire = [this] { programme_.ditsansmemoire(false); };
    }
    ~Lancement() {
        application_.finvoulue = nullptr;
        application_.sansmemoire = nullptr;
        setRuntimeErrorHandler(std::move(avant_));
    }
    Lancement(const Lancement&) = delete;
    Lancement& operator=(const Lancement&) = delete;
    Lancement(Lancement&&) = delete;
    Lancement& operator=(Lancement&&) = delete;

    int execute() {
        if (!demarre())
            return code_;
        if (finattendue_) {
            programme_.termine();
            return EXIT_SUCCESS;
        }
        // The session's end may be called off: what it asks for is written, and the run goes on.
        const auto enregistre = [this] { programme_.enregistre(); };
        QObject::connect(&application_, &QGuiApplication::commitDataRequest, &programme_, enregistre);
        QObject::connect(&application_, &QGuiApplication::saveStateRequest, &programme_, enregistre);
        return QApplication::exec();
    }

private:
    bool demarre() {
        try {
            enmarche_ = programme_.demarre() == Demarrage::EnMarche;
        } catch (const std::bad_alloc&) {
            code_ = EXIT_FAILURE;
            programme_.ditsansmemoire(true);
        }
        return enmarche_;
    }

    /// An error that nothing catches. The calls below this one do not go on.
    [[noreturn]] void echoue(const RuntimeFailure& erreur) {
        // What fails while the box stands must neither open a second one nor take the first one away.
        if (std::exchange(enechec_, true))
            attendlaboite();
        else
            programme_.erreurfatale(erreur);
        std::_Exit(EXIT_FAILURE);
    }

    static void attendlaboite() {
        while (QApplication::activeModalWidget())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// The end that nobody is asked about.
    void termine() {
        if (enechec_)
            std::_Exit(EXIT_FAILURE);
        if (enmarche_)
            programme_.termine();
        // A question that stands would go on with an answer that nobody gave, on a base that is closed.
        const bool enquestion = QThread::currentThread()->loopLevel() > (enmarche_ ? 1 : 0);
        if (enquestion)
            std::_Exit(EXIT_SUCCESS);
        // A loop that does not run yet would forget that it is to end.
        finattendue_ = !enmarche_;
        QCoreApplication::exit(EXIT_SUCCESS);
    }

    Application& application_;
    Programme& programme_;
    EndSignals signaux_;
    RuntimeErrorHandler avant_;
    bool enmarche_ = false;
    bool enechec_ = false;
    bool finattendue_ = false; ///< wished while the program was starting: it ends once it has started
    int code_ = EXIT_SUCCESS;
};

} // namespace

int lance(Application& application, const OptionsProgramme& options, const MondeExterieur& monde,
          const std::function<void(Programme&)>& pret) {
    Programme programme(options, monde);
    if (pret)
        pret(programme);
    return Lancement(application, programme).execute();
}

} // namespace velm
