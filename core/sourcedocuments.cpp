#include "core/sourcedocuments.h"

namespace velm {

int SourceDocuments::row(const Cle& wanted) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (cle(row) == wanted)
            return row;
    }
    return -1;
}

} // namespace velm
