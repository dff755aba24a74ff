#pragma once
// The one open job and all that is printed into it: documents, dossiers, its end. What is left when a command has
// failed is consistent: no sheet of a job that nobody can end, no header twice.
#include "platform/paper/printjob.h"
#include "platform/system/imprimante.h"
#include "print/avancement.h"
#include "print/commandesimpression.h"
#include "print/epreuve.h"
#include "print/impressiondossier.h"

namespace velm {

class Imprimerie {
public:
    /// None is owned.
    struct Donnees {
        Imprimante& imprimante;
        const ReglagesImpression& documents;
        const ReglagesImpression& dossiers;
        Dialogues& dialogues;
        Corpus& corpus;
        const TableStyles& styles;
        Sablier& sablier;
        Avancement& avancement;
        Libelles texte;
        std::function<void(bool ouvert)> afficheboutonsimpression;
        std::function<void(const QString& texte)> dit; ///< in passing, in no box
    };
    explicit Imprimerie(const Donnees& donnees);

    // ---- the commands, none of which throws what printing throws
    void imprimerdocument(const DocumentImprime& document);
    void imprimerdossier(const QString& libelle, const QStringList& cles);
    void terminetravail();
    void abandontravail();
    /// Prints sheets that are made already, in no job.
    void imprimefeuilles(const JobPages& feuilles, const QString& titre);

    // ---- the open job
    bool travailencours() const { return etat_.travailencours; }
    const EtatImpression& etat() const { return etat_; }
    /// Its first text's title.
    QString titre() const;

    // ---- proofs: sheets as they come out of the printer. Throw PrintFailure when `avance` stops them.
    using AvanceEpreuve = std::function<bool(const JobPages& pages)>;
    /// The open job, ended.
    JobPages epreuvedutravail() const;
    JobPages epreuvedudocument(const DocumentImprime& document, const AvanceEpreuve& avance) const;
    /// All items of a dossier, without a question. No sheet when the base has none of them.
    JobPages epreuvedudossier(const QString& libelle, const QStringList& cles, const AvanceEpreuve& avance) const;
    PrintDevice::Sheet feuille() const { return donnees_.imprimante.feuille(); }

private:
    Epreuve::Donnees epreuve(const AvanceEpreuve& avance) const;
    ImpressionDossier::Donnees dossier(Impression& impression, const ImpressionDossier::Annonce& annonce) const;
    void fait(const std::function<void()>& commande);
    void sort(const JobPages& pages, const QString& titre);

    Donnees donnees_;
    EtatImpression etat_;
    PrintJob travail_;
    Impression impression_;
    CommandesImpression commandes_;
    bool enpanne_ = false; ///< the printer has not taken what it was given
    bool arretee_ = false; ///< the user has stopped it
};

} // namespace velm
