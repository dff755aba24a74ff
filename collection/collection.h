#pragma once
// Making a base from a publisher's source folder, or from nothing.
#include "collection/document.h"
#include "core/texte.h"

#include <functional>

namespace velm {

enum class Etape { Lecture, MiseEnForme, Classement, Ecriture };
/// The name of a step.
Texte libelledetape(Etape etape);

/// Hears how far a step is; called from the thread that called.
using Progres = std::function<void(Etape etape, qint64 fait, qint64 total)>;

struct ComptesDeBase {
    qint64 documents = 0, noeuds = 0, liens = 0, mots = 0, motscles = 0, articles = 0, types = 0;
    std::array<qint64, nombredecollections> parcollection{};
};

struct ResultatCompilation {
    enum class Etat {
        Faite,             ///< the base stands under its name
        SourceIncorrecte,  ///< an error among the problems; nothing was written
        DisquePlein,       ///< nothing was written
        EcritureImpossible ///< nothing was written; `obstacle` and `raison` tell why
    };
    Etat etat = Etat::EcritureImpossible;
    Problemes problemes; ///< in the order of files and lines
    ComptesDeBase comptes;
    Obstacle obstacle = Obstacle::None; ///< of a base that could not be written
    QString raison;                     ///< the system's own words
    double secondes = 0;

    bool faite() const { return etat == Etat::Faite; }
    qsizetype erreurs() const;
    qsizetype avertissements() const;
};

/// Makes the base at `base` from the source in the folder `source`. The base is made beside its place under a temporary
/// name and takes its name when it is complete; an older base there is replaced. The same source gives the same bytes.
/// `textes`: with the folded texts of the bodies, which make a search through them quicker and change nothing else.
ResultatCompilation compile(const QString& source, const QString& base, const Progres& progres = {},
                            bool textes = true);

struct OptionsSynthese {
    qint64 documents = 0;
    /// Words of a body, on average.
    int mots = 0;
    /// With the folded texts of the bodies.
    bool textes = true;
};
/// The options of a collection of `documents` documents: bodies of about 5 KB up to 100,000 documents, smaller beyond,
/// so that a million still fits a disk.
OptionsSynthese optionssynthese(qint64 documents);

/// Makes a base of invented documents; equal options give equal bytes.
ResultatCompilation synthese(const OptionsSynthese& options, const QString& base, const Progres& progres = {});

/// A problem in words: the frame of file and line around its text, with the mark of a warning. `texte` gives the
/// language file's entries.
QString phrase(const Probleme& probleme, const Libelles& texte);

} // namespace velm
