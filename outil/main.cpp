#include "core/noms.h"
#include "core/raisons.h"
#include "core/reglages.h"
#include "core/tablereglages.h"
#include "core/texte.h"
#include "outil/commande.h"
#include "outil/sortie.h"
#include "platform/base/failure.h"
#include "platform/system/files.h"
#include "platform/typeset/headless.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// What stands on the line besides a command.
int lance(outil::Contexte& contexte, QStringList ligne) {
    if (ligne.isEmpty()) {
        outil::aide(contexte);
        return outil::LigneIncorrecte;
    }
    const QString nom = ligne.takeFirst();
    const bool version = nom == u"--version";
    if (!version && !QString::fromLatin1(outil::optionaide.noms).split(u' ').contains(nom))
        return outil::execute(contexte, nom, ligne);
    if (!ligne.isEmpty())
        return contexte.echoue(outil::LigneIncorrecte, Texte::ArgumentEnTrop, {ligne.first()});
    if (version)
        contexte.ligne(QStringLiteral(VELM_VERSION));
    else
        outil::aide(contexte);
    return outil::Reussite;
}

int lancesansdeborder(outil::Contexte& contexte, const QStringList& ligne) {
    try {
        return lance(contexte, ligne);
    } catch (const std::bad_alloc&) {
        contexte.erreur(contexte.texte(Texte::RaisonMemoire));
        return outil::Echec;
    }
}

/// Pages are set with fonts, which need more of the toolkit than other commands, but no display.
std::unique_ptr<QCoreApplication> lapplication(int& argc, char** argv) {
    if (argc < 2 || QByteArrayView(argv[1]) != "pdf")
        return std::make_unique<QCoreApplication>(argc, argv);
    return headlessApplication(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    const std::unique_ptr<QCoreApplication> application = lapplication(argc, argv);
    const QString dossier = QCoreApplication::applicationDirPath();
    QStringList manquants;
    Langue langue([&](const QString& numero) { manquants.append(numero); });
    ReglagesStore magasin(noms::fichierreglages());
    Reglages reglages(magasin);
    reglages.choisitmaitre(joinPath(dossier, u"master.ini"));
    langue.choisitfichier(dossier, dossier, reglages.lit(reglage::langue));
    setRuntimeErrorHandler([&](const RuntimeFailure& erreur) {
        outil::Contexte contexte(langue, dossier);
        contexte.erreur(raisondelerreur(langue, erreur));
        std::_Exit(outil::Echec);
    });

    outil::Contexte contexte(langue, dossier);
    int code = lancesansdeborder(contexte, QCoreApplication::arguments().mid(1));
    // A result that a full disk has cut is no success.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        code = contexte.echoue(outil::Echec, Texte::FichierNonEcrit, {u"stdout"_s, qt_error_string()});
    // A text that is missing everywhere shows as its number, as in the program.
    for (const QString& numero : std::as_const(manquants))
        contexte.erreur(numero);
    return code;
}
