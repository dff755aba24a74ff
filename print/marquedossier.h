#pragma once
// The place of a dossier's name in a header or a footer.
#include <QString>

namespace velm {

/// The mark with this word.
QString marquedossier(const QString& mot);

/// The text with the name in the place of each mark, in whatever case the text has it: the mark itself is taken as it
/// stands, and one that is not in capitals is never found. A name that holds the mark stands there as often as the text
/// had it, and what it brings is looked at no more.
QString placenomdossier(QString texte, const QString& marque, const QString& nom);

} // namespace velm
