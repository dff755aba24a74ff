#include "shell/logique/commandes.h"

#include "core/cle.h"
#include "core/tablereglages.h"
#include "core/texte.h"
#include "shell/logique/barres.h"

#include <algorithm>
#include <array>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int nombredederniers = 9;
constexpr Texte premieredescollections = libelledefenetre(0);

constexpr std::array textesdesplaces{Texte::BarreMasquee, Texte::BarreEnHaut, Texte::BarreEnBas, Texte::BarreAGauche,
                                     Texte::BarreADroite};

using enum Forme;
using enum Besoin;

/// Command; its button: key and tip; its entry: name, index, caption; picture, key; form, need, ranks.
constexpr std::array<LigneCommande, nombredordres> table{
    {{Ordre::Enregistrer,
      {},
      {u"mfichier0", 0, Texte::MenuEnregistrerSous},
      u"enregistrer",
      u"Ctrl+S",
      Simple,
      Fenetre},
     {Ordre::EnvoyerTexte, {}, {u"mfichiersend", 0, Texte::MenuEnvoyerTexte}, u"texte", {}, Simple, Fenetre},
     {Ordre::EnvoyerPiece,
      {},
      {u"mfichiersend", 1, Texte::MenuEnvoyerPieceJointe},
      u"piècejointe",
      {},
      Simple,
      Fenetre},
     {Ordre::Ranger, {}, {u"mfichier1", 0, Texte::MenuRangerDansUnDossier}, u"ranger", {}, Simple, Fenetre},
     {Ordre::Imprimer,
      {u"Imprimer", Texte::Imprimer},
      {u"mfichier2", 0, Texte::MenuImprimer},
      u"Imprimer",
      u"Ctrl+P",
      Simple,
      Fenetre},
     {Ordre::ExporterPdf, {}, {u"mfichierpdf", -1, Texte::MenuExporterPdf}, u"pdf", {}, Simple, Fenetre},
     {Ordre::Copier,
      {u"Copier", Texte::Copier},
      {u"medition0", 0, Texte::MenuCopier},
      u"Copier",
      u"Ctrl+C",
      Simple,
      Fenetre},
     {Ordre::CopierReference,
      {},
      {u"mcopierréférence", -1, Texte::MenuCopierReference},
      u"copierréférence",
      u"Ctrl+Shift+C",
      Simple,
      Fenetre},
     {Ordre::ToutSelectionner,
      {},
      {u"medition0", 1, Texte::MenuToutSelectionner},
      u"sélectionnertout",
      u"Ctrl+A",
      Simple,
      Fenetre},
     {Ordre::Chercher,
      {},
      {u"medition0", 2, Texte::MenuRechercherDansLeDocument},
      u"chercher",
      u"Ctrl+F",
      Simple,
      Fenetre},
     {Ordre::Ejections, {u"imprimereject", Texte::ImprimerALaSuite}, {}, u"imprimereject", {}, Deroulante, Etat},
     {Ordre::ImprimerPage, {u"imprimereject1"}, {{}, -1, Texte::ImprimerALaSuite}, {}, {}, Simple, Fenetre},
     {Ordre::EjecterPage,
      {u"imprimereject2"},
      {u"mfichier2", 2, Texte::TerminerImpression},
      u"éjecter",
      {},
      Simple,
      Etat},
     {Ordre::AbandonnerTravail, {u"imprimereject3"}, {{}, -1, Texte::AbandonImpression}, {}, {}, Simple, Etat},
     {Ordre::ConfigurerImprimante,
      {},
      {u"mfichier2", 3, Texte::MenuConfigurerImprimante},
      u"configurerimprimante",
      {},
      Simple,
      Etat},
     {Ordre::Apercu, {}, {u"maperçu", -1, Texte::MenuApercu}, u"aperçu", u"Ctrl+Shift+P", Simple, Etat},
     {Ordre::Precedent,
      {u"Précédent", Texte::DocumentPrecedent},
      {},
      u"historiqueprécédent",
      u"Alt+Left",
      Deroulante,
      Etat},
     {Ordre::Suivant, {u"Suivant", Texte::DocumentSuivant}, {}, u"historiquesuivant", u"Alt+Right", Deroulante, Etat},
     {Ordre::DernierDocument, {}, {u"mnuLastFile", 0}, {}, {}, Simple, Rien, nombredederniers},
     {Ordre::Rechercher, {u"Rechercher", Texte::Recherche}, {}, u"Rechercher", {}, Bascule},
     {Ordre::MontrerSelection, {}, {u"mselection", -1, Texte::Recherche}, u"Rechercher"},
     {Ordre::AllerChercher, {}, {u"mrecherche", -1, Texte::Recherche}, u"Rechercher", u"Ctrl+Shift+F"},
     {Ordre::Index, {}, {u"moutils0", 0, Texte::MenuIndex}, u"Index", {}, Bascule},
     {Ordre::Chrono,
      {u"chrono", Texte::ListeChronologique},
      {u"moutils0", 1, Texte::MenuListeChronologique},
      u"chrono",
      {},
      Bascule},
     {Ordre::Numero,
      {u"numéro", Texte::RechercheParNumero},
      {u"moutils0", 2, Texte::MenuRechercheParNumero},
      u"numéro",
      {},
      Bascule},
     {Ordre::MotCle,
      {u"motclé", Texte::ListeDesMotsCles},
      {u"moutils0", 4, Texte::MenuMotsCles},
      u"motclé",
      {},
      Bascule},
     {Ordre::Dossiers,
      {u"Dossiers", Texte::MesDossiers},
      {u"moutils0", 3, Texte::MenuMesDossiers},
      u"Dossiers",
      {},
      Simple,
      Rien},
     {Ordre::Collection,
      {u"Index", premieredescollections},
      {u"maffichagef", 0, premieredescollections},
      u"collection",
      {},
      Bascule,
      Rien,
      nombredefenetres},
     {Ordre::Fenetre,
      {},
      {u"mlistefenetre", 1, premieredescollections},
      u"collection",
      {},
      Bascule,
      Rien,
      nombredefenetres},
     {Ordre::UneFenetre, {}, {u"maffichagetfu", -1, Texte::MenuUneSeuleFenetre}, {}, {}, Bascule},
     {Ordre::Cascade,
      {u"Cascade", Texte::FenetresEnCascade},
      {u"mdisposition", 0, Texte::FenetresEnCascade},
      u"Cascade"},
     {Ordre::Horizontalement,
      {u"Horizontalement", Texte::FenetresLUneSousLAutre},
      {u"mdisposition", 1, Texte::FenetresLUneSousLAutre},
      u"Horizontalement"},
     {Ordre::Verticalement,
      {u"Verticalement", Texte::FenetresCoteACote},
      {u"mdisposition", 2, Texte::FenetresCoteACote},
      u"Verticalement"},
     {Ordre::FenetreSuivante,
      {},
      {u"mdisposition", 3, Texte::FenetreSuivante},
      u"fenêtresuivante",
      u"Ctrl+F6",
      Simple,
      Etat},
     {Ordre::ToutFermer, {}, {u"mdisposition", 4, Texte::ToutFermer}, u"toutfermer", {}, Simple, Etat},
     {Ordre::ZoomAgrandir, {}, {u"mzoom", 0, Texte::ZoomAgrandir}, {}, u"Ctrl++", Simple, Etat},
     {Ordre::ZoomReduire, {}, {u"mzoom", 1, Texte::ZoomReduire}, {}, u"Ctrl+-", Simple, Etat},
     {Ordre::ZoomNormal, {}, {u"mzoom", 2, Texte::ZoomNormal}, {}, u"Ctrl+0", Simple, Etat},
     {Ordre::BarreEcran, {u"Barrefenêtre", Texte::BarreDesFenetres}, {}, u"Barrefenêtre", {}, Bascule},
     {Ordre::BarreOutils, {u"Barreoutils", Texte::BarreDOutils}, {}, u"Barreoutils", {}, Bascule},
     {Ordre::BarreEtat, {}, {u"maffichage0", 3, Texte::MenuBarreDEtat}, {}, {}, Bascule},
     {Ordre::PlaceCommande, {}, {u"mbarre1", 0, textesdesplaces[0]}, {}, {}, Choix, Rien, nombredepositions},
     {Ordre::PlaceEcran, {}, {u"mbarre2", 0, textesdesplaces[0]}, {}, {}, Choix, Rien, nombredepositions},
     {Ordre::PlaceOutils, {}, {u"mbarre3", 0, textesdesplaces[0]}, {}, {}, Choix, Rien, nombredepositions},
     {Ordre::AfficherCriteres, {u"affichercritères", Texte::AfficherLesCriteres}, {}, u"affichercritères", {}, Bascule},
     {Ordre::Regrouper, {u"regrouper", Texte::RegrouperLesCellules}, {}, u"regrouper", {}, Bascule, Etat},
     {Ordre::PrecedentRecherche,
      {u"précédentrecherche", Texte::PrecedentDeLaListe},
      {},
      u"précédentrecherche",
      {},
      Simple,
      Etat},
     {Ordre::SuivantRecherche,
      {u"suivantrecherche", Texte::SuivantDeLaListe},
      {},
      u"suivantrecherche",
      {},
      Simple,
      Etat},
     {Ordre::OuvrirCriteres, {u"ouvrircritères", Texte::OuvrirCriteres}, {}, u"ouvrircritères", {}, Simple, Etat},
     {Ordre::SauverCriteres,
      {u"sauvercritères", Texte::EnregistrerLesCriteres},
      {},
      u"sauvercritères",
      {},
      Simple,
      Etat},
     {Ordre::ImprimerCriteres,
      {u"imprimercritères", Texte::ImprimerLaListe},
      {},
      u"imprimercritères",
      {},
      Simple,
      Etat},
     {Ordre::EnvoyerCriteres,
      {u"envoyercritères", Texte::EnvoyerLesCriteres},
      {},
      u"envoyercritères",
      {},
      Simple,
      Etat},
     {Ordre::OuvrirLignes, {}, {u"ContextMenuOuvrir", -1, Texte::OuvrirDeLaListe}, u"ouvrir"},
     {Ordre::SupprimerLignes, {}, {u"ContextMenuSuppress", -1, Texte::RetirerDeLaListe}, u"retirer"},
     {Ordre::ImprimerLignes, {}, {u"ContextMenuPrint", -1, Texte::MenuImprimerLaListe}, u"imprimercritères"},
     {Ordre::Outil, {u"outil"}, {u"moutils1", 0}, {}, {}, Simple, Attente, reglage::nombremaxoutils},
     {Ordre::Options, {}, {u"moutils3", -1, Texte::MenuOptions}, u"options", {}, Simple, Attente},
     {Ordre::Editeur, {}, {u"mediteur", -1, Texte::MenuEditeur}, {}, {}, Simple, Attente},
     {Ordre::MettreAJour, {}, {u"Menu_MajNet", -1, Texte::MiseAJourParInternet}, u"majnet", {}, Simple, Attente},
     {Ordre::Astuce, {}, {u"maide0", 0, Texte::MenuAstuce}, u"astuce"},
     {Ordre::AideWeb, {}, {u"maide0", 1, Texte::MenuAideSurInternet}, u"aideweb", {}, Simple, Attente},
     {Ordre::Aide, {}, {u"maide0", 2, Texte::MenuSommaireDeLAide}, u"aide", u"F1"},
     {Ordre::APropos, {}, {u"maide1", 0, Texte::MenuAPropos}, u"apropos"},
     {Ordre::Partenaires, {}, {u"maide1", 1, Texte::MenuPartenaires}, u"partenaires", {}, Simple, Etat},
     {Ordre::Quitter, {}, {u"mfichier3", -1, Texte::Quitter}, u"quitter", u"Ctrl+Q"}}};

static_assert(
    [] {
        for (int rang = 0; rang < nombredordres; ++rang) {
            if (table.at(static_cast<std::size_t>(rang)).ordre != static_cast<Ordre>(rang))
                return false;
        }
        return true;
    }(),
    "a line for each command, in their order");

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

std::optional<Texte> libellede(Ordre ordre, int rang) {
    const LigneCommande& ligne = lignede(ordre);
    if (ligne.forme == Forme::Choix)
        return textesdesplaces.at(static_cast<std::size_t>(rang));
    if (estcollection(ligne))
        return libelledefenetre(rang);
    return ligne.entree.libelle ? ligne.entree.libelle : ligne.bouton.bulle;
}

std::optional<Texte> bullede(Ordre ordre, int rang) {
    if (ordre == Ordre::Collection)
        return libelledefenetre(rang);
    return lignede(ordre).bouton.bulle;
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

std::optional<Besoin> besoindunom(QStringView nom) {
    for (const LigneCommande& ligne : table) {
        for (int rang = 0; rang < ligne.nombre; ++rang) {
            if (!nom.isEmpty() && (boutonde(ligne.ordre, rang) == nom || entreede(ligne.ordre, rang) == nom))
                return ligne.besoin;
        }
    }
    return std::nullopt;
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

} // namespace velm
