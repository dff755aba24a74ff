#pragma once
// The key of an item in the list of a dossier, which is its whole identity: "CO000123 2" is the document CO000123 at
// place 2, "CO000123 3 1204 310P" an extract of it at place 3, 310 characters from 1204 on. Numbers stand with a blank
// (or "-") before them. Keys also come from files and may have any form; each reading says what it makes of that.
#include "core/cle.h"

namespace velm {

/// What of a document an item is: positions in its text as shown, in UTF-16 units; both 0 for all of it.
struct Extrait {
    qint64 debut = 0;
    qint64 longueur = 0;

    bool entier() const { return debut == 0 && longueur == 0; }
    friend bool operator==(const Extrait&, const Extrait&) = default;
};

QString cleelement(const QString& reference, qint64 noordre, const Extrait& extrait);

/// What stands behind the place in a key: nothing, or the two positions and a "P".
QString queueelement(const Extrait& extrait);

/// The document: the first eight characters, which are cut as they stand.
Cle documentdelacle(const QString& cle);

/// The place: the number that the characters from the tenth up to the next blank begin with, or up to the end.
qint64 noordredelacle(const QString& cle);

/// The key with another place: the document, the number, and all from the blank behind the place on.
QString avecnoordre(const QString& cle, qint64 noordre);

/// The number that the characters from the ninth to the end are. Blanks do not end a number: of the key of an extract
/// this is no place.
qint64 nombredelaqueue(const QString& cle);

/// True for a key that ends in "P".
bool estextrait(const QString& cle);

/// The two positions of an extract, which stand behind the first blank from the tenth character on and behind the next
/// one; both 0 for a whole document.
Extrait extraitdelacle(const QString& cle);

} // namespace velm
