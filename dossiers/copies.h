#pragma once
// The copies of the store that lie beside it, one for each of the last days on which it was changed:
// dossiers-2026-11-23.dat.
#include "platform/engine/database.h"

#include <QDate>
#include <QStringList>

namespace velm::copies {

inline constexpr int gardees = 7;

QString chemin(const QString& magasin, QDate jour);

/// The full paths of those that are there, the newest first.
QStringList toutes(const QString& magasin);

/// Copies the store as it stands, unless there is a copy of that day, and removes those beyond the last seven. False
/// when no copy could be made; none is removed then.
bool fait(Database& base, QDate jour);

/// Whether a file is a store that passes the engine's check, with all tables and a first row of parameters.
bool saine(const QString& chemin);
/// The same for one that is open.
bool sain(Database& base);

} // namespace velm::copies
