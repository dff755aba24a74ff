#pragma once
// The pictures of the collections.
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

} // namespace velm
