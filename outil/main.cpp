#include "core/raisons.h"
#include "core/reglages.h"
#include "outil/sortie.h"
#include "platform/system/files.h"
#include "platform/text/failure.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace velm;

namespace {

struct Commande {
    const char* nom;
    int description; ///< text of one line
    int arguments;   ///< text that names the arguments
    int (*fait)(outil::Contexte&);
};

constexpr Commande commandes[] = {{"compiler", 9310, 9390, outil::compiler}, {"synthese", 9311, 9391, outil::synthese},
                                  {"info", 9312, 9392, outil::info},         {"document", 9313, 9393, outil::document},
                                  {"texte", 9314, 9394, outil::texte},       {"rtf", 9315, 9394, outil::rtf},
                                  {"formats", 9316, 9394, outil::formats},   {"dossiers", 9318, 9392, outil::dossiers},
                                  {"mots", 9450, 9452, outil::mots},         {"rapide", 9451, 9453, outil::rapide},
                                  {"criteres", 9473, 9474, outil::criteres}, {"cv2", 9475, 9476, outil::cv2}};

void aide(outil::Contexte& contexte) {
    contexte.ligne(contexte.texte(9301));
    contexte.ligne(contexte.texte(9300));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9302));
    for (const Commande& commande : commandes)
        contexte.ligne(QStringLiteral("  %1 %2\n      %3")
                           .arg(QString::fromLatin1(commande.nom), contexte.texte(commande.arguments),
                                contexte.texte(commande.description)));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9303));
    for (const int id : {9304, 9305, 9307, 9454, 9477, 9478, 9479, 9480, 9306, 9317})
        contexte.ligne(QStringLiteral("  ") + contexte.texte(id));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9308));
    for (int code = 0; code <= outil::DocumentAbsent; ++code)
        contexte.ligne(QStringLiteral("  %1  %2").arg(code).arg(contexte.texte(9320 + code)));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9309));
}

int execute(outil::Contexte& contexte, const QString& nom) {
    for (const Commande& commande : commandes) {
        if (nom != QLatin1String(commande.nom))
            continue;
        if (contexte.option(QStringLiteral("--help"))) {
            contexte.ligne(QStringLiteral("velmoutil %1 %2").arg(nom, contexte.texte(commande.arguments)));
            contexte.ligne(contexte.texte(commande.description));
            return outil::Reussite;
        }
        return commande.fait(contexte);
    }
    return contexte.echoue(outil::LigneIncorrecte, 9335, {nom});
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QString dossier = QCoreApplication::applicationDirPath();
    QStringList manquants;
    Langue langue([&](const QString& numero) { manquants.append(numero); });
    ReglagesStore magasin;
    Reglages reglages(magasin);
    reglages.choisitmaitre(joinPath(dossier, u"master.ini"));
    langue.choisitfichier(
        dossier, dossier,
        reglages.texte(QStringLiteral("LANGUE"), QStringLiteral("EXTENSION"), QStringLiteral("FR"), true));
    setRuntimeErrorHandler([&](const RuntimeFailure& erreur) {
        outil::Contexte contexte(langue, {}, dossier);
        contexte.erreur(raisondelerreur(langue, erreur));
        std::_Exit(outil::Echec);
    });

    QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString nom = arguments.isEmpty() ? QString() : arguments.takeFirst();
    outil::Contexte contexte(langue, arguments, dossier);
    int code = outil::Reussite;
    if (nom == u"--version")
        contexte.ligne(QStringLiteral(VELM_VERSION));
    else if (nom.isEmpty() || nom == u"--help")
        aide(contexte);
    else
        code = execute(contexte, nom);
    if (nom.isEmpty())
        code = outil::LigneIncorrecte;
    // A result that a full disk has cut is no success.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        code = contexte.echoue(outil::Echec, 9331, {QStringLiteral("stdout"), qt_error_string()});
    // A text that is missing everywhere shows as its number, as in the program.
    for (const QString& numero : std::as_const(manquants))
        contexte.erreur(numero);
    return code;
}
