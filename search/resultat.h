#pragma once
// What a search leaves, as a value: it knows no list and no window. A search puts its rows behind those that are there;
// the words stay those of the search before where it finds none of its own.
#include "search/lignes.h"

#include <optional>

namespace velm {

struct Resultat {
    enum class Issue {
        Terminee,
        Arretee,    ///< it was to stop; the rows so far stay, and those not yet looked at when narrowing
        Abandonnee, ///< the user did not want so many documents
        TexteCourt  ///< fewer than 3 characters for a search by words: nothing was searched
    };

    Lignes lignes;
    /// To mark in the documents of the rows.
    QString mot1;
    QString mot2;
    Issue issue = Issue::Terminee;
    qint64 vus = 0;  ///< documents that were looked at
    qint64 hits = 0; ///< documents that passed
    /// How many documents the user is to be told of; nothing where what was told last is to stay.
    std::optional<qint64> compte;
    bool limitee = false;          ///< no more were wanted, though there may be more
    std::optional<qint64> total;   ///< how many there are, where the search is limited and knows it
    std::optional<qint64> partout; ///< how many documents of all collections hold the one word that was looked for

    bool arretee() const { return issue == Issue::Arretee; }
    /// A search begins: nothing is counted yet.
    void commence() {
        issue = Issue::Terminee;
        vus = hits = 0;
        compte.reset();
        limitee = false;
        total.reset();
        partout.reset();
    }
};

} // namespace velm
