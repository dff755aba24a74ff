#pragma once
// What the program is called outside: in the user's folders and among the running programs.
#include <QString>

namespace velm::noms {

/// The collection, in the folder that holds it.
inline constexpr QStringView base = u"velm2000.dat";

/// What all documents are written in, as files name a language.
inline constexpr QStringView languedesdocuments = u"fr";

/// The lock of the one running program.
QString verrou();
/// Its folder in the user's cache, where the system has none for what runs.
QString dossierducache();
/// VELMORANTE2000/VELMORANTE2000.ini in the user's configuration folder.
QString fichierreglages();

} // namespace velm::noms
