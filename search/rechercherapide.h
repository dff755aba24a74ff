#pragma once
// The quick search: one text, looked for in the short fields of each document and in the label of its place in the
// contents. No body is read.
#include "search/recherche.h"

#include <QByteArray>

namespace velm {

struct DemandeRapide {
    QString texte; ///< as typed
    QByteArray lettres;
    qint64 limite = sanslimite;
};

struct ResultatRapide {
    bool arretee = false; ///< it was to stop; the rows so far stay
    qint64 vus = 0;       ///< documents that were looked at
    qint64 hits = 0;
    PublicationFin fin;
};

class RechercheRapide {
public:
    /// `progres` hears how many documents were looked at, and of how many, when the search begins to walk and at each
    /// turn; the first number never passes the second. The status panel is told at the same times and at the end.
    RechercheRapide(Atelier atelier, std::function<void(qint64 vus, qint64 total)> progres);

    /// Documents come in the order of the collections, then of their numbers.
    ResultatRapide cherche(const DemandeRapide& demande, const std::stop_token& arret = {});

private:
    Atelier atelier_;
    std::function<void(qint64, qint64)> progres_;
};

} // namespace velm
