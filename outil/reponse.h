#pragma once
// How a command writes what a search has found.
#include "outil/sortie.h"
#include "search/resultat.h"

#include <QJsonObject>

namespace velm::outil {

QJsonObject resultatjson(const Resultat& resultat);
/// The lines, the documents and their number; or the object, with the lines in it.
void ecritresultat(Contexte& contexte, const Resultat& resultat, const QStringList& lignes, bool enjson);

} // namespace velm::outil
