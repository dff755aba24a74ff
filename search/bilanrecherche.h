#pragma once
// What came of a search, in words: what was found, what was cut, what was not found.
#include "core/bilan.h"
#include "core/texte.h"
#include "search/resultat.h"

#include <QString>

namespace velm {

/// What was looked for, as the user sees it.
struct Recherchee {
    enum class Sorte { Texte, Criteres, Mots, MotCle };

    Sorte sorte = Sorte::Texte;
    QString texte = {};          ///< as typed
    bool tous = true;            ///< of the words, all; else any
    bool ici = false;            ///< in the collection of a window alone
    bool sanscollection = false; ///< no collection was chosen
};

/// `texte` is the language file. A line that was not searched says nothing.
BilanRecherche bilande(const Recherchee& recherchee, const Resultat& resultat, const Libelles& texte);

/// Of rows that come from elsewhere: how many there are.
BilanRecherche bilandelignes(qint64 nombre, const Libelles& texte);

} // namespace velm
