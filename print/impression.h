#pragma once
// Prints rich texts sheet after sheet: several of them may run on in one job, which stays open until it is ended.
// Documents and dossiers are printed alike, each by settings of its own; headers and footers of a dossier may name it.
#include "core/texte.h"
#include "platform/richtext/control.h"
#include "print/entetepied.h"

#include <functional>
#include <optional>
#include <stdexcept>

namespace velm {

/// The margins leave a text no room on the sheet.
class FeuilleTropPetite : public std::runtime_error {
public:
    FeuilleTropPetite() : std::runtime_error("no room between the margins") {}
};

/// A place on a sheet is beyond what a job can count to.
class PositionHorsBornes : public std::runtime_error {
public:
    PositionHorsBornes() : std::runtime_error("a place beyond the bounds of a sheet") {}
};

class Impression {
public:
    /// None is owned. The settings are read as they are at that moment, since the user may change them meanwhile.
    struct Donnees {
        PrintDevice& imprimante;
        EtatImpression& etat;
        const ReglagesImpression& documents;
        const ReglagesImpression& dossiers;
        Libelles texte;
        std::function<void(bool ouvert)> afficheboutonsimpression; ///< whether a job is open now
    };
    explicit Impression(Donnees donnees);

    /// Until the end of a text.
    static constexpr qsizetype tout = -1;

    // Each of these ends at a PrintFailure of the printer, and the first two also at the two above; the job's state is
    // then what it was at that moment.

    /// Prints the characters from `debut` up to `fin`. With an end, no further sheet is begun once the place reached is
    /// not below the length of the control's selection.
    void imprimerichtext(const RichTextControl& rtf, qsizetype debut, qsizetype fin);
    void imprimerrichtextdossier(const RichTextControl& rtf, const QString& nomdossier, qsizetype debut, qsizetype fin);

    /// Ends the job with its last sheet.
    void terminetravail();
    void terminetravaildossier(const QString& nomdossier);
    /// Throws the open job away: there is none afterwards, whatever the printer says.
    void abandontravail();

    const EtatImpression& etat() const { return donnees_.etat; }

private:
    /// Whose settings count, and the dossier's name where it is one.
    struct Jeu {
        const ReglagesImpression& reglages;
        std::optional<QString> nomdossier = {};
    };
    Jeu jeududocument() const { return {donnees_.documents}; }
    Jeu jeududossier(const QString& nom) const { return {donnees_.dossiers, nom}; }

    void imprime(const Jeu& jeu, const RichTextControl& rtf, qsizetype debut, qsizetype fin);
    QRect zone(const ReglagesImpression& reglages) const;
    int pages(const Jeu& jeu, const QRect& zone, const RichTextControl& rtf, qsizetype debut, qsizetype fin);
    int hautdupassage(const Jeu& jeu, const QRect& zone);
    void sautdepage(const Jeu& jeu);
    void finimpression(const Jeu& jeu);
    void descend();
    void termine(const Jeu& jeu);
    void dessineentetepied(const Jeu& jeu);
    QString texteimprime(const QString& texte, const Jeu& jeu) const;

    Donnees donnees_;
    EnteteEtPied entetepied_;
};

} // namespace velm
