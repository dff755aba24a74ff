#include "platform/system/ui/qtimprimante.h"

#include "platform/base/twips.h"
#include "platform/paper/pagepainter.h"
#include "platform/paper/pdffile.h"
#include "platform/system/files.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRegularExpression>

#include <cmath>
#include <string>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

int twips(double points) {
    return static_cast<int>(std::lround(points * twipsPerPoint));
}

bool enfichier(const QPrinter& imprimante) {
    return imprimante.outputFormat() == QPrinter::PdfFormat;
}

/// As a file it is made of the pages themselves: its text is text, and it is whole or not there.
void ecritfichier(const QString& chemin, const JobPages& pages, const PdfProperties& proprietes,
                  const Imprimante::Avance& avance) {
    const QByteArray octets =
        pdfOf(pages, proprietes, [&](std::size_t page) { return !avance || avance(static_cast<int>(page)); });
    if (octets.isEmpty())
        throw PrintFailure("stopped");
    if (const FileError erreur = writeWhole(chemin, octets); !erreur.ok())
        throw PrintFailure(erreur.words.toStdString());
}

void peint(QPrinter& imprimante, const JobPages& pages, const Imprimante::Avance& avance) {
    imprimante.setFullPage(true);
    QPainter peintre;
    if (!peintre.begin(&imprimante))
        throw PrintFailure("the printer takes no job");
    entwips(peintre, imprimante, pages);
    PagePainter page(pages);
    for (std::size_t i = 0; i < pages.pages.size(); ++i) {
        if (avance && !avance(static_cast<int>(i))) {
            imprimante.abort();
            throw PrintFailure("stopped");
        }
        if (i > 0 && !imprimante.newPage())
            throw PrintFailure("the printer takes no further page");
        page.paint(peintre, i);
    }
    if (!peintre.end() || imprimante.printerState() == QPrinter::Error)
        throw PrintFailure("the printer has failed");
}

} // namespace

void entwips(QPainter& peintre, const QPaintDevice& papier, const JobPages& pages) {
    peintre.scale(double(papier.logicalDpiX()) / twipsPerInch, double(papier.logicalDpiY()) / twipsPerInch);
    peintre.translate(pages.offsetX, pages.offsetY);
}

QString fichiersuivant(const QString& chemin) {
    const QFileInfo fichier(chemin);
    static const QRegularExpression compte(u" \\((\\d+)\\)$"_s);
    const QString nom = QString(fichier.completeBaseName()).remove(compte);
    for (int numero = 2;; ++numero) {
        const QString autre = fichier.dir().filePath(nom + u" (%1)."_s.arg(numero) + fichier.suffix());
        if (!QFileInfo::exists(autre))
            return autre;
    }
}

PrintDevice::Sheet feuillede(const QPrinter& imprimante) {
    QPageLayout papier = imprimante.pageLayout();
    papier.setUnits(QPageLayout::Point);
    const QRectF entier = papier.fullRect(QPageLayout::Point);
    const QMarginsF bords = papier.minimumMargins();
    return {.width = twips(entier.width()),
            .height = twips(entier.height()),
            .printableWidth = twips(entier.width() - bords.left() - bords.right()),
            .printableHeight = twips(entier.height() - bords.top() - bords.bottom()),
            .offsetX = twips(bords.left()),
            .offsetY = twips(bords.top())};
}

void imprimesur(QPrinter& imprimante, const JobPages& pages, const QString& titre, const QString& langue,
                const Imprimante::Avance& avance) {
    imprimante.setDocName(titre);
    if (enfichier(imprimante))
        ecritfichier(imprimante.outputFileName(), pages, {titre, langue, QDateTime::currentDateTime()}, avance);
    else
        peint(imprimante, pages, avance);
}

QtImprimante::QtImprimante() = default;
QtImprimante::~QtImprimante() = default;

QPrinter& QtImprimante::imprimante() const {
    if (!imprimante_)
        imprimante_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *imprimante_;
}

ReponseImpression QtImprimante::demande(const Question& question) {
    QPrintDialog dialogue(&imprimante(), QApplication::activeWindow());
    dialogue.setWindowTitle(mots().impression);
    dialogue.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                        QAbstractPrintDialog::PrintCollateCopies);
    dialogue.setOption(QAbstractPrintDialog::PrintSelection, question.selectionpossible);
    dialogue.setPrintRange(question.selectionproposee ? QAbstractPrintDialog::Selection
                                                      : QAbstractPrintDialog::AllPages);
    if (dialogue.exec() != QDialog::Accepted)
        return ReponseImpression::Annule;
    return dialogue.printRange() == QAbstractPrintDialog::Selection ? ReponseImpression::Selection
                                                                    : ReponseImpression::Tout;
}

PrintDevice::Sheet QtImprimante::feuille() const {
    return feuillede(imprimante());
}

void QtImprimante::imprimepages(const JobPages& pages, const QString& titre, const Avance& avance) {
    QPrinter& celle = imprimante();
    if (!celle.isValid() || (enfichier(celle) && celle.outputFileName().isEmpty()))
        throw PrintFailure("no printer");
    imprimesur(celle, pages, titre, mots().langue, avance);
    // The next job must not take the file's place without a word.
    if (enfichier(celle))
        celle.setOutputFileName(fichiersuivant(celle.outputFileName()));
}

bool QtImprimante::imprime(const PaperTable& liste) {
    try {
        imprimepages(tablePages(feuille(), liste), liste.title, {});
        return true;
    } catch (const PrintFailure&) {
        return false;
    }
}

/// The same dialog, of which nothing is printed.
void QtImprimante::configure() {
    QPrintDialog dialogue(&imprimante(), QApplication::activeWindow());
    dialogue.setWindowTitle(mots().configuration);
    dialogue.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (auto* boutons = dialogue.findChild<QDialogButtonBox*>()) {
        if (QPushButton* valider = boutons->button(QDialogButtonBox::Ok); valider && !mots().valider.isEmpty())
            valider->setText(mots().valider);
    }
    dialogue.exec();
}

} // namespace velm
