#pragma once
// Every setting of the program: its section and key, its kind, its default, and whether the publisher may give another
// one in master.ini. `Reglages::lit` and `Reglages::ecrit` read and write them; no key stands anywhere else. Lengths
// are twips, colours 0x00BBGGRR.
#include "core/sortesreglages.h"

namespace velm::reglage {

// ---- places
inline constexpr ReglageLieu dossierbase{{u"BASE", u"CHEMIN"}};
inline constexpr ReglageLieu dossierapplication{{u"BASE", u"APPLICATION"}};
inline constexpr ReglageLieu dossierdossiers{{u"BASE", u"DOSSIERS"}};
inline constexpr ReglageLieu dossierediteur{{u"EDITEUR", u"CHEMIN"}};
inline constexpr ReglageLieu dossieraide{{u"AIDE", u"CHEMIN"}};
inline constexpr ReglageTexte fichieraide{{u"AIDE", u"NOMFICHIER"}, u"VELM2000.CHM", Maitre::Oui};
inline constexpr ReglageTexte adresseaide{{u"WEB", u"AIDE"}, u"https://www.example.org/velmorante/aide", Maitre::Oui};
inline constexpr ReglageEntier testeconnexion{{u"WEB", u"TESTCONNECT"}, 1, Maitre::Oui};
inline constexpr ReglageTexte programmemaj{{u"WEB", u"MAJCOMMANDE"}, u"UpdNet.exe", Maitre::Oui};
inline constexpr ReglageLieu dossiermaj{{u"WEB", u"MAJCHEMIN"}};

// ---- the program
inline constexpr ReglageTexte instance{{u"HWND", u"HWnd"}, u"0", Maitre::Non};
inline constexpr ReglageEntier astuces{{u"OPTIONS", u"TIPS"}, 1, Maitre::Oui};
inline constexpr ReglageTexte langue{{u"LANGUE", u"EXTENSION"}, u"FR", Maitre::Oui};
/// The languages to choose from: their names, their extensions and the files of their flags.
inline constexpr Serie<ReglageTexte> languetexte{{{u"LANGUE", u"TEXT#"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageTexte> langueextension{{{u"LANGUE", u"EXT#"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageTexte> languedrapeau{{{u"LANGUE", u"FLAG#"}, u"", Maitre::Oui}};
inline constexpr ReglageBooleen menuediteur{{u"MASTER", u"EDITEUR"}, true, Maitre::Oui};
/// 0 centimetres, 1 inches.
inline constexpr ReglageEntier unite{{u"EDITEUR", u"UNITE"}, 0, Maitre::Oui};
inline constexpr ReglageEntier multifenetre{{u"GENERALITES", u"MULTIFENETRE"}, 1, Maitre::Oui};
inline constexpr ReglageEntier fond{{u"GENERALITES", u"FOND"}, 1, Maitre::Oui};
inline constexpr ReglageEntier fondno{{u"GENERALITES", u"FONDNO"}, 0, Maitre::Non};
/// The sheet under documents: 0 white, 1 light grey, 2 white beside light windows and light grey beside dark ones.
inline constexpr ReglageEntier papier{{u"GENERALITES", u"PAPIER"}, 2, Maitre::Oui};
inline constexpr ReglageEntier fondcouleur{{u"GENERALITES", u"FONDCOULEUR"}, 0xC0FFFF, Maitre::Non};
/// Size of the documents, per cent; 0 as long as nobody has chosen one.
inline constexpr ReglageEntier zoom{{u"GENERALITES", u"ZOOM"}, 0, Maitre::Oui};
/// 0 asks before the end.
inline constexpr ReglageEntier checkquit{{u"GENERALITES", u"CHECKQUIT"}, 0, Maitre::Oui};
inline constexpr ReglageEntier restaurefen{{u"GENERALITES", u"RESTAUREFEN"}, 0, Maitre::Oui};

// ---- the user's tools, from 1 to their number
inline constexpr int nombremaxoutils = 20;
inline constexpr ReglageEntier nombreoutils{
    {u"TOOLS", u"NOMBRE"}, 0, Maitre::Oui, {std::numeric_limits<qint32>::min(), nombremaxoutils}};
inline constexpr Serie<ReglageTexte> outilcommande{{{u"TOOLS", u"COMMANDE#"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageTexte> outilchemin{{{u"TOOLS", u"CHEMIN#"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageTexte> outilicone{{{u"TOOLS", u"ICONE#"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageTexte> outilinfobulle{{{u"TOOLS", u"INFO-BULLE#"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageTexte> outilparam{{{u"TOOLS", u"PARAM#"}, u"", Maitre::Oui}};

// ---- the bars: where they stand (1 to 4: top, bottom, left, right), and 1 for those that are shown
inline constexpr ReglageEntier barrecommande{{u"BARRE", u"COMMANDE"}, 1, Maitre::Oui};
inline constexpr ReglageEntier barreoutils{{u"BARRE", u"OUTILS"}, 4, Maitre::Oui};
inline constexpr ReglageEntier barreecran{{u"BARRE", u"ECRAN"}, 3, Maitre::Oui};
inline constexpr ReglageEntier commandesvisibles{{u"BARRE", u"COMMANDESVISIBLES"}, 1, Maitre::Oui};
/// What is written of the command bar stands under a key that nobody reads: that bar always comes back.
inline constexpr ReglageEntier commandesvisiblesecrit{{u"BARRE", u"COMMANDESVISISIBLES"}, 1, Maitre::Non};
inline constexpr ReglageEntier ecranvisible{{u"BARRE", u"ECRANVISIBLE"}, 1, Maitre::Oui};
inline constexpr ReglageEntier outilsvisibles{{u"BARRE", u"OUTILSVISIBLES"}, 1, Maitre::Oui};
inline constexpr ReglageBooleen barreetat{{u"BARRE", u"ETAT"}, true, Maitre::Oui};

// ---- the frame and its windows
inline constexpr ReglageReel largeurselection{{u"EDITEUR", u"LARGEURSELECTION"}, 4305, Maitre::Oui};
/// 0 normal, 1 minimised, 2 maximised.
inline constexpr ReglageEntier cadreetat{{u"POSITIONMDI", u"WINDOWSSTATE"}, 2, Maitre::Oui};
inline constexpr ReglageEntier cadregauche{{u"POSITIONMDI", u"WINDOWSLEFT"}, 0, Maitre::Non};
inline constexpr ReglageEntier cadrehaut{{u"POSITIONMDI", u"WINDOWSTOP"}, 0, Maitre::Non};
inline constexpr ReglageEntier cadrelargeur{{u"POSITIONMDI", u"WINDOWSWIDTH"}, 9600, Maitre::Non};
inline constexpr ReglageEntier cadrehauteur{{u"POSITIONMDI", u"WINDOWSHEIGHT"}, 7200, Maitre::Non};
/// The windows at the last exit: two characters for the active one and one for each slot, then eight of a key for each.
inline constexpr ReglageTexte fenetresouvertes{{u"POSITIONFORME", u"MDICHILD"}, u"", Maitre::Non};
inline constexpr ReglageTexte fenetrescontenus{{u"POSITIONFORME", u"MDICHILDCONTENU"}, u"", Maitre::Non};
inline constexpr ReglageLibre proprieteslargeur{{u"POSITIONFORME", u"PROPRIETESWIDTH"}, 0};
inline constexpr ReglageLibre proprieteshauteur{{u"POSITIONFORME", u"PROPRIETESHEIGHT"}, 0};
/// The last documents, the latest first.
inline constexpr Serie<ReglageTexte> derniernom{{{u"DERNIERSDOCUMENTS", u"NOM#"}, u"", Maitre::Non}};
inline constexpr Serie<ReglageTexte> dernierref{{{u"DERNIERSDOCUMENTS", u"REF#"}, u"", Maitre::Non}};

// ---- the document windows, by their slots
inline constexpr Serie<ReglageLibre> fenetreetat{{{u"POSITIONFORME", u"WINDOWSSTATE#"}, 0}};
inline constexpr Serie<ReglageLibre> fenetregauche{{{u"POSITIONFORME", u"WINDOWSLEFT#"}, 0}};
inline constexpr Serie<ReglageLibre> fenetrehaut{{{u"POSITIONFORME", u"WINDOWSTOP#"}, 0}};
inline constexpr Serie<ReglageLibre> fenetrelargeur{{{u"POSITIONFORME", u"WINDOWSWIDTH#"}, 0}};
inline constexpr Serie<ReglageLibre> fenetrehauteur{{{u"POSITIONFORME", u"WINDOWSHEIGHT#"}, 4245}};
/// The block in the panel: 0 word search, 1 tree, 2 list.
inline constexpr Serie<ReglageLibre> fenetrebloc{{{u"POSITIONFORME", u"WINDOWSARBRE#"}, 0}};
/// 0 with the panel beside the text, else above it.
inline constexpr Serie<ReglageLibre> fenetredisposition{{{u"POSITIONFORME", u"WINDOWSSEPARVH#"}, 1}};
inline constexpr Serie<ReglageLibre> fenetreseparateur{{{u"POSITIONFORME", u"WINDOWSSEPAR#"}, 1000}};
/// The columns of its list: a digit for what each one shows, six for its width.
inline constexpr Serie<ReglageTexte> fenetrecolonnes{{{u"POSITIONFORME", u"ORDRECOLONNE#"}, u"01234", Maitre::Non}};
inline constexpr Serie<ReglageTexte> fenetrelargeurs{
    {{u"POSITIONFORME", u"LARGEURCOLONNE#"}, u"002000002000002000002000", Maitre::Non}};

// ---- the windows of lists: places by the order of their commands, then what each of them shows
inline constexpr Serie<ReglageLibre> listeetat{{{u"POSITIONFORME", u"LISTESTATE#"}, 0}};
inline constexpr Serie<ReglageLibre> listegauche{{{u"POSITIONFORME", u"LISTELEFT#"}, 0}};
inline constexpr Serie<ReglageLibre> listehaut{{{u"POSITIONFORME", u"LISTETOP#"}, 0}};
inline constexpr Serie<ReglageLibre> listelargeur{{{u"POSITIONFORME", u"LISTEWIDTH#"}, 0}};
inline constexpr Serie<ReglageLibre> listehauteur{{{u"POSITIONFORME", u"LISTEHEIGHT#"}, 0}};
/// A "1" for each collection that is shown, a "0" for each that is not.
inline constexpr ReglageTexte indexstatut{{u"INDEX", u"STATUS"}, u"11111111111", Maitre::Non};
inline constexpr ReglageTexte indexcolonnes{{u"INDEX", u"ORDRECOLONNE"}, u"540123", Maitre::Non};
inline constexpr ReglageTexte indexlargeurs{
    {u"INDEX", u"LARGEURCOLONNE"}, u"000500001000003000002000002000002000", Maitre::Non};
inline constexpr ReglageTexte chronostatut{{u"CHRONO", u"STATUS"}, u"11111111111", Maitre::Non};
inline constexpr ReglageTexte chronocolonnes{{u"CHRONO", u"ORDRECOLONNE"}, u"9870123", Maitre::Non};
inline constexpr ReglageTexte chronolargeurs{
    {u"CHRONO", u"LARGEURCOLONNE"}, u"000700001000000700003000002000002000002000", Maitre::Non};
inline constexpr ReglageTexte numerostatut{{u"NUMERO", u"STATUS"}, u"11111111111", Maitre::Non};
inline constexpr ReglageTexte numerocolonnes{{u"NUMERO", u"ORDRECOLONNE"}, u"012345", Maitre::Non};
inline constexpr ReglageTexte numerolargeurs{
    {u"NUMERO", u"LARGEURCOLONNE"}, u"001000001000002500003000000700000700", Maitre::Non};
inline constexpr ReglageTexte motclecolonnes{{u"MOTCLE", u"ORDRECOLONNE"}, u"01", Maitre::Non};
inline constexpr ReglageTexte motclelargeurs{{u"MOTCLE", u"LARGEURCOLONNE"}, u"003000001700", Maitre::Non};

// ---- searches
inline constexpr ReglageEntier marquecouleur{{u"RECHERCHE", u"MARQUECOULEUR"}, 0x8000FF, Maitre::Oui};
inline constexpr ReglageEntier marquebold{{u"RECHERCHE", u"MARQUEBOLD"}, 1, Maitre::Oui};
inline constexpr ReglageEntier marqueitalic{{u"RECHERCHE", u"MARQUEITALIC"}, 0, Maitre::Oui};
inline constexpr ReglageEntier marqueauto{{u"RECHERCHE", u"MARQUEAUTO"}, 1, Maitre::Oui};
/// The rows of the lists of limits, of the quick search and of the one by words.
inline constexpr ReglageEntier combonombre{{u"RECHERCHE", u"COMBONOMBRE"}, 0, Maitre::Non};
inline constexpr ReglageEntier combonombredico{{u"RECHERCHE", u"COMBONOMBREDICO"}, 0, Maitre::Non};
/// The columns of the selection list, as those of a document window's.
inline constexpr ReglageTexte selectioncolonnes{{u"RECHERCHE", u"ORDRECOLONNE"}, u"012354", Maitre::Non};
inline constexpr ReglageTexte selectionlargeurs{
    {u"RECHERCHE", u"LARGEURCOLONNE"}, u"003000002000002000002000000500001000", Maitre::Non};
/// The last texts of the form's boxes, from 1.
inline constexpr Serie<ReglageTexte> derniersrapides{{{u"RECHERCHE", u"TEXTERAPIDE#"}, u"", Maitre::Non}};
inline constexpr Serie<ReglageTexte> dernierspremiers{{{u"RECHERCHE", u"TEXTERECH0#"}, u"", Maitre::Non}};
inline constexpr Serie<ReglageTexte> derniersseconds{{{u"RECHERCHE", u"TEXTERECH1#"}, u"", Maitre::Non}};
inline constexpr Serie<ReglageTexte> derniersmots{{{u"RECHERCHE", u"TEXTEDICO#"}, u"", Maitre::Non}};

// ---- styles, from 0 to 99
inline constexpr Serie<ReglageTexte> stylenom{{{u"EDITEUR", u"STYLE##-NOM"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageBooleen> styletype{{{u"EDITEUR", u"STYLE##-TYPE"}, false, Maitre::Oui}};
inline constexpr Serie<ReglageTexte> stylefonte{{{u"EDITEUR", u"STYLE##-NOMDELAFONTE"}, u"", Maitre::Oui}};
inline constexpr Serie<ReglageEntier> styletaille{{{u"EDITEUR", u"STYLE##-TAILLEDELAFONTE"}, 0, Maitre::Oui, bornes16}};
inline constexpr Serie<ReglageBooleen> stylegras{{{u"EDITEUR", u"STYLE##-GRAS"}, false, Maitre::Oui}};
inline constexpr Serie<ReglageBooleen> stylesouligne{{{u"EDITEUR", u"STYLE##-SOULIGNE"}, false, Maitre::Oui}};
inline constexpr Serie<ReglageBooleen> styleitalique{{{u"EDITEUR", u"STYLE##-ITALIQUE"}, false, Maitre::Oui}};
inline constexpr Serie<ReglageBooleen> stylebarre{{{u"EDITEUR", u"STYLE##-BARRE"}, false, Maitre::Oui}};
inline constexpr Serie<ReglageEntier> styleexposant{{{u"EDITEUR", u"STYLE##-EXPOSANT"}, 0, Maitre::Oui, bornes16}};
inline constexpr Serie<ReglageEntier> stylecouleur{{{u"EDITEUR", u"STYLE##-COULEUR"}, 0, Maitre::Oui}};
inline constexpr Serie<ReglageBooleen> stylepuce{{{u"EDITEUR", u"STYLE##-PUCE"}, false, Maitre::Oui}};
inline constexpr Serie<ReglageEntier> styleretraitgauche{{{u"EDITEUR", u"STYLE##-RETRAITGAUCHE"}, 0, Maitre::Oui}};
inline constexpr Serie<ReglageEntier> styleretraitdroit{{{u"EDITEUR", u"STYLE##-RETRAITDROIT"}, 0, Maitre::Oui}};
inline constexpr Serie<ReglageEntier> stylealignement{{{u"EDITEUR", u"STYLE##-ALIGNEMENT"}, 0, Maitre::Oui, bornes16}};
inline constexpr Serie<ReglageEntier> styleretrait1ligne{
    {{u"EDITEUR", u"STYLE##-RETRAIT1LIGNE"}, 0, Maitre::Oui, bornes16}};
inline constexpr Serie<ReglageEntier> styleindentpuce{{{u"EDITEUR", u"STYLE##-INDENTPUCE"}, 0, Maitre::Oui}};
inline constexpr Serie<ReglageTexte> styletabulations{{{u"EDITEUR", u"STYLE##-TABULATIONS"}, u"", Maitre::Oui}};
/// 1 for a style of the condensed list, 0 for another, 2 where nobody has chosen.
inline constexpr Serie<ReglageEntier> styleabc{{{u"EDITEUR", u"STYLE##-ABC"}, 2, Maitre::Oui, bornes16}};

/// The line that is copied with a passage: {article}, {titre}, {collection}, {source}, {date} and {clé} stand for what
/// the document has of these.
inline constexpr ReglageTexte citation{
    {u"EDITEUR", u"CITATION"}, u"{article}, {titre}, {collection}, {source}, {date} (réf. {clé})", Maitre::Oui};

// ---- the preview of what is printed
inline constexpr ReglageLibre apercularge{{u"POSITIONFORME", u"APERCUWIDTH"}, 0};
inline constexpr ReglageLibre apercuhaut{{u"POSITIONFORME", u"APERCUHEIGHT"}, 0};

// ---- the window of the dossiers
inline constexpr ReglageEntier dossiersdeveloppe{{u"DOSSIER", u"DEVELOPPE"}, 1, Maitre::Oui};
inline constexpr ReglageLibre dossierslargeur{{u"POSITIONFORME", u"DOSSIERSWIDTH"}, 0};
inline constexpr ReglageLibre dossiershauteur{{u"POSITIONFORME", u"DOSSIERSHEIGHT"}, 0};
/// The tree's part of what tree and list have together, in thousandths.
inline constexpr ReglageLibre dossierspartage{{u"POSITIONFORME", u"DOSSIERSSEPAR"}, 0};

// ---- printing, of documents and of dossiers
inline constexpr DesDeux<ReglageEntier> margehaute{{{u"EDITEUR", u"PRINTERMARGEHAUTE"}, 567, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> margebasse{{{u"EDITEUR", u"PRINTERMARGEBASSE"}, 567, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> margedroite{{{u"EDITEUR", u"PRINTERMARGEDROITE"}, 567, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> margegauche{{{u"EDITEUR", u"PRINTERMARGEGAUCHE"}, 567, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> margeentete{{{u"EDITEUR", u"PRINTERMARGEENTETE"}, 567, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> margepieddepage{{{u"EDITEUR", u"PRINTERMARGEPIEDDEPAGE"}, 567, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> nopageentete{{{u"EDITEUR", u"NOPAGEENTETE"}, 0, Maitre::Oui}};
inline constexpr DesDeux<ReglageEntier> nopagepied{{{u"EDITEUR", u"NOPAGEPIED"}, 0, Maitre::Oui}};
inline constexpr DesDeux<ReglageTexte> textentete{{{u"EDITEUR", u"TEXTENTETE"}, u"", Maitre::Oui}};
inline constexpr DesDeux<ReglageTexte> textpied{{{u"EDITEUR", u"TEXTPIED"}, u"", Maitre::Oui}};
// The keys of alignment say TEXT where those of the font say TEXTE: both spellings are stored data.
inline constexpr ReglagesLigne lignenopageentete{{{{u"EDITEUR", u"CADRAGENOPAGEENTETE"}, 2, Maitre::Oui}},
                                                 {{{u"EDITEUR", u"NOPAGEENTETEFONTE"}, u"Arial", Maitre::Oui}},
                                                 {{{u"EDITEUR", u"NOPAGEENTETETAILLE"}, 10, Maitre::Oui}},
                                                 {{{u"EDITEUR", u"NOPAGEENTETEGRAS"}, 0, Maitre::Oui}},
                                                 {{{u"EDITEUR", u"NOPAGEENTETEITALIQUE"}, 0, Maitre::Oui}}};
inline constexpr ReglagesLigne ligneentete{{{{u"EDITEUR", u"CADRAGETEXTENTETE"}, 2, Maitre::Oui}},
                                           {{{u"EDITEUR", u"TEXTEENTETEFONTE"}, u"Arial", Maitre::Oui}},
                                           {{{u"EDITEUR", u"TEXTEENTETETAILLE"}, 10, Maitre::Oui}},
                                           {{{u"EDITEUR", u"TEXTEENTETEGRAS"}, 0, Maitre::Oui}},
                                           {{{u"EDITEUR", u"TEXTEENTETEITALIQUE"}, 0, Maitre::Oui}}};
inline constexpr ReglagesLigne lignenopagepied{{{{u"EDITEUR", u"CADRAGENOPAGEPIED"}, 2, Maitre::Oui}},
                                               {{{u"EDITEUR", u"NOPAGEPIEDFONTE"}, u"Arial", Maitre::Oui}},
                                               {{{u"EDITEUR", u"NOPAGEPIEDTAILLE"}, 10, Maitre::Oui}},
                                               {{{u"EDITEUR", u"NOPAGEPIEDGRAS"}, 0, Maitre::Oui}},
                                               {{{u"EDITEUR", u"NOPAGEPIEDITALIQUE"}, 0, Maitre::Oui}}};
inline constexpr ReglagesLigne lignepied{{{{u"EDITEUR", u"CADRAGETEXTPIED"}, 2, Maitre::Oui}},
                                         {{{u"EDITEUR", u"TEXTEPIEDFONTE"}, u"Arial", Maitre::Oui}},
                                         {{{u"EDITEUR", u"TEXTEPIEDTAILLE"}, 10, Maitre::Oui}},
                                         {{{u"EDITEUR", u"TEXTEPIEDGRAS"}, 0, Maitre::Oui}},
                                         {{{u"EDITEUR", u"TEXTEPIEDITALIQUE"}, 0, Maitre::Oui}}};
inline constexpr DesDeux<ReglageBooleen> choiximprimante{{{u"EDITEUR", u"CHOIXIMPRIMANTE"}, true, Maitre::Oui}};
inline constexpr DesDeux<ReglageBooleen> ejectionautomatique{{{u"EDITEUR", u"EJECTIONAUTOMATIQUE"}, true, Maitre::Oui}};
inline constexpr DesDeux<ReglageBooleen> ligneseparatrice{{{u"EDITEUR", u"LIGNESEPARATRICE"}, true, Maitre::Oui}};

} // namespace velm::reglage
