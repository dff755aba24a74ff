#pragma once
// What the collection says of a document beside its body.
#include <QString>

#include <optional>

namespace velm {

/// The short fields of a document's row as texts, Null as the empty one; dates in the form yyyy-MM-dd.
struct Notice {
    QString titre;
    QString motcle1;
    QString motcle2;
    QString motcle3;
    QString Source;
    QString datetext;
    QString datecreation;
    QString datemodif;
    QString typedocument;
    QString numeroarborescence;
    std::optional<int> couleur = {}; ///< of its paper, 0xBBGGRR; nothing where the row has none

    friend bool operator==(const Notice&, const Notice&) = default;
};

} // namespace velm
