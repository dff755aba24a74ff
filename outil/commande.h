#pragma once
// What each command of the tool takes, and how a command line is read by it.
#include "core/texte.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace velm::outil {

class Contexte;

/// Options that one line of the help tells of: their names parted by blanks, "=" behind those that take a value.
struct GroupeOptions {
    Texte aide; ///< text of the line
    const char* noms;
};

struct Commande {
    static constexpr qsizetype sanslimite = -1;

    const char* nom;
    Texte description;              ///< one line
    std::optional<Texte> arguments; ///< what names them, where there are any
    qsizetype aumoins;
    qsizetype auplus; ///< sanslimite: all that follow belong together
    std::vector<GroupeOptions> options;
    int (*fait)(Contexte&);

    /// "velmoutil NAME ARGUMENTS [OPTIONS]".
    QString usage(Contexte& contexte) const;
};

/// All commands in the order of the help.
const std::vector<Commande>& commandes();

/// What every command takes besides its own.
inline constexpr GroupeOptions optionaide{Texte::OptionAide, "-h --help"};

/// The help of the tool, and of one command.
void aide(Contexte& contexte);
void aide(Contexte& contexte, const Commande& commande);

/// Reads the line by what the command takes and runs it, or says what is wrong with the line.
int execute(Contexte& contexte, const QString& nom, const QStringList& ligne);

} // namespace velm::outil
