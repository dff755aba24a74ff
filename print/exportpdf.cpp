#include "print/exportpdf.h"

#include "core/langue.h"
#include "core/noms.h"
#include "core/texte.h"
#include "platform/paper/pdffile.h"
#include "platform/paper/printdevice.h"
#include "print/gardeimpression.h"
#include "print/nomdefichier.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Of nothing there is no file.
class RienAExporter : public PrintFailure {
public:
    RienAExporter() : PrintFailure("no sheet") {}
};

} // namespace

ExportPdf::ExportPdf(const Donnees& donnees)
    : donnees_(donnees), fichiers_(donnees.dialogues, donnees.sablier, donnees.courrier, donnees.texte) {}

bool ExportPdf::exporte(const QString& titre, const Compose& compose) {
    ChoixFichier ou;
    ou.titre = donnees_.texte(Texte::TitreExportPdf);
    ou.filtre = donnees_.texte(Texte::FiltrePdf) + u"|*.pdf"_s;
    ou.nom = nomraccourci(QString(titre).replace(u':', u' ')).value_or(QString());
    ou.extension = u"pdf"_s;
    arretee_ = false;
    bool ecrit = false;
    const auto travail = [&] {
        try {
            ecrit = fichiers_.enregistre(ou, Icone::Question, [&] { return octets(titre, compose); });
        } catch (const RienAExporter&) {
            donnees_.dialogues.message(donnees_.texte(Texte::PdfVide), ou.titre, Icone::Information);
        } catch (const PrintFailure& echec) {
            if (!arretee_)
                fichiers_.ditnonecrit(titre, {Obstacle::Other, QString::fromUtf8(echec.what())}, Texte::TitreExportPdf);
        }
    };
    imprimesousgarde(travail, donnees_.dialogues, donnees_.texte);
    donnees_.avancement.finit();
    if (ecrit)
        donnees_.dit(remplace(donnees_.texte(Texte::PdfEcrit), {titre}));
    return ecrit;
}

QByteArray ExportPdf::octets(const QString& titre, const Compose& compose) {
    const auto avance = [this](std::size_t faites, std::size_t toutes) {
        arretee_ = !donnees_.avancement.page(static_cast<int>(faites), static_cast<int>(toutes));
        return !arretee_;
    };
    const JobPages pages = compose([&](const JobPages& celles) { return avance(celles.pages.size(), 0); });
    if (pages.pages.empty())
        throw RienAExporter();
    const PdfProperties proprietes{titre, noms::languedesdocuments.toString(), QDateTime::currentDateTime()};
    QByteArray fichier = pdfOf(pages, proprietes, [&](std::size_t page) { return avance(page, pages.pages.size()); });
    if (fichier.isEmpty())
        throw PrintFailure("stopped");
    return fichier;
}

} // namespace velm
