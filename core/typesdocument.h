#pragma once
// The kinds of document of a base.
#include "core/corpus.h"

#include <QString>
#include <QStringList>

namespace velm {

/// The kinds of document, in their order: label and number of each.
struct TypesDocument {
    QStringList combotype;
    QStringList numerotype;
};

TypesDocument littypesdocument(Corpus& corpus);

/// Row of the first entry that begins with a text, whatever its letters' case, or -1.
int chercheliste(const QStringList& entrees, const QString& texte);

} // namespace velm
