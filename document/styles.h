#pragma once
// The table of styles that a document's sections are shown in.
#include "core/langue.h"
#include "core/parametres.h"
#include "core/reglages.h"

#include <QString>
#include <QStringView>

#include <array>

namespace velm {

/// Lengths are twips, the font's size points, the colour 0x00BBGGRR.
struct Style {
    QString nom;       ///< empty: the record is unused
    bool type = false; ///< false: paragraph style, all fields apply; true: character style, only those down to couleur
    QString nomdelafonte;
    int tailledelafonte = 0;
    bool gras = false;
    bool souligne = false;
    bool italique = false;
    bool barre = false;
    int exposant = 0;
    int couleur = 0;

    bool puce = false;
    int retraitgauche = 0; ///< kept for the editor; never reaches a control
    int retraitdroit = 0;
    int alignement = 0;
    int retrait1ligne = 0;
    int indentpuce = 0;
    QString tabulations; ///< fields of exactly five characters, each a decimal position

    friend bool operator==(const Style&, const Style&) = default;
};

struct TableStyles {
    static constexpr int nombre = 100;

    std::array<Style, nombre> styles;
    /// NUL, name, NUL for each style of the condensed list: no name can match a part of another.
    QString listecondensee;
    QString stylesuite;    ///< the continuation style, which hides with the section before it
    QString stylecondense; ///< what the continuation style is shown as in condensed display
    QString stylemarque;   ///< the look of the tokens themselves

    /// Index of the first record of that exact name; -1 when there is none. Unused records have no name to be found by.
    int indice(QStringView nom) const;
    void ajoutecondense(const QString& nom);
};

/// Reads the table from the settings section EDITEUR (the user's value, else the publisher's, else empty, 0 and False).
/// A value that does not convert, or is too great for its field, is a run-time error.
TableStyles litstyles(const Reglages& reglages, Langue& langue, const TextesConstants& textes);

/// True if a section of style `nom`, behind one of style `precedent`, is left out in condensed display.
bool stylemasque(const TableStyles& styles, QStringView nom, QStringView precedent);

} // namespace velm
