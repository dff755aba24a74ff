#pragma once
// The collections that a search looks into: letters from A to K, as in the posting lists.
#include "core/cle.h"

#include <QByteArray>
#include <QStringView>

#include <array>
#include <optional>

namespace velm {

/// Letters of the pressed buttons of a type bar, in their order.
QByteArray lettresdesboutons(const std::array<bool, nombredecollections>& enfonces);

/// All eleven letters.
QByteArray touteslettres();

/// Letters of codes written one behind the other ("COEU"), in the order of the collections; nothing when one is none.
std::optional<QByteArray> lettresdescodes(QStringView codes);

/// The letter of a document window's collection; none for a code that is no collection.
QByteArray lettredutype(QStringView code);

/// The code of a letter; empty for what is no letter of a collection.
QString codedelalettre(char lettre);

/// The document of a posting. What is no posting has an empty code, or a number that no document bears.
Cle decodeentree(QByteArrayView entree);

} // namespace velm
