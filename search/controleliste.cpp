#include "search/controleliste.h"

#include "core/cle.h"
#include "core/listes.h"
#include "platform/base/memory.h"
#include "platform/system/files.h"
#include "search/recherchedico.h"
#include "search/selectionoutil.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const ClesColonnes gardees{u"RECHERCHE"_s, u"ORDRECOLONNE"_s, u"LARGEURCOLONNE"_s};

} // namespace

ControleListe::ControleListe(const Monde& monde, VueLignes& lignes, VueListe& vue)
    : monde_(monde), lignes_(lignes), vue_(vue), liste_(monde.texte),
      poste_(monde.evenements), atelier_{monde.corpus,
                                         liste_,
                                         monde.sablier,
                                         monde.dialogues,
                                         poste_.cession(),
                                         monde.texte,
                                         [this](const QString& etat) { vue_.ditetat(etat); }} {
    litcolonnes(monde_.reglages, gardees, liste_.colonnes());
}

void ControleListe::charge() {
    vue_.permetbouton(u"regrouper"_s, true);
    montrelignes();
}

// ---- the searches' side

void ControleListe::commence() {
    if (++remplissages_ == 1)
        lignes_.cache();
}

void ControleListe::acheve() {
    if (--remplissages_ == 0)
        montrelignes();
}

void ControleListe::montrelignes() {
    for (int colonne = 0; colonne < ListeSelection::colonnesvisibles; ++colonne)
        lignes_.montremarque(colonne, liste_.marque(colonne));
    lignes_.relit();
    montrechoix();
    lignes_.montre(liste_.visible);
}

void ControleListe::publie(const PublicationFin& fin) {
    for (const QString& cle : {u"précédentrecherche"_s, u"suivantrecherche"_s, u"sauvercritères"_s,
                               u"imprimercritères"_s, u"envoyercritères"_s})
        vue_.permetbouton(cle, fin.resultatpresent);
    vue_.permetbouton(u"ouvrircritères"_s, fin.ouvrircriteres);
}

void ControleListe::formulairevisible(bool visible) {
    vue_.enfoncebouton(u"affichercritères"_s, visible);
    vue_.infobulle(u"affichercritères"_s, texte(infobullecriteres(visible)));
}

void ControleListe::montreliste() {
    vue_.montrepanneau(true);
    vue_.majdispositions();
}

// ---- the panel

void ControleListe::affichemenuselection(bool visible) {
    if (!visible) {
        vue_.ditetat(QString());
        cachepanneau();
        return;
    }
    vue_.montrepanneau(true);
    if (!liste_.visible)
        vue_.montrecriteres(true);
    vue_.majdispositions();
}

/// With the form: what it found beside a hidden panel would be seen nowhere.
void ControleListe::cachepanneau() {
    vue_.montrepanneau(false);
    vue_.montrecriteres(false);
    vue_.majdispositions();
}

void ControleListe::regroupe(bool enfonce) {
    lignes_.regroupe(enfonce);
    vue_.infobulle(u"regrouper"_s, texte(infobulleregrouper(enfonce)));
}

void ControleListe::ecritcolonnes() {
    Colonnes& colonnes = liste_.colonnes();
    for (int place = 0; place < colonnes.visibles(); ++place)
        colonnes.changelargeur(place, lignes_.largeur(place));
    velm::ecritcolonnes(monde_.reglages, gardees, colonnes);
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
    const Attente attente(monde_.sablier);
    litchoix();
    lignes_.trie(colonne, liste_.marque(colonne) == ListeSelection::Marque::Ascendante);
    montrechoix();
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
    if (!veutouvrir(cles.size(), monde_.dialogues, monde_.texte))
        return;
    for (const QString& cle : cles)
        vue_.ouvredocument(cle, liste_.mot1, liste_.mot2);
}

void ControleListe::supprime() {
    if (remplie() || lignes_.choix().first < 1)
        return;
    litchoix();
    lignes_.fige();
    liste_.supprimeselection();
    lignes_.relit();
    montrechoix();
    vue_.ditetat(textecompte(liste_.lignes(), monde_.texte));
}

void ControleListe::imprime() {
    if (remplie() || liste_.lignes() == 0 || !veutimprimer(monde_.dialogues, monde_.texte))
        return;
    lignes_.choisittout();
    imprimeliste(tableau(), monde_.imprimante, monde_.sablier, monde_.dialogues, monde_.texte);
}

TableauImprime ControleListe::tableau() const {
    TableauImprime papier{titreimprime(monde_.texte), {}, {}, lignes_.copie()};
    for (int place = 0; place < liste_.colonnes().nombre(); ++place) {
        papier.entetes << liste_.colonnes().titre(place);
        papier.largeurs << lignes_.largeur(place);
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

// ---- lists that come from elsewhere

void ControleListe::fait(std::function<void()> travail) {
    poste_.fait([this, travail = std::move(travail)](const std::stop_token&) { travaille(travail); });
}

/// Where the memory does not suffice, what the list holds by then stays.
void ControleListe::travaille(const std::function<void()>& travail) {
    constexpr int sansmemoire = 9567;
    constexpr int titre = 8;
    if (withinMemory(travail))
        return;
    {
        const Remplissage remplissage(*this);
        publie(finitliste(atelier_));
    }
    montreliste();
    monde_.dialogues.message(texte(sansmemoire), texte(titre), Icone::Exclamation);
}

void ControleListe::remplit(const QStringList& cles) {
    fait([this, cles] { remplitmaintenant(cles); });
}

void ControleListe::remplitmaintenant(const QStringList& cles) {
    {
        const Remplissage remplissage(*this);
        commenceliste(atelier_);
        ajoute(cles);
        publie(finitliste(atelier_));
        vue_.ditetat(textecompte(liste_.lignes(), monde_.texte));
    }
    montreliste();
}

void ControleListe::ajoute(const QStringList& cles) {
    for (const QString& cle : cles) {
        const Recordset* rangee = monde_.corpus.rangee(decoupecle(cle));
        if (rangee && ajoutedocument(liste_, *rangee) != 0)
            return;
    }
}

void ControleListe::cherchedans(const QString& code, const QString& mots,
                                const std::function<void(const QString&)>& ligne) {
    fait([this, code, mots, ligne] { cherchemaintenant(code, mots, ligne); });
}

void ControleListe::cherchemaintenant(const QString& code, const QString& mots,
                                      const std::function<void(const QString&)>& ligne) {
    const Remplissage remplissage(*this);
    const ResultatDico resultat = RechercheDico(atelier_, ligne).cherche(DemandeDico::defenetre(mots, code));
    publie(resultat.fin);
    if (resultat.fin.resultatpresent) {
        montreliste();
        return;
    }
    if (resultat.issue == ResultatDico::Issue::Terminee)
        vue_.ditetat(textecompte(0, monde_.texte));
    cachepanneau();
}

bool ControleListe::prenddoutil(const QString& dossiertemporaire) {
    const QString chemin = fichierselection(dossiertemporaire);
    if (!fileExists(chemin))
        return false;
    fait([this, chemin] { prendmaintenant(chemin); });
    return true;
}

void ControleListe::prendmaintenant(const QString& chemin) {
    const Remplissage remplissage(*this);
    const auto resultat = remplitdepuisoutil(chemin, atelier_);
    if (!resultat)
        return;
    publie(resultat->fin);
    vue_.elargitpanneau();
    montreliste();
}

} // namespace velm
