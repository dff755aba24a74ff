#pragma once
// What a document window keeps from one run to the next, for each slot: section POSITIONFORME, the name and the slot's
// number. A stored text may be anything: what cannot be used counts as absent, a number off any scale is bounded.
#include "core/reglages.h"
#include "document/dispositiontextes.h"

#include <QString>

namespace velm {

/// State (0 normal, 1 minimised, 2 maximised) and place, twips. A width or height of 0 is the usual one.
struct PlaceTextes {
    int etat = 0;
    int gauche = 0;
    int haut = 0;
    int largeur = 0;
    int hauteur = 4245;

    friend bool operator==(const PlaceTextes&, const PlaceTextes&) = default;
};

struct ReglagesTextes {
    PlaceTextes place;
    Bloc bloc = Bloc::Recherche;
    Arrangement arrangement = Arrangement::Dessus;
    int posseparateur = 1000;
    /// Of the list block, see Colonnes.
    QString listeordre = QStringLiteral("01234");
    QString listelargeurs = QStringLiteral("002000002000002000002000");

    friend bool operator==(const ReglagesTextes&, const ReglagesTextes&) = default;
};

/// Where no state is stored for a window it is maximised on a first start, and normal beside windows that were left so.
ReglagesTextes litreglagestextes(const Reglages& reglages, int indice);
/// The user has never had a window of the slot: nothing of one is stored. What it shows then is the window's to choose.
bool jamaisouverte(const Reglages& reglages, int indice);
/// The place itself is written for a window in normal state only.
void ecritreglagestextes(Reglages& reglages, int indice, const ReglagesTextes& valeurs);

} // namespace velm
