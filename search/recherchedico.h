#pragma once
// The search by words: a line of words becomes a set of documents through the index of words, without reading any
// document. A word that ends in "*" stands for all words that begin so.
#include "search/recherche.h"

#include <QByteArray>
#include <QStringList>

#include <functional>

namespace velm {

struct DemandeDico {
    QString mots;
    /// Letters of the collections to look into.
    QByteArray lettres;
    /// Documents that hold every word, or one of them.
    bool tous = true;
    qint64 limite = sanslimite;
    /// The block of a document window asks: in one collection always, for all words, without a limit; nothing else goes
    /// on meanwhile, and a short line is searched like any other.
    bool fenetre = false;

    static DemandeDico defenetre(const QString& mots, QStringView code);
};

struct ResultatDico {
    enum class Issue {
        TexteCourt, ///< fewer than 3 characters: nothing was searched; the line goes to the criteria tab
        Arretee,    ///< it was to stop; the rows so far stay
        Abandonnee, ///< the user did not want so many documents
        Terminee
    };
    Issue issue = Issue::Terminee;
    /// Rows that this search has added.
    qint64 hits = 0;
    /// Not for a line that was too short, which leaves everything as it was.
    PublicationFin fin;
};

/// The words of a line. Each separator ends one, so that there are empty ones between two separators.
QStringList decoupemots(QStringView ligne, QStringView separateurs);

/// What a click on a result line puts into the box: the part before " :"; nothing when it has none.
QString motdelaligne(const QString& ligne);

class RechercheDico {
public:
    static constexpr int plusdemots = 20;

    /// `ligne` hears each result line at once. `hasard` gives numbers in [0, 1); without it, ever others.
    RechercheDico(Atelier atelier, std::function<void(const QString&)> ligne, std::function<double()> hasard = {});

    /// The word past the twentieth that is accepted is a run-time error.
    ResultatDico cherche(const DemandeDico& demande, const std::stop_token& arret = {});

private:
    Atelier atelier_;
    std::function<void(const QString&)> ligne_;
    std::function<double()> hasard_;
};

} // namespace velm
