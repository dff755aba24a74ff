#pragma once
// Names of files made of titles.
#include <QString>

#include <optional>

namespace velm {

/// Whether a file may bear this name with an extension of three letters: none of \ / : * ? " < > | and nothing that
/// cannot be seen is in it, and it is not too long. The empty name may.
bool nompossible(const QString& nom);

/// The name, shortened from its end until a file may bear it; nothing when that uses it up.
std::optional<QString> nomraccourci(QString nom);

} // namespace velm
