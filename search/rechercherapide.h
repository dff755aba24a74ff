#pragma once
// The quick search: one text, looked for in the short fields of each document and in the label of its place in the
// contents. No body is read.
#include "search/marche.h"
#include "search/recherche.h"

#include <QByteArray>

namespace velm {

struct DemandeRapide {
    QString texte; ///< as typed
    QByteArray lettres;
    qint64 limite = sanslimite;
    bool compte = false; ///< beyond the limit, documents are counted
};

class RechercheRapide {
public:
    /// Neither is owned.
    RechercheRapide(Corpus& corpus, Marche& marche) : corpus_(corpus), marche_(marche) {}

    /// Documents come in the order of the collections, then of their numbers.
    void cherche(const DemandeRapide& demande, Resultat& resultat);

private:
    Corpus& corpus_;
    Marche& marche_;
};

} // namespace velm
