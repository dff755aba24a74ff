#pragma once
// The commands of the program in one table: how each is named, said, drawn and reached, and when it can be had. Bars,
// menus and pop-ups are lists of them: a new button or entry is a line of the table and a place in a list.
#include "core/ordre.h"
#include "core/texte.h"

#include <QString>

#include <optional>
#include <span>

namespace velm {

/// What a press of its button or entry does to the look of it.
enum class Forme {
    Simple,
    Bascule,   ///< stays down, or checked, until it is given again
    Choix,     ///< one rank of the command is checked
    Deroulante ///< the button has entries at its side
};

/// What a command needs to be had.
enum class Besoin {
    Rien,
    Fenetre, ///< an active window that can carry it out
    Etat,   ///< enabled by whoever knows the state (`Actions::permet`): a history that has a step, rows that were found
    Attente ///< waits for a part that the program does not have yet: it has a place and no deed
};

struct LigneCommande {
    Ordre ordre;
    struct Bouton {
        QStringView cle = {};            ///< that of a collection is its code
        std::optional<Texte> bulle = {}; ///< its tool tip
    } bouton = {};
    struct Entree {
        QStringView nom = {};              ///< of an entry that stands alone, or of the array that it stands in
        int indice = -1;                   ///< in that array, of rank 0; none for one that stands alone
        std::optional<Texte> libelle = {}; ///< its caption; none: the tool tip of the button is the caption
    } entree = {};
    QStringView image = {};  ///< name of its picture; that of a collection ends in its slot
    QStringView touche = {}; ///< shortcut, in portable words
    Forme forme = Forme::Simple;
    Besoin besoin = Besoin::Rien;
    int nombre = 1; ///< how many ranks it has: commands of one kind, as those of the eleven collections, share a line
};

/// The table, in the order of the enumeration.
std::span<const LigneCommande> commandes();
const LigneCommande& lignede(Ordre ordre);

// ---- one of several: ranks from 0
/// Its caption and its tool tip; none for what gets its words while the program runs.
std::optional<Texte> libellede(Ordre ordre, int rang);
std::optional<Texte> bullede(Ordre ordre, int rang);
QString imagede(Ordre ordre, int rang);
/// Key of its tool button; empty for none.
QString boutonde(Ordre ordre, int rang);
/// Name of its menu entry, with the index in parentheses where it stands in an array: "mfichier3", "maide0(1)"; empty
/// for none.
QString entreede(Ordre ordre, int rang);

/// A command and its rank.
struct OrdreRang {
    Ordre ordre;
    int rang = 0;

    friend bool operator==(const OrdreRang&, const OrdreRang&) = default;
};

/// What a command needs, by the key of its button or the name of its entry. Nothing for an unknown name.
std::optional<Besoin> besoindunom(QStringView nom);

/// What stands behind the key of a tool button. Nothing for an unknown one.
std::optional<OrdreRang> ordredubouton(QStringView cle);

} // namespace velm
