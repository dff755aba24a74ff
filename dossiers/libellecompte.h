#pragma once
// The texts of the tree: the name of a dossier, and behind it in brackets how many items it has, unless it has none.
// Nothing tells brackets that belong to the name from these.
#include <QString>
#include <QStringView>

namespace velm {

/// "Baux [3]": a name with a count; the name alone for 0.
QString aveccompteur(const QString& nom, qint64 compte);

/// The name without its count: what ends in "]" and has a "[" loses it and all behind it, and the one character before
/// it, whichever that is. Any other text as it is.
QString sanscompteur(const QString& texte);

/// The count of a text: 0 for one that does not end in "]" or has no "[", else the number behind the last "[".
qint64 compteurarbo(const QString& texte);

/// The sum; the count as it was where there is none.
qint64 comptechange(qint64 compte, qint64 delta);

/// The text with another count: what `delta` makes of the one that it has.
QString compteurchange(const QString& texte, qint64 delta);

} // namespace velm
