#pragma once
// Header and footer of a sheet: a text and a page number each, every one in its own font and at its own side.
#include "core/parametres.h"
#include "platform/paper/printdevice.h"
#include "print/etatimpression.h"

namespace velm {

class EnteteEtPied {
public:
    /// None is owned.
    EnteteEtPied(PrintDevice& imprimante, EtatImpression& etat) : imprimante_(imprimante), etat_(etat) {}

    /// Counts the sheet, and draws on it what these settings want, with these two texts; an empty one is none.
    void dessine(const ReglagesImpression& reglages, const QString& entete, const QString& pied);

private:
    struct Bloc {
        QString imprime;
        QString mesure; ///< whose width counts
    };
    void dessinebloc(const ReglagesImpression& reglages, const LigneImpression& ligne, qint64 hauteur,
                     const Bloc& bloc);
    void placebloc(const ReglagesImpression& reglages, int cadrage, const QString& mesure);

    PrintDevice& imprimante_;
    EtatImpression& etat_;
};

/// A length of a sheet as a device takes it: margins may be any number, and nobody sees what lies so far away.
int placesurfeuille(qint64 twips);

} // namespace velm
