#pragma once
// The pictures of the collections.
#include "platform/widgets/look/icons.h"

namespace velm {

/// Picture of a collection by its slot, 0 to 11, in its hue; a null one for other numbers.
inline QIcon iconedecollection(int slot) {
    return icon(QStringLiteral("collection%1").arg(slot));
}

} // namespace velm
