#pragma once
// What the program can be told to do: a name for each command, however it is given (a button, a menu entry, a key).
// Some stand for several of a kind, which an index from 0, the rank, tells apart.
#include <cstdint>

namespace velm {

enum class Ordre : std::uint8_t {
    // ---- what the active window does with what it shows
    Enregistrer,
    EnvoyerTexte,
    EnvoyerPiece,
    Ranger, ///< into the dossiers
    Imprimer,
    ExporterPdf,
    Copier,
    CopierReference, ///< with a line that says where it is from
    ToutSelectionner,
    Chercher, ///< by the find dialog

    // ---- the print job
    Ejections, ///< the button that offers the next three
    ImprimerPage,
    EjecterPage,
    AbandonnerTravail,
    ConfigurerImprimante,
    Apercu, ///< of the open job, or else of what would be printed

    // ---- histories; rank 0 is a step, n a jump to the n-th entry
    Precedent,
    Suivant,
    DernierDocument,

    // ---- windows of the frame
    Rechercher,       ///< shows the selection panel, or hides it
    MontrerSelection, ///< shows it
    AllerChercher,    ///< to where a search is typed; given there once more, puts the search away
    Index,
    Chrono,
    Numero,
    MotCle,
    Dossiers,
    Collection, ///< by slot: shows its window, or hides it
    Fenetre,    ///< by slot: brings its window forward
    UneFenetre, ///< one window for each collection, or a new one at each opening
    Cascade,
    Horizontalement,
    Verticalement,
    FenetreSuivante,
    ToutFermer,

    // ---- the size of the documents
    ZoomAgrandir,
    ZoomReduire,
    ZoomNormal,

    // ---- bars; the rank of a place is its position number
    BarreEcran,
    BarreOutils,
    BarreEtat,
    PlaceCommande,
    PlaceEcran,
    PlaceOutils,

    // ---- the selection list
    AfficherCriteres,
    Regrouper,
    PrecedentRecherche,
    SuivantRecherche,
    OuvrirCriteres,
    SauverCriteres,
    ImprimerCriteres,
    EnvoyerCriteres,
    OuvrirLignes, ///< those that are selected, as the next one
    SupprimerLignes,
    ImprimerLignes, ///< all of them

    // ---- the program
    Outil, ///< of the user's own
    Options,
    Editeur,
    MettreAJour,
    Astuce,
    AideWeb,
    Aide,
    APropos,
    Partenaires,
    Quitter
};

inline constexpr int nombredordres = static_cast<int>(Ordre::Quitter) + 1;

} // namespace velm
