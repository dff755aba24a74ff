#include "search/formulaire.h"

#include "core/listes.h"
#include "platform/base/memory.h"
#include "platform/text/number.h"
#include "search/dialoguescriteres.h"
#include "search/recherchecriteres.h"
#include "search/recherchedico.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int touslestextes = 900;
constexpr int recherchertexte = 1124;
constexpr int arretertexte = 2145;
constexpr int titredesmessages = 8;
constexpr int sansmemoire = 9567;
constexpr std::array conjonctions{2130, 2131, 2132, 2133};

const QString section = u"RECHERCHE"_s;
const QString clemots = u"COMBONOMBREDICO"_s;
const QString clerapide = u"COMBONOMBRE"_s;

/// The row of a limit list as it was stored; the first for what is none.
int limitestockee(const Reglages& reglages, const QString& cle) {
    const double rang = val(reglages.getsetting(section, cle));
    return rang >= 0 && rang < EtatFormulaire::limites ? static_cast<int>(rang) : 0;
}

} // namespace

Formulaire::Formulaire(const Monde& monde, VueFormulaire& vue)
    : monde_(monde), vue_(vue), types_(littypesdocument(monde.hote.atelier().corpus)),
      motscles_(texte(touslestextes)), derniers_{DerniersTextes(u"TEXTERAPIDE"_s), DerniersTextes(u"TEXTERECH0"_s),
                                                 DerniersTextes(u"TEXTERECH1"_s), DerniersTextes(u"TEXTEDICO"_s)} {
    items_.combomotcle = motscles_.items();
    items_.combotype = QStringList(texte(touslestextes)) + types_.combotype;
    for (const int numero : conjonctions)
        items_.conjonction << texte(numero);
}

void Formulaire::charge() {
    EtatFormulaire etat;
    etat.boutons.fill(true);
    etat.Combonombredico = limitestockee(monde_.reglages, clemots);
    etat.combonombre = limitestockee(monde_.reglages, clerapide);
    vue_.offremotscles(items_.combomotcle);
    for (std::size_t boite = 0; boite < derniers_.size(); ++boite) {
        derniers_.at(boite).charge(monde_.reglages);
        vue_.offrederniers(static_cast<BoiteTexte>(boite), derniers_.at(boite).textes());
    }
    for (const Onglet onglet : {Onglet::Rapide, Onglet::Criteres, Onglet::Mots})
        vue_.libelle(onglet, texte(recherchertexte));
    vue_.montre(etat);
    vue_.permetaffinage(false);
    vue_.choisitaffinage(false);
    vue_.cacheprogres();
    charge_ = true;
}

void Formulaire::decharge() {
    if (!charge_)
        return;
    const EtatFormulaire etat = vue_.etat();
    Reglages& reglages = monde_.reglages;
    ReglagesStore::Batch lot(reglages.magasin());
    reglages.savesetting(section, clemots, QString::number(etat.Combonombredico));
    reglages.savesetting(section, clerapide, QString::number(etat.combonombre));
    for (const DerniersTextes& derniers : derniers_)
        derniers.sauve(reglages);
    if (!lot.commit())
        reglages.signaleechec();
}

// ---- the window

bool Formulaire::ilyadeslignes() const {
    const ListeSelection& liste = atelier().liste;
    return liste.visible && liste.lignes() > 0;
}

void Formulaire::active() {
    vue_.permetaffinage(ilyadeslignes());
    if (!ilyadeslignes())
        vue_.choisitaffinage(false);
    vue_.focus(static_cast<Onglet>(vue_.etat().ongletrecherche));
}

void Formulaire::ongletchange(Onglet onglet) {
    const bool affinage = onglet == Onglet::Criteres && ilyadeslignes();
    vue_.permetaffinage(affinage);
    vue_.choisitaffinage(affinage);
    if (onglet == Onglet::Criteres)
        lirelesmotscles();
}

void Formulaire::lirelesmotscles() {
    const qsizetype avant = items_.combomotcle.size();
    motscles_.lirelesmotscles(atelier().corpus);
    items_.combomotcle = motscles_.items();
    if (items_.combomotcle.size() != avant)
        vue_.offremotscles(items_.combomotcle);
}

void Formulaire::annuler() {
    if (!poste().occupe())
        vue_.cache();
}

void Formulaire::ferme() {
    poste().arrete();
    vue_.cache();
}

void Formulaire::echappe() {
    if (poste().occupe())
        poste().arrete();
    else
        vue_.cache();
}

void Formulaire::annulercriteres() {
    Criteres criteres = vue_.etat().criteres;
    velm::annulercriteres(criteres);
    vue_.montrecriteres(criteres);
}

void Formulaire::choisitligne(const QString& ligne) {
    if (const QString mot = motdelaligne(ligne); !mot.isNull())
        vue_.montremots(mot);
}

// ---- searching

void Formulaire::clic(Onglet onglet) {
    if (bool& arrete = arrets_.at(static_cast<std::size_t>(onglet)); arrete) {
        arrete = false;
        vue_.libelle(onglet, texte(recherchertexte));
        poste().arrete();
        return;
    }
    poste().fait([this, onglet](const std::stop_token& arret) { travaille([&] { cherche(onglet, arret); }); });
}

void Formulaire::travaille(const std::function<void()>& travail) {
    const bool tient = [&] {
        const Remplissage remplissage(monde_.hote);
        if (withinMemory(travail))
            return true;
        abandonne();
        return false;
    }();
    if (!tient)
        atelier().dialogues.message(texte(sansmemoire), texte(titredesmessages), Icone::Exclamation);
}

/// Of a search that the memory did not suffice for, what it has found stays.
void Formulaire::abandonne() {
    arrets_.fill(false);
    vue_.cacheprogres();
    for (const Onglet onglet : {Onglet::Rapide, Onglet::Criteres, Onglet::Mots})
        vue_.libelle(onglet, texte(recherchertexte));
    finit(finitliste(atelier()));
}

void Formulaire::cherche(Onglet onglet, const std::stop_token& arret) {
    bool& arrete = arrets_.at(static_cast<std::size_t>(onglet));
    const EtatFormulaire etat = vue_.etat();
    if (onglet != Onglet::Mots) {
        arrete = true;
        vue_.libelle(onglet, texte(arretertexte));
    }
    const std::optional<PublicationFin> fin = onglet == Onglet::Rapide     ? cherchevite(etat, arret)
                                              : onglet == Onglet::Criteres ? cherchecriteres(etat, arret)
                                                                           : cherchemots(etat, arret);
    arrete = false;
    vue_.cacheprogres();
    vue_.libelle(onglet, texte(recherchertexte));
    if (!fin)
        return;
    finit(*fin);
    if (onglet != Onglet::Mots)
        ditaucun();
}

/// The walks tell what they have found, and nothing of nothing.
void Formulaire::ditaucun() const {
    if (atelier().liste.lignes() == 0)
        atelier().curseurattente(textecompte(0, monde_.texte));
}

void Formulaire::finit(const PublicationFin& fin) {
    monde_.hote.publie(fin);
    vue_.permetaffinage(fin.option2);
    if (!fin.option2)
        vue_.choisitaffinage(false);
}

std::function<void(qint64, qint64)> Formulaire::progres() {
    return [this](qint64 vus, qint64 total) { vue_.montreprogres(vus, total); };
}

void Formulaire::retient(BoiteTexte boite, const QString& texte) {
    DerniersTextes& liste = derniers(boite);
    const QStringList avant = liste.textes();
    liste.ajoute(texte);
    if (liste.textes() != avant)
        vue_.offrederniers(boite, liste.textes());
}

PublicationFin Formulaire::cherchevite(const EtatFormulaire& etat, const std::stop_token& arret) {
    retient(BoiteTexte::Rapide, etat.texterapide);
    return RechercheRapide(atelier(), progres())
        .cherche({etat.texterapide, lettresdesboutons(etat.boutons), limitedindex(etat.combonombre)}, arret)
        .fin;
}

PublicationFin Formulaire::cherchecriteres(const EtatFormulaire& etat, const std::stop_token& arret) {
    const QByteArray lettres = lettresdesboutons(etat.boutons);
    const bool affine = vue_.affinage() && atelier().liste.lignes() > 0;
    Criteres criteres = etat.criteres;
    const bool cherche = affine || std::any_of(lettres.begin(), lettres.end(), [this](char lettre) {
                             return atelier().corpus.compterarticles(codedelalettre(lettre)) > 0;
                         });
    if (cherche) {
        avancetexte(criteres);
        if (criteres != etat.criteres)
            vue_.montrecriteres(criteres);
        retient(BoiteTexte::Premier, criteres.texterech[0]);
        retient(BoiteTexte::Second, criteres.texterech[1]);
    }
    RechercheCriteres recherche(atelier(), progres());
    return affine ? recherche.affine(criteres, types_, arret).fin
                  : recherche.cherche(criteres, types_, lettres, arret).fin;
}

std::optional<PublicationFin> Formulaire::cherchemots(const EtatFormulaire& etat, const std::stop_token& arret) {
    vue_.videresultat();
    DemandeDico demande;
    demande.mots = etat.Textedico;
    demande.lettres = lettresdesboutons(etat.boutons);
    demande.tous = etat.checkandordico;
    demande.limite = limitedindex(etat.Combonombredico);
    RechercheDico recherche(atelier(), [this](const QString& ligne) { vue_.ajouteresultat(ligne); });
    const ResultatDico resultat = recherche.cherche(demande, arret);
    if (resultat.issue == ResultatDico::Issue::TexteCourt) {
        Criteres criteres = etat.criteres;
        criteres.texterech[0] = etat.Textedico;
        vue_.montrecriteres(criteres);
        vue_.montreonglet(Onglet::Criteres);
        return std::nullopt;
    }
    retient(BoiteTexte::Mots, etat.Textedico);
    if (resultat.issue == ResultatDico::Issue::Terminee)
        ditaucun();
    return resultat.fin;
}

// ---- criteria files

FichierCriteres Formulaire::fichier() const {
    return fichierde(vue_.etat(), items_, atelier().liste);
}

void Formulaire::prendfichier(const FichierCriteres& fichier) {
    poste().fait([this, fichier](const std::stop_token&) { travaille([&] { restitue(fichier); }); });
}

void Formulaire::restitue(const FichierCriteres& fichier) {
    const Attente attente(atelier().sablier);
    if (static_cast<Onglet>(fichier.ongletrecherche) == Onglet::Criteres || motscles_.manque(fichier))
        lirelesmotscles();
    vue_.montre(etatde(fichier, items_, vue_.etat().criteres.prefixe));
    finit(velm::restitue(fichier, atelier()));
}

} // namespace velm
