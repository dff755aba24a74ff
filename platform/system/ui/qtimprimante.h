#pragma once
// The user's own printer, or a file in its place where the user chooses that: a PDF.
#include "platform/system/imprimante.h"

#include <QString>

#include <memory>

class QPaintDevice;
class QPainter;
class QPrinter;

namespace velm {

/// What its dialogs say.
struct MotsImprimante {
    QString impression;    ///< title of the question where to print
    QString configuration; ///< title of the other one
    QString valider;       ///< the button that keeps what was chosen
    QString langue;        ///< of the documents, as files name it: "fr"
};

class QtImprimante final : public Imprimante {
public:
    QtImprimante();
    ~QtImprimante() override;
    QtImprimante(const QtImprimante&) = delete;
    QtImprimante& operator=(const QtImprimante&) = delete;
    QtImprimante(QtImprimante&&) = delete;
    QtImprimante& operator=(QtImprimante&&) = delete;

    /// Asked for when a dialog is shown; without it the toolkit's own words stand.
    void setMots(std::function<MotsImprimante()> mots) { mots_ = std::move(mots); }

    ReponseImpression demande(const Question& question) override;
    PrintDevice::Sheet feuille() const override;
    void imprimepages(const JobPages& pages, const QString& titre, const Avance& avance) override;
    bool imprime(const PaperTable& liste) override;
    void configure() override;

private:
    QPrinter& imprimante() const;
    MotsImprimante mots() const { return mots_ ? mots_() : MotsImprimante(); }

    std::function<MotsImprimante()> mots_;
    mutable std::unique_ptr<QPrinter> imprimante_; ///< asking the system for its printers takes time
};

/// Where the job goes that follows the one in this file: "travail (2).pdf", the first number that is free.
QString fichiersuivant(const QString& chemin);
/// The paper of a printer, in twips.
PrintDevice::Sheet feuillede(const QPrinter& imprimante);
/// From now on the painter, which paints on this paper, counts in twips from the corner of what can be printed.
void entwips(QPainter& peintre, const QPaintDevice& papier, const JobPages& pages);
/// Prints on it, or writes its file. Throws PrintFailure.
void imprimesur(QPrinter& imprimante, const JobPages& pages, const QString& titre, const QString& langue,
                const Imprimante::Avance& avance);

} // namespace velm
