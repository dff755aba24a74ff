#pragma once
// The kinds of settings: how one is found in a settings file, what its text stands for, and its default. The settings
// themselves are listed in core/tablereglages.h.
#include <QString>
#include <QStringView>

#include <limits>

namespace velm {

/// The whole numbers that a setting may be.
struct Bornes {
    qint64 min = std::numeric_limits<qint32>::min();
    qint64 max = std::numeric_limits<qint32>::max();
};
inline constexpr Bornes bornes16{std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()};

/// Whether the publisher's line in master.ini stands in for what the user has not set.
enum class Maitre { Non, Oui };

/// Where a setting stands in its file.
struct CleReglage {
    QStringView section;
    QStringView motif; ///< the key; each "#" in it is a digit of `rang`
    int rang = 0;
    QStringView suffixe = {};

    QString nomdesection() const { return section.toString(); }
    QString nom() const;
};

/// A word or a number: "True", "False", 0 for false, any other number for true. Written as 1 or 0.
struct ReglageBooleen {
    using Valeur = bool;
    CleReglage cle;
    bool defaut;
    Maitre maitre;
};

/// A whole number; another text is a run-time error.
struct ReglageEntier {
    using Valeur = int;
    CleReglage cle;
    int defaut;
    Maitre maitre;
    Bornes bornes = {};
};

/// A number; another text is a run-time error.
struct ReglageReel {
    using Valeur = double;
    CleReglage cle;
    double defaut;
    Maitre maitre;
};

/// The number that any text begins with, 0 for none: it never keeps a window from opening. Who reads it bounds it.
struct ReglageLibre {
    using Valeur = int;
    CleReglage cle;
    int defaut;
};

/// Any text.
struct ReglageTexte {
    using Valeur = QString;
    CleReglage cle;
    QStringView defaut;
    Maitre maitre;
};

/// A folder or a file. Its default depends on where the program lies: who reads it gives it.
struct ReglageLieu {
    using Valeur = QString;
    CleReglage cle;
};

/// Settings of one kind that a number tells apart.
template <class Sorte>
struct Serie {
    Sorte modele;
    constexpr Sorte operator[](int rang) const {
        Sorte un = modele;
        un.cle.rang = rang;
        return un;
    }
};

/// What is printed has settings of its own.
enum class Imprime { Documents, Dossiers };

/// A setting that there is for each.
template <class Sorte>
struct DesDeux {
    Sorte modele;
    constexpr Sorte operator[](Imprime quoi) const {
        Sorte un = modele;
        un.cle.suffixe = quoi == Imprime::Dossiers ? u"DOSSIER" : u"";
        return un;
    }
};

/// The settings of one line of a header or footer.
struct ReglagesLigne {
    DesDeux<ReglageEntier> cadrage;
    DesDeux<ReglageTexte> fonte;
    DesDeux<ReglageEntier> taille;
    DesDeux<ReglageEntier> gras;
    DesDeux<ReglageEntier> italique;
};

} // namespace velm
