#pragma once
// The settings that are read once at start into plain values. Lengths are twips; directories end in a separator when
// they are not empty.
#include "core/langue.h"
#include "core/reglages.h"

#include <QString>

#include <array>
#include <vector>

namespace velm {

/// A text of header or footer as it is printed.
struct PoliceImpression {
    QString fonte;
    int taille = 10;
    int gras = 0;
    int italique = 0;
};

/// One line of header or footer: page number or text.
struct LigneImpression {
    int cadrage = 2;
    PoliceImpression police;
};

/// What the print settings hold, once for documents and once, with DOSSIER behind each key, for dossiers.
struct ReglagesImpression {
    qint64 margehaute = 567;
    qint64 margebasse = 567;
    qint64 margedroite = 567;
    qint64 margegauche = 567;
    qint64 margeentete = 567;
    qint64 margepieddepage = 567;
    int nopageentete = 0;
    int nopagepied = 0;
    QString textentete;
    QString textpied;
    LigneImpression lignenopageentete;
    LigneImpression ligneentete;
    LigneImpression lignenopagepied;
    LigneImpression lignepied;
    bool choiximprimante = true;
    bool ejectionautomatique = true;
    bool ligneseparatrice = true;
};

struct Outil {
    QString commande;
    QString chemin;
    QString icone;
    QString infobulle;
    QString param;
};

/// The twelve texts of constant use.
struct TextesConstants {
    QString stylecondense;
    QString stylesuite;
    QString titre;
    QString motscles;
    QString date;
    QString reference;
    QString stylenote;
    QString stylecommentaire;
    QString source;
    QString stylemarque;
    QString page;
    QString sur;
};

inline constexpr int profondeursimages = 11;

/// The words are cut at these characters, in this order: CR, LF, blank and marks, the double quote, TAB, more marks, ÿ
/// and the no-break space.
QString separateursmots();
/// The same and the wild card "*" at the end.
QString separateursmotsjoker();

/// First block: what the start needs before anything is shown.
struct Parametres {
    QString repertoiredebase;
    QString repertoireapplication;
    QString repertoireediteur;
    QString fichiermaitre;
    QString extensionlangue; ///< two letters

    int unite = 0;        ///< 0 centimetres, 1 inches
    int uniteentwips = 0; ///< 567, 1440, or 0 for any other unit
    ReglagesImpression impression;
    QString webaide;
    int testconnect = 1;
    QString majcommande;
    QString majchemin;
    int multifenetre = 1;
    std::vector<Outil> outils;

    TextesConstants textes;
    std::array<QString, profondeursimages> imagesfermees;
    std::array<QString, profondeursimages> imagesouvertes;
    QString separateurs;
    QString separateursjoker;
};

/// Second block: read once the splash stands.
struct Preferences {
    bool menuediteur = true;
    ReglagesImpression impressiondossier;
    int barrecommande = 1;
    int barreoutils = 4;
    int barreecran = 3;
    int commandesvisibles = 1;
    int ecranvisible = 1;
    int outilsvisibles = 1;
    bool barreetat = true;
    int fond = 1;
    int fondno = 0;
    qint64 fondcouleur = 0xC0FFFF;
    int checkquit = 0;
    int restaurefen = 0;
    qint64 marquecouleur = 0x8000FF;
    int marquebold = 1;
    int marqueitalic = 0;
    int marqueauto = 1;
    int combonombre = 0;
    int combonombredico = 0;
    double largeurselection = 4305;
    QString repertoiredossiers;
    QString aidechemin;
    QString aidefichier;
    QString fichieraide; ///< aidechemin + separator + aidefichier
};

/// Fetches the constant texts.
TextesConstants littextesconstants(Langue& langue);

/// Reads the first block. `dossierprogramme` has no final separator. Chooses master.ini in `reglages` and the language
/// file in `langue` on the way, since the rest depends on them.
Parametres litparametres(Reglages& reglages, Langue& langue, const QString& dossierprogramme);

/// Reads the second block.
Preferences litpreferences(Reglages& reglages, const QString& dossierprogramme);

/// The directory with a separator at its end; an empty one stays empty.
QString avecseparateur(const QString& repertoire);

} // namespace velm
