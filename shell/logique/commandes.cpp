#include "shell/logique/commandes.h"

#include "core/cle.h"

#include <algorithm>
#include <array>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int nombredederniers = 9;
constexpr int premieredescollections = 10; ///< text number of the first slot's name

constexpr std::array textesdesplaces{133, 134, 135, 1322, 1324};

/// Command; its button: key and tip; its entry: name, index, caption; picture, key; form, need, ranks.
constexpr std::array<LigneCommande, nombredordres> table{
    {{Ordre::Enregistrer, {}, {u"mfichier0", 0, 9050}, u"enregistrer", u"Ctrl+S", Forme::Simple, Besoin::Fenetre},
     {Ordre::EnvoyerTexte, {}, {u"mfichiersend", 0, 9052}, u"texte", {}, Forme::Simple, Besoin::Fenetre},
     {Ordre::EnvoyerPiece, {}, {u"mfichiersend", 1, 9053}, u"piècejointe", {}, Forme::Simple, Besoin::Fenetre},
     {Ordre::Ranger, {}, {u"mfichier1", 0, 9054}, u"ranger", {}, Forme::Simple, Besoin::Fenetre},
     {Ordre::Imprimer,
      {u"Imprimer", 113},
      {u"mfichier2", 0, 9000},
      u"Imprimer",
      u"Ctrl+P",
      Forme::Simple,
      Besoin::Fenetre},
     {Ordre::Copier, {u"Copier", 120}, {u"medition0", 0, 9056}, u"Copier", u"Ctrl+C", Forme::Simple, Besoin::Fenetre},
     {Ordre::ToutSelectionner,
      {},
      {u"medition0", 1, 9057},
      u"sélectionnertout",
      u"Ctrl+A",
      Forme::Simple,
      Besoin::Fenetre},
     {Ordre::Chercher, {}, {u"medition0", 2, 9058}, u"chercher", u"Ctrl+F", Forme::Simple, Besoin::Fenetre},
     {Ordre::Ejections, {u"imprimereject", 1203}, {}, u"imprimereject", {}, Forme::Deroulante, Besoin::Attente},
     {Ordre::ImprimerPage, {u"imprimereject1"}, {{}, -1, 1203}, {}, {}, Forme::Simple, Besoin::Attente},
     {Ordre::EjecterPage, {u"imprimereject2"}, {u"mfichier2", 2, 4405}, u"éjecter", {}, Forme::Simple, Besoin::Attente},
     {Ordre::AbandonnerTravail, {u"imprimereject3"}, {{}, -1, 4406}, {}, {}, Forme::Simple, Besoin::Attente},
     {Ordre::ConfigurerImprimante,
      {},
      {u"mfichier2", 3, 115},
      u"configurerimprimante",
      {},
      Forme::Simple,
      Besoin::Attente},
     {Ordre::Precedent, {u"Précédent", 170}, {}, u"Précédent", u"Alt+Left", Forme::Deroulante, Besoin::Etat},
     {Ordre::Suivant, {u"Suivant", 171}, {}, u"Suivant", u"Alt+Right", Forme::Deroulante, Besoin::Etat},
     {Ordre::DernierDocument, {}, {u"mnuLastFile", 0}, {}, {}, Forme::Simple, Besoin::Rien, nombredederniers},
     {Ordre::Rechercher, {u"Rechercher", 2120}, {}, u"Rechercher", u"Ctrl+Shift+F", Forme::Bascule},
     {Ordre::MontrerSelection, {}, {u"mselection", -1, 2120}, u"Rechercher"},
     {Ordre::Index, {}, {u"moutils0", 0, 9004}, u"Index", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Chrono, {u"chrono", 8000}, {u"moutils0", 1, 9005}, u"chrono", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Numero, {u"numéro", 8050}, {u"moutils0", 2, 9006}, u"numéro", {}, Forme::Simple, Besoin::Attente},
     {Ordre::MotCle, {u"motclé", 8300}, {u"moutils0", 4, 9008}, u"motclé", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Dossiers, {u"Dossiers", 4201}, {u"moutils0", 3, 9007}, u"Dossiers", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Collection,
      {u"Index", premieredescollections},
      {u"maffichagef", 0, premieredescollections},
      u"collection",
      {},
      Forme::Bascule,
      Besoin::Rien,
      nombredefenetres},
     {Ordre::Fenetre,
      {},
      {u"mlistefenetre", 1, premieredescollections},
      u"collection",
      {},
      Forme::Bascule,
      Besoin::Rien,
      nombredefenetres},
     {Ordre::UneFenetre, {}, {u"maffichagetfu", -1, 9002}, {}, {}, Forme::Bascule},
     {Ordre::Cascade, {u"Cascade", 140}, {u"mdisposition", 0, 140}, u"Cascade"},
     {Ordre::Horizontalement, {u"Horizontalement", 142}, {u"mdisposition", 1, 142}, u"Horizontalement"},
     {Ordre::Verticalement, {u"Verticalement", 141}, {u"mdisposition", 2, 141}, u"Verticalement"},
     {Ordre::BarreEcran, {u"Barrefenêtre", 132}, {}, u"Barrefenêtre", {}, Forme::Bascule},
     {Ordre::BarreOutils, {u"Barreoutils", 143}, {}, u"Barreoutils", {}, Forme::Bascule},
     {Ordre::BarreEtat, {}, {u"maffichage0", 3, 9001}, {}, {}, Forme::Bascule},
     {Ordre::PlaceCommande,
      {},
      {u"mbarre1", 0, textesdesplaces[0]},
      {},
      {},
      Forme::Choix,
      Besoin::Rien,
      nombredepositions},
     {Ordre::PlaceEcran,
      {},
      {u"mbarre2", 0, textesdesplaces[0]},
      {},
      {},
      Forme::Choix,
      Besoin::Rien,
      nombredepositions},
     {Ordre::PlaceOutils,
      {},
      {u"mbarre3", 0, textesdesplaces[0]},
      {},
      {},
      Forme::Choix,
      Besoin::Rien,
      nombredepositions},
     {Ordre::AfficherCriteres, {u"affichercritères", 2430}, {}, u"affichercritères", {}, Forme::Bascule},
     {Ordre::Regrouper, {u"regrouper", 2605}, {}, u"regrouper", {}, Forme::Bascule, Besoin::Etat},
     {Ordre::PrecedentRecherche,
      {u"précédentrecherche", 9030},
      {},
      u"précédentrecherche",
      {},
      Forme::Simple,
      Besoin::Etat},
     {Ordre::SuivantRecherche, {u"suivantrecherche", 9031}, {}, u"suivantrecherche", {}, Forme::Simple, Besoin::Etat},
     {Ordre::OuvrirCriteres, {u"ouvrircritères", 9032}, {}, u"ouvrircritères", {}, Forme::Simple, Besoin::Etat},
     {Ordre::SauverCriteres, {u"sauvercritères", 9033}, {}, u"sauvercritères", {}, Forme::Simple, Besoin::Etat},
     {Ordre::ImprimerCriteres, {u"imprimercritères", 9034}, {}, u"imprimercritères", {}, Forme::Simple, Besoin::Etat},
     {Ordre::EnvoyerCriteres, {u"envoyercritères", 9035}, {}, u"envoyercritères", {}, Forme::Simple, Besoin::Etat},
     {Ordre::OuvrirLignes, {}, {u"ContextMenuOuvrir", -1, 9018}},
     {Ordre::SupprimerLignes, {}, {u"ContextMenuSuppress", -1, 9019}},
     {Ordre::ImprimerLignes, {}, {u"ContextMenuPrint", -1, 9020}},
     {Ordre::Outil, {u"outil"}, {u"moutils1", 0}, {}, {}, Forme::Simple, Besoin::Attente, plusdoutils},
     {Ordre::Options, {}, {u"moutils3", -1, 9009}, u"options", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Editeur, {}, {u"mediteur", -1, 9017}, {}, {}, Forme::Simple, Besoin::Attente},
     {Ordre::MettreAJour, {}, {u"Menu_MajNet", -1, 7000}, u"majnet", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Astuce, {}, {u"maide0", 0, 9012}, u"astuce"},
     {Ordre::AideWeb, {}, {u"maide0", 1, 9013}, u"aideweb", {}, Forme::Simple, Besoin::Attente},
     {Ordre::Aide, {}, {u"maide0", 2, 9014}, u"aide", u"F1"},
     {Ordre::APropos, {}, {u"maide1", 0, 9015}, u"apropos"},
     {Ordre::Partenaires, {}, {u"maide1", 1, 9016}, u"partenaires", {}, Forme::Simple, Besoin::Etat},
     {Ordre::Quitter, {}, {u"mfichier3", -1, 116}, u"quitter", u"Ctrl+Q"}}};

static_assert(
    [] {
        for (int rang = 0; rang < nombredordres; ++rang) {
            if (table.at(static_cast<std::size_t>(rang)).ordre != static_cast<Ordre>(rang))
                return false;
        }
        return true;
    }(),
    "a line for each command, in their order");

constexpr std::array barrecommande{
    PlaceDeBarre{Ordre::Precedent},       PlaceDeBarre{Ordre::Suivant},     PlaceDeBarre{{}, u"barrehistorique"},
    PlaceDeBarre{Ordre::Copier},          PlaceDeBarre{Ordre::Imprimer},    PlaceDeBarre{Ordre::Ejections},
    PlaceDeBarre{{}, u"barreimpression"}, PlaceDeBarre{Ordre::Rechercher},  PlaceDeBarre{Ordre::Chrono},
    PlaceDeBarre{Ordre::Numero},          PlaceDeBarre{Ordre::MotCle},      PlaceDeBarre{{}, u"barrelistes"},
    PlaceDeBarre{Ordre::Dossiers},        PlaceDeBarre{{}, u"barrebarres"}, PlaceDeBarre{Ordre::BarreEcran},
    PlaceDeBarre{Ordre::BarreOutils},     PlaceDeBarre{Ordre::Cascade},     PlaceDeBarre{Ordre::Horizontalement},
    PlaceDeBarre{Ordre::Verticalement}};

constexpr std::array barreecran{PlaceDeBarre{Ordre::Collection}};
constexpr std::array barreoutils{PlaceDeBarre{Ordre::Outil}};

constexpr std::array barredelaliste{PlaceDeBarre{Ordre::AfficherCriteres}, PlaceDeBarre{Ordre::Regrouper},
                                    PlaceDeBarre{{}, u"barreregrouper"},   PlaceDeBarre{Ordre::PrecedentRecherche},
                                    PlaceDeBarre{Ordre::SuivantRecherche}, PlaceDeBarre{{}, u"barrecritères"},
                                    PlaceDeBarre{Ordre::OuvrirCriteres},   PlaceDeBarre{Ordre::SauverCriteres},
                                    PlaceDeBarre{Ordre::ImprimerCriteres}, PlaceDeBarre{Ordre::EnvoyerCriteres}};

constexpr std::array ejections{Ordre::ImprimerPage, Ordre::EjecterPage, Ordre::AbandonnerTravail};

bool estcollection(const LigneCommande& ligne) {
    return ligne.entree.libelle == premieredescollections;
}

} // namespace

std::span<const LigneCommande> commandes() {
    return table;
}

const LigneCommande& lignede(Ordre ordre) {
    return table.at(static_cast<std::size_t>(ordre));
}

Besoin besoinde(Ordre ordre, int rang) {
    // The index list, which stands behind the collections, is still to come.
    return ordre == Ordre::Collection && rang >= nombredecollections ? Besoin::Attente : lignede(ordre).besoin;
}

int libellede(Ordre ordre, int rang) {
    const LigneCommande& ligne = lignede(ordre);
    if (ligne.forme == Forme::Choix)
        return textesdesplaces.at(static_cast<std::size_t>(rang));
    if (estcollection(ligne))
        return ligne.entree.libelle + rang;
    return ligne.entree.libelle != 0 ? ligne.entree.libelle : ligne.bouton.bulle;
}

int bullede(Ordre ordre, int rang) {
    const LigneCommande& ligne = lignede(ordre);
    return ordre == Ordre::Collection ? ligne.bouton.bulle + rang : ligne.bouton.bulle;
}

QString imagede(Ordre ordre, int rang) {
    const LigneCommande& ligne = lignede(ordre);
    const QString image = ligne.image.toString();
    return estcollection(ligne) ? image + QString::number(rang) : image;
}

QString boutonde(Ordre ordre, int rang) {
    const LigneCommande& ligne = lignede(ordre);
    if (ordre == Ordre::Collection && rang < nombredecollections)
        return typedindice(rang);
    const QString cle = ligne.bouton.cle.toString();
    return ordre == Ordre::Outil ? cle + QString::number(rang + 1) : cle;
}

QString entreede(Ordre ordre, int rang) {
    const LigneCommande::Entree& entree = lignede(ordre).entree;
    const QString nom = entree.nom.toString();
    return entree.indice < 0 || nom.isEmpty() ? nom : nom + u'(' + QString::number(entree.indice + rang) + u')';
}

std::optional<OrdreRang> ordredubouton(QStringView cle) {
    if (cle.isEmpty())
        return std::nullopt;
    for (const LigneCommande& ligne : table) {
        for (int rang = 0; rang < ligne.nombre; ++rang) {
            if (boutonde(ligne.ordre, rang) == cle)
                return OrdreRang{ligne.ordre, rang};
        }
    }
    return std::nullopt;
}

std::span<const PlaceDeBarre> placesde(Barre barre) {
    switch (barre) {
    case Barre::Ecran:
        return barreecran;
    case Barre::Outils:
        return barreoutils;
    case Barre::Commande:
        break;
    }
    return barrecommande;
}

std::span<const PlaceDeBarre> placesdelaliste() {
    return barredelaliste;
}

std::span<const Ordre> entreesdubouton(Ordre ordre) {
    return ordre == Ordre::Ejections ? std::span<const Ordre>(ejections) : std::span<const Ordre>();
}

Ordre ordredeplace(Barre barre) {
    switch (barre) {
    case Barre::Ecran:
        return Ordre::PlaceEcran;
    case Barre::Outils:
        return Ordre::PlaceOutils;
    case Barre::Commande:
        break;
    }
    return Ordre::PlaceCommande;
}

} // namespace velm
