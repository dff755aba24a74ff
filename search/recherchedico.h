#pragma once
// The search by words: a line of words becomes a set of documents through the index of words, without reading any
// document. A word that ends in "*" stands for all words that begin so.
#include "search/marche.h"
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
    /// The block of a document window asks: in one collection always, for all words, without a limit but the one that
    /// the user is asked for, and a short line is searched like any other. It lets no events through (kept), so that
    /// only what its listeners or its question bring can stop it.
    bool fenetre = false;
    /// All are wanted, however many there are.
    bool sansquestion = false;

    static DemandeDico defenetre(const QString& mots, QStringView code);
};

/// Who hears a search by words, and is asked.
struct EcouteDico {
    /// Hears each result line at once.
    std::function<void(const QString&)> ligne;
    QString refus; ///< what stands behind a word that is refused
    /// Gives a limit where none was named and very many documents were found; nothing gives the search up. Where nobody
    /// answers, all are wanted.
    std::function<std::optional<qint64>(qint64 nombre)> limite = {};
};

/// The words of a line. Each separator ends one, so that there are empty ones between two separators.
QStringList decoupemots(QStringView ligne, QStringView separateurs);

/// What a click on a result line puts into the box: the part before " :"; nothing when it has none.
QString motdelaligne(const QString& ligne);

class RechercheDico {
public:
    static constexpr int plusdemots = 20;

    /// Neither `corpus` nor `marche` is owned. `hasard` gives numbers in [0, 1); without it, ever others.
    RechercheDico(Corpus& corpus, Marche& marche, EcouteDico ecoute, std::function<double()> hasard = {});

    /// The word past the twentieth that is accepted is a run-time error. A line that is too short leaves everything as
    /// it was.
    void cherche(const DemandeDico& demande, Resultat& resultat);

private:
    Corpus& corpus_;
    Marche& marche_;
    EcouteDico ecoute_;
    std::function<double()> hasard_;
};

} // namespace velm
