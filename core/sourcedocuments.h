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
    /// Where the caret is put in the document that a row opens; empty for its beginning.
    virtual QString ancre(int row) const {
        Q_UNUSED(row)
        return {};
    }
    /// The first row from 0 that stands for a document; -1 for none.
    virtual int row(const Cle& wanted) const;
};

} // namespace velm
