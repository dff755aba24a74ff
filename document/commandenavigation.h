#pragma once
// Commands of the navigation as texts, for what does not speak in its operations.
#include "core/cle.h"
#include "document/historique.h"

#include <QString>

#include <variant>

namespace velm {

/// Opens a document.
struct CommandeOuvre {
    Cle cle;
    friend bool operator==(const CommandeOuvre&, const CommandeOuvre&) = default;
};

/// A step, or a jump to the n-th entry, in the frame's history.
struct CommandePas {
    Sens sens;
    int n = unpas;
    friend bool operator==(const CommandePas&, const CommandePas&) = default;
};

/// The same in the history of the window of a slot.
struct CommandePasFenetre {
    int indice;
    Sens sens;
    int n = unpas;
    friend bool operator==(const CommandePasFenetre&, const CommandePasFenetre&) = default;
};

/// The first alternative is what a text that is no command gives.
using CommandeNavigation = std::variant<std::monostate, CommandeOuvre, CommandePas, CommandePasFenetre>;

/// Reads a command:
///   "TA" + key                  opens a document
///   "TA-1" "TA+1"               a step in the frame's history
///   "TA" + code + "-1" or "+1"  a step in the history of the slot's window
///   "LITAP" "LITAS" + n         a jump back ("P") or forward to the n-th entry of the frame's history
///   "LI" + code + "P", "S" + n  the same in the history of the slot's window
/// Letters count as they stand. What follows "TA" is cut by position and not looked at: whatever is no step is the key
/// of a document. An n that is no number, or less than 1, is 1.
CommandeNavigation litcommande(const QString& texte);

} // namespace velm
