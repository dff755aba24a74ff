#pragma once
// The documents that a document cites, and those that cite it.
#include "core/corpus.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace velm {

/// A row of either grid.
struct LigneLien {
    QString code; ///< collection of the other document
    QString titre;
    QString cle;

    friend bool operator==(const LigneLien&, const LigneLien&) = default;
};

/// What the document of a key cites: each document once, those that are not in the base left out. An empty key gives
/// nothing.
std::vector<LigneLien> chargeliens(Corpus& corpus, const QString& cle);
/// What cites the document of a key, in the same way.
std::vector<LigneLien> chargecorrelats(Corpus& corpus, const QString& cle);

/// A document as the selection list takes it.
struct LigneSelection {
    QString reference;
    QString numart;
    QString titre;
    QString motcle1;
    QString motcle2;
    QString motcle3;

    friend bool operator==(const LigneSelection&, const LigneSelection&) = default;
};

/// The rows of a grid as rows of the selection list, in the order in which the keys stand; documents that are not in
/// the base are left out.
std::vector<LigneSelection> lignesselection(Corpus& corpus, const QStringList& cles);

} // namespace velm
