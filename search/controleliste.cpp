#include "search/controleliste.h"

#include "core/listes.h"
#include "core/tablereglages.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr ClesColonnes gardees{reglage::selectioncolonnes, reglage::selectionlargeurs};

} // namespace

ControleListe::ControleListe(const Services& services, VueLignes& lignes, VueListe& vue)
    : services_(services), lignes_(lignes), vue_(vue), liste_(services.recherche.texte),
      remplissage_(services.recherche, liste_, lignes, vue) {
    litcolonnes(services_.reglages, gardees, liste_.colonnes());
}

void ControleListe::charge() {
    vue_.permet(Ordre::Regrouper, true);
    vue_.ditbilan({texte(Texte::DocumentsAVenir)});
    remplissage_.montrelignes();
}

// ---- the panel

void ControleListe::affichemenuselection(bool visible) {
    if (!visible) {
        vue_.ditetat(QString());
        remplissage_.cachepanneau();
        return;
    }
    vue_.montrepanneau(true);
    if (remplissage_.visible())
        remplissage_.dit(liste_.lignes());
    else
        vue_.montrecriteres(true);
    vue_.majdispositions();
}

void ControleListe::formulairevisible(bool visible) {
    vue_.coche(Ordre::AfficherCriteres, visible);
    vue_.infobulle(Ordre::AfficherCriteres, texte(infobullecriteres(visible)));
}

void ControleListe::regroupe(bool enfonce) {
    lignes_.regroupe(enfonce);
    liste_.regroupe(enfonce);
    remplissage_.ditregroupement();
}

void ControleListe::ecritcolonnes() {
    Colonnes& colonnes = liste_.colonnes();
    for (int place = 0; place < colonnes.visibles(); ++place)
        colonnes.changelargeur(place, lignes_.largeur(place));
    velm::ecritcolonnes(services_.reglages, gardees, colonnes);
}

// ---- the selected rows

void ControleListe::litchoix() {
    const auto [row, rowsel] = lignes_.choix();
    liste_.choisit(row, rowsel);
}

void ControleListe::montrechoix() {
    lignes_.choisit(liste_.row(), liste_.rowsel());
}

void ControleListe::trie(int colonne) {
    if (remplie())
        return;
    const Attente attente(services_.recherche.sablier);
    litchoix();
    lignes_.trie(colonne, liste_.marque(colonne) == ListeSelection::Marque::Ascendante);
    montrechoix();
    remplissage_.ditregroupement();
}

QStringList ControleListe::cleschoisies() const {
    const auto [premiere, derniere] = liste_.rangschoisis();
    QStringList cles;
    for (int rang = std::max(premiere, 1); rang <= derniere; ++rang)
        cles << liste_.cle(rang);
    return cles;
}

void ControleListe::ouvre() {
    if (remplie())
        return;
    litchoix();
    const QStringList cles = cleschoisies();
    if (!veutouvrir(cles.size(), services_.recherche.dialogues, services_.recherche.texte))
        return;
    const Resultat& resultat = liste_.resultat();
    for (const QString& cle : cles)
        vue_.ouvredocument(cle, resultat.mot1, resultat.mot2);
}

void ControleListe::supprime() {
    if (remplie() || lignes_.choix().first < 1)
        return;
    litchoix();
    lignes_.fige();
    liste_.supprimeselection();
    lignes_.relit();
    montrechoix();
    remplissage_.ditreste();
}

void ControleListe::imprime() {
    const RemplissageListe::Services& avec = services_.recherche;
    if (remplie() || liste_.lignes() == 0 || !veutimprimer(avec.dialogues, avec.texte))
        return;
    imprimeliste(tableau(), services_.imprimante, avec.sablier, avec.dialogues, avec.texte);
}

PaperTable ControleListe::tableau() {
    lignes_.choisittout();
    PaperTable papier{titreimprime(services_.recherche.texte), {}, {}, lignes_.copie()};
    for (int place = 0; place < liste_.colonnes().nombre(); ++place) {
        papier.headers << liste_.colonnes().titre(place);
        papier.widths << lignes_.largeur(place);
    }
    return papier;
}

void ControleListe::suivantrecherche() {
    if (remplie())
        return;
    litchoix();
    if (!liste_.suivantrecherche())
        return;
    montrechoix();
    ouvre();
}

void ControleListe::precedentrecherche() {
    if (remplie())
        return;
    litchoix();
    if (!liste_.precedentrecherche())
        return;
    montrechoix();
    ouvre();
}

} // namespace velm
