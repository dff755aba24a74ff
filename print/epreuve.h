#pragma once
// A job that goes to no printer: it is looked at, or becomes a file. It is set by the same engine with the same
// settings, and leaves the open job as it is.
#include "platform/paper/printjob.h"
#include "print/documentimprime.h"
#include "print/impression.h"

namespace velm {

class Epreuve {
public:
    /// None is owned.
    struct Donnees {
        PrintDevice::Sheet feuille;
        const ReglagesImpression& documents;
        const ReglagesImpression& dossiers;
        Libelles texte;
        /// Hears of the sheets that there are when one is done; false stops. May be empty.
        std::function<bool(const JobPages& pages)> avance;
    };
    explicit Epreuve(const Donnees& donnees);

    /// All of a document, as it is printed where no job is open, to its last sheet. Throws what Impression throws.
    void documententier(const DocumentImprime& document);
    /// The open job, as it comes out when it is ended now.
    void travail(const JobPages& pages, const EtatImpression& etat);
    /// Puts the title of what is printed next into the outline, and its links on the sheets.
    void annonce(const QString& titre, const ListesLiens* liens);

    Impression& impression() { return impression_; }
    /// The sheets of the jobs that have ended, one job behind the other.
    const JobPages& pages() const { return pages_; }
    JobPages prend() { return std::move(pages_); }

private:
    JobPages pages_;
    EtatImpression etat_;
    PrintJob travail_;
    Impression impression_;
};

/// Tells a job what is printed next: the title for the outline, and where its text leads outside.
void annoncedocument(PrintJob& travail, const QString& titre, const ListesLiens* liens);

} // namespace velm
