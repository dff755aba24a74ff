#pragma once
#include <QString>

namespace velm {

/// The text looked for as it stands in documents: "^p" becomes a paragraph's end (CR LF), then "^t" a tab.
QString remplacecodes(QString texte);

} // namespace velm
