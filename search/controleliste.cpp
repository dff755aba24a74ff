#include "search/controleliste.h"

#include "core/langue.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString section = u"RECHERCHE"_s;
const QString cleordre = u"ORDRECOLONNE"_s;
const QString clelargeurs = u"LARGEURCOLONNE"_s;
/// So many documents are opened without a question: a list with all its rows selected takes its time.
constexpr qsizetype plusdouvertures = 50;
constexpr int titredesmessages = 8;
constexpr int titredelimpression = 33;

} // namespace

ControleListe::ControleListe(const Services& services, VueLignes& lignes, VueListe& vue)
    : services_(services), lignes_(lignes), vue_(vue), liste_(services.recherche.texte),
      remplissage_(services.recherche, liste_, lignes, vue) {
    litcolonnes();
}

void ControleListe::charge() {
    vue_.permetbouton(u"regrouper"_s, true);
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
    if (!remplissage_.visible())
        vue_.montrecriteres(true);
    vue_.majdispositions();
}

void ControleListe::formulairevisible(bool visible) {
    vue_.enfoncebouton(u"affichercritères"_s, visible);
    vue_.infobulle(u"affichercritères"_s, texte(infobullecriteres(visible)));
}

void ControleListe::regroupe(bool enfonce) {
    lignes_.regroupe(enfonce);
    vue_.infobulle(u"regrouper"_s, texte(infobulleregrouper(enfonce)));
}

// ---- the columns

void ControleListe::litcolonnes() {
    liste_.prendcolonnes(services_.reglages.getsetting(section, cleordre),
                         services_.reglages.getsetting(section, clelargeurs));
}

void ControleListe::ecritcolonnes() {
    const QString largeurs = liste_.largeurs();
    for (int colonne = 0; colonne < ListeSelection::colonnesvisibles; ++colonne)
        liste_.changelargeur(colonne, lignes_.largeur(colonne));
    Reglages& reglages = services_.reglages;
    if (liste_.ordre() != reglages.getsetting(section, cleordre, ListeSelection::masqueordre.toString()))
        reglages.savesetting(section, cleordre, liste_.ordre());
    if (liste_.largeurs() != largeurs)
        reglages.savesetting(section, clelargeurs, liste_.largeurs());
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
    if (cles.size() > plusdouvertures && !veutouvrir(cles.size()))
        return;
    const Resultat& resultat = liste_.resultat();
    for (const QString& cle : cles)
        vue_.ouvredocument(cle, resultat.mot1, resultat.mot2);
}

bool ControleListe::veutouvrir(qsizetype nombre) const {
    constexpr int question = 9495;
    return services_.recherche.dialogues.message(remplace(texte(question), {QString::number(nombre)}),
                                                 texte(titredesmessages), Icone::Question, Bouton::Oui | Bouton::Non,
                                                 Bouton::Non) == Bouton::Oui;
}

void ControleListe::supprime() {
    if (remplie() || lignes_.choix().first < 1)
        return;
    litchoix();
    lignes_.fige();
    liste_.supprimeselection();
    lignes_.relit();
    montrechoix();
    remplissage_.dit(liste_.lignes());
}

void ControleListe::imprime() {
    constexpr int question = 2432;
    constexpr int impossible = 9496;
    if (remplie() || liste_.lignes() == 0 ||
        services_.recherche.dialogues.message(texte(question) + u" ?"_s, texte(titredelimpression), Icone::Question,
                                              Bouton::Oui | Bouton::Non) != Bouton::Oui)
        return;
    lignes_.choisittout();
    const TableauImprime papier = tableau();
    const bool imprimee = [&] {
        const Attente attente(services_.recherche.sablier);
        return services_.imprimante.imprime(papier);
    }();
    if (!imprimee)
        services_.recherche.dialogues.message(texte(impossible), texte(titredelimpression), Icone::Exclamation);
}

TableauImprime ControleListe::tableau() const {
    TableauImprime papier{texte(titredelimpression), {}, {}, lignes_.copie()};
    for (int colonne = 0; colonne < ListeSelection::colonnes; ++colonne) {
        papier.entetes << liste_.entete(colonne);
        papier.largeurs << lignes_.largeur(colonne);
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
