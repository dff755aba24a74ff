#pragma once
// Words of the index that begin like the one that is being typed.
#include "core/corpus.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace velm {

/// The word of a line that ends where the caret stands.
struct MotTape {
    qsizetype debut = 0;
    QString texte;

    friend bool operator==(const MotTape&, const MotTape&) = default;
};

/// Nothing when the caret stands inside a word, or behind too little to propose anything for: less than two letters, or
/// a word that is searched as it is anyway or not at all (with a star or a digit at its end).
std::optional<MotTape> mottape(QStringView ligne, qsizetype caret, QStringView separateurs);

/// The first words, in the order of the index and in lower case, that begin with a text, whatever its case and accents;
/// the text itself is none of them. The tables in use stay where they are.
QStringList motscommencant(const Corpus& corpus, const QString& debut, int nombre);

} // namespace velm
