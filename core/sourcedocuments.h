#pragma once
// The rows of a list of documents. Its columns are those of the list's model, in their usual order, wherever they
// stand.
#include "core/cle.h"
#include "platform/controls/gridsource.h"

namespace velm {

class SourceDocuments : public GridSource {
public:
    /// The document of a row from 0; an empty key outside, and where a row stands for none.
    virtual Cle cle(int row) const = 0;
    /// The row of a document, from 0; -1 for none. Lists of very many rows have a shorter way than to read them all.
    virtual int rang(const Cle& voulue) const {
        for (int row = 0; row < rowCount(); ++row) {
            if (cle(row) == voulue)
                return row;
        }
        return -1;
    }
};

} // namespace velm
