// The program with everything that its main function has around it, and a user who reads from a script: each box
// becomes a line on standard output, each deed is done from the event loop once the start is over.
//
//   essai_lancement FOLDER COMMANDLINE ANSWERS DEEDS      (answers and deeds parted by commas)
#include "document/ui/listedeliens.h"
#include "document/ui/textes.h"
#include "document/ui/voletliens.h"
#include "platform/widgets/look/look.h"
#include "shell/actions.h"
#include "shell/application.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/lancement.h"
#include "shell/recherches.h"
#include "tests/support/outside_script.h"

#include <QAction>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QSessionManager>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <new>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

void dit(const QJsonObject& objet) {
    std::printf("%s\n", QJsonDocument(objet).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

/// The boxes of the script: they say themselves and are answered at once. The end of an answer says more: "+" ticks the
/// box's option, "!" lets the wish that the process end come in first, and the events run.
class Boites final : public Dialogues {
public:
    explicit Boites(QStringList reponses) : reponses_(std::move(reponses)) {}

    using Dialogues::message;
    Bouton message(const Message& message) override {
        dit({{u"texte"_s, message.texte},
             {u"titre"_s, message.titre},
             {u"boutons"_s, static_cast<int>(message.boutons.toInt())},
             {u"option"_s, message.option}});
        if (pendant)
            pendant();
        const QString reponse = reponses_.isEmpty() ? QString() : reponses_.takeFirst();
        if (message.optioncochee)
            *message.optioncochee = reponse.endsWith(u'+');
        if (reponse.endsWith(u'!')) {
            ::raise(SIGTERM);
            QCoreApplication::processEvents();
        }
        if (reponse.startsWith(u"oui"))
            return Bouton::Oui;
        if (reponse.startsWith(u"non"))
            return Bouton::Non;
        return boutonAbandon(message.boutons);
    }
    std::optional<QString> openFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> saveFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> chooseFolder(const QString&, const QString&) override { return std::nullopt; }

    std::function<void()> pendant; ///< happens while a box stands

private:
    QStringList reponses_;
};

/// What the toolkit hands out; nobody who listens looks at it.
QSessionManager& session() {
    alignas(QSessionManager) static std::byte rien[sizeof(QSessionManager)];
    return reinterpret_cast<QSessionManager&>(rien);
}

class Scenario {
public:
    Scenario(Application& application, Programme& programme, Boites& boites, QString reglages, QStringList faits)
        : application_(application), programme_(programme), boites_(boites), reglages_(std::move(reglages)),
          faits_(std::move(faits)) {}

    void suite() {
        QTimer::singleShot(0, &application_, [this] { prochain(); });
    }

private:
    void prochain() {
        if (!programme_.ecran() || !programme_.ecran()->isVisible())
            return suite();
        if (faits_.isEmpty())
            return;
        const QString fait = faits_.takeFirst();
        suite();
        dit({{u"fait"_s, fait}});
        fais(fait.section(u'=', 0, 0), fait.section(u'=', 1));
    }

    void fais(const QString& fait, const QString& valeur) {
        if (fait == u"navigue")
            programme_.bureau().navigation().navigue(valeur);
        else if (fait == u"mots")
            cherche(valeur);
        else if (fait == u"liens")
            programme_.fenetre(0)->volet().liens().ouvre(decoupecle(valeur));
        else if (fait == u"astucefautive")
            astucefautive();
        else if (fait == u"memoire")
            throw std::bad_alloc();
        else if (fait == u"memoireenboite")
            boites_.pendant = [this] {
                QTimer::singleShot(0, &application_, [] { throw std::bad_alloc(); });
                QCoreApplication::processEvents();
            };
        else if (fait == u"echecenboite")
            echecenboite();
        else if (fait == u"question")
            QMessageBox::question(programme_.ecran(), u"?"_s, u"?"_s);
        else if (fait == u"session")
            emit application_.commitDataRequest(session());
        else if (fait == u"etat")
            emit application_.saveStateRequest(session());
        else if (fait == u"finbureau")
            QCoreApplication::quit();
        else if (fait == u"quitte")
            programme_.quitteprogramme();
    }

    void cherche(const QString& mots) {
        FichierCriteres fichier;
        fichier.ongletrecherche = static_cast<int>(Onglet::Mots);
        fichier.Textedico = mots;
        fichier.boutons.fill(true);
        programme_.recherches().montre(true);
        Formulaire& formulaire = programme_.recherches().formulaire()->formulaire();
        formulaire.prendfichier(fichier);
        formulaire.clic(Onglet::Mots);
    }

    /// Another program spoils a setting that is read again later; the next write brings it in.
    void astucefautive() {
        ReglagesStore(reglages_).save(u"OPTIONS", u"TIPS", u"jamais"_s);
        programme_.ecran()->pieces().actions.de(Ordre::UneFenetre).trigger();
        programme_.cadre().astuce(false);
    }

    /// A real box, in whose event loop the next thing fails; it is answered afterwards.
    void echecenboite() {
        boites_.pendant = [this] {
            QMessageBox boite(programme_.ecran());
            QTimer::singleShot(0, &boite, [] { runtimeError(Failure::MissingTable, {u"seconde"_s}); });
            QTimer::singleShot(200, &boite, [&boite] {
                dit({{u"visible"_s, boite.isVisible()}});
                boite.accept();
            });
            boite.exec();
        };
        runtimeError(Failure::MissingTable, {u"premiere"_s});
    }

    Application& application_;
    Programme& programme_;
    Boites& boites_;
    QString reglages_;
    QStringList faits_;
};

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    look::apply(application, look::Theme::Light);
    const QStringList arguments = QCoreApplication::arguments();
    const QString dossier = arguments.value(1);
    OptionsProgramme options;
    options.dossierprogramme = dossier;
    options.fichierprogramme = dossier + u"/velm2000"_s;
    options.lignedecommande = arguments.value(2);
    options.fichierreglages = dossier + u"/reglages.ini"_s;
    options.dossierinstance = dossier;
    options.dossierdonnees = dossier + u"/donnees"_s;
    Boites boites(arguments.value(3).split(u',', Qt::SkipEmptyParts));
    test::NavigateurScript navigateur;
    test::ProcessusScript processus;
    SablierMuet sablier;
    test::PressePapiersScript pressepapiers;
    test::CourrierScript courrier;
    test::ImprimanteScript imprimante;
    const test::LecteursScript lecteurs;
    std::unique_ptr<Scenario> scenario;
    const int code = lance(
        application, options, {boites, navigateur, processus, sablier, pressepapiers, courrier, imprimante, lecteurs},
        [&](Programme& programme) {
            scenario = std::make_unique<Scenario>(application, programme, boites, options.fichierreglages,
                                                  arguments.value(4).split(u',', Qt::SkipEmptyParts));
            scenario->suite();
        });
    dit({{u"rendu"_s, code}});
    return code;
}
