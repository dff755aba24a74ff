#pragma once
// The addresses of documents and settings, as they are handed to the desktop.
#include <QString>

namespace velm {

/// An address as authors write it, made ready to be opened: "www.x.fr" and whatever else has no scheme get "http://"
/// put before them, even what begins with another scheme. A local page, whose name ends in .htm or .html, stays as it
/// stands.
QString adresseaouvrir(const QString& adresse);

} // namespace velm
