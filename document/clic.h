#pragma once
// What a click in the text of a document leads to.
#include "document/listesliens.h"

#include <QString>

namespace velm {

struct Clic {
    enum class Vers { Rien, Document, Adresse, Courrier };

    Vers vers = Vers::Rien;
    QString cible; ///< key of the document, web address or mail address
    QString ancre; ///< shown text of a link to a document, where the caret is to stand in it

    friend bool operator==(const Clic&, const Clic&) = default;
};

/// The link at a position of the text: the first one in the order of the lists, documents before the web and the web
/// before mail. A click just behind the last shown character still counts. The position is where the selection begins,
/// so that a drag that begins in a link counts too.
Clic clicdans(const ListesLiens& listes, qsizetype position);

} // namespace velm
