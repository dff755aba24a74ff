#pragma once
// The pictures of the collections, and what the entries of a history show.
#include "core/cle.h"
#include "platform/widgets/look/icons.h"

namespace velm {

/// Picture of a collection by its slot, 0 to 11, in its hue; a null one for other numbers.
inline QIcon iconedecollection(int slot) {
    return icon(QStringLiteral("collection%1").arg(slot));
}

/// Name of the picture of a history's entry, which begins with the key of its document; empty for any other entry.
inline QString imagedhistorique(const QString& entree) {
    const QStringView cle = QStringView(entree).left(8);
    return estcle(cle) ? QStringLiteral("collection%1").arg(decoupecle(cle).indice()) : QString();
}

/// The document of a history's entry; empty for any other entry.
inline QString documentdhistorique(const QString& entree) {
    const QString cle = entree.left(8);
    return estcle(cle) ? cle : QString();
}

} // namespace velm
