#pragma once
// The languages on offer, and the choice of another one for the next start.
#include "core/langue.h"
#include "core/reglages.h"
#include "platform/system/dialogues.h"

#include <QString>

#include <vector>

namespace velm {

inline constexpr int nombremaxlangues = 20;

struct LangueOfferte {
    QString texte;     ///< name shown in the list
    QString extension; ///< of the language's file: "FR"
    QString drapeau;   ///< path of the flag's picture; empty when there is no such file
};

/// The languages of the settings (TEXTn, EXTn and FLAGn of LANGUE, n from 1 to 20); a number without a name is skipped.
std::vector<LangueOfferte> languesoffertes(const Reglages& reglages, const QString& repertoireapplication);

enum class ChoixLangue {
    Identique,   ///< the current language: nothing is asked
    SansFichier, ///< its file is not there: said, and nothing is changed
    Refuse,      ///< the user does not want to keep it
    Retenu       ///< written; the running program keeps its language until the next start
};

/// What a click on a row of the list does. `courante` is the extension in force in the settings; it follows what is
/// written.
ChoixLangue choisitlangue(const QString& extension, QString& courante, const QString& repertoireapplication,
                          Reglages& reglages, Langue& langue, Dialogues& dialogues);

} // namespace velm
