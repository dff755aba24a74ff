#pragma once
// What a document window keeps from one run to the next, for each slot: section POSITIONFORME, the name and the slot's
// number. A stored text may be anything: what cannot be used counts as absent, a number off any scale is bounded.
#include "core/reglages.h"
#include "document/dispositiontextes.h"

#include <QString>
#include <QStringView>

#include <array>

namespace velm {

/// The list of a collection: four columns that the user arranges, and behind them the hidden number.
inline constexpr int colonnesvisibles = 4;

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
    QString listeordre = QStringLiteral("01234");
    QString listelargeurs = QStringLiteral("002000002000002000002000");

    friend bool operator==(const ReglagesTextes&, const ReglagesTextes&) = default;
};

ReglagesTextes litreglagestextes(const Reglages& reglages, int indice);
/// The place itself is written for a window in normal state only.
void ecritreglagestextes(Reglages& reglages, int indice, const ReglagesTextes& valeurs);

/// The order that a stored text stands for: the default unless its first four characters are the digits 0 to 3 in some
/// order ("44444", which a list never filled leaves, is none). Always five digits, the last one "4".
QString ordredescolonnes(QStringView enregistre);
/// The text to store for the fields of the columns as they stand; a column without a field (-1) is "4".
QString ordreaenregistrer(const std::array<int, colonnesvisibles>& champs);

/// Widths in groups of six digits; a group that is missing, no number or not above 0 is 2000.
std::array<int, colonnesvisibles> largeursdescolonnes(QStringView enregistre);
QString largeursaenregistrer(const std::array<int, colonnesvisibles>& largeurs);

} // namespace velm
