#include "search/formulaire.h"

#include "core/tablereglages.h"
#include "core/texte.h"
#include "platform/text/number.h"
#include "search/bilanrecherche.h"
#include "search/recherchecriteres.h"
#include "search/recherchedico.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"

#include <algorithm>

namespace velm {

namespace {

constexpr auto touslestextes = Texte::TousLesItems;
constexpr auto recherchertexte = Texte::Rechercher;
constexpr auto arretertexte = Texte::Arreter;
constexpr std::array conjonctions{Texte::ConjonctionEt, Texte::ConjonctionOu, Texte::ConjonctionEtNon,
                                  Texte::ConjonctionOuNon};

/// The row of a limit list as it was stored; the first for what is none.
int limitestockee(const Reglages& reglages, const ReglageEntier& reglage) {
    const double rang = reglages.litlibre(reglage);
    return rang >= 0 && rang < EtatFormulaire::limites ? static_cast<int>(rang) : 0;
}

Recherchee recherchee(Onglet onglet, const EtatFormulaire& etat) {
    const bool sanscollection = lettresdesboutons(etat.boutons).isEmpty();
    switch (onglet) {
    case Onglet::Criteres:
        return {Recherchee::Sorte::Criteres, {}, true, false, sanscollection};
    case Onglet::Mots:
        return {Recherchee::Sorte::Mots, etat.Textedico, etat.checkandordico, false, sanscollection};
    case Onglet::Rapide:
        break;
    }
    return {Recherchee::Sorte::Texte, etat.texterapide, true, false, sanscollection};
}

} // namespace

Formulaire::Formulaire(const Services& services, VueFormulaire& vue)
    : services_(services), vue_(vue), types_(littypesdocument(services.liste.corpus())),
      motscles_(texte(touslestextes)), derniers_{DerniersTextes(reglage::derniersrapides),
                                                 DerniersTextes(reglage::dernierspremiers),
                                                 DerniersTextes(reglage::derniersseconds),
                                                 DerniersTextes(reglage::derniersmots)} {
    items_.combomotcle = motscles_.items();
    items_.combotype = QStringList(texte(touslestextes)) + types_.combotype;
    for (const Texte numero : conjonctions)
        items_.conjonction << texte(numero);
}

void Formulaire::charge() {
    EtatFormulaire etat;
    etat.boutons.fill(true);
    etat.Combonombredico = limitestockee(services_.reglages, reglage::combonombredico);
    etat.combonombre = limitestockee(services_.reglages, reglage::combonombre);
    vue_.offremotscles(items_.combomotcle);
    for (std::size_t boite = 0; boite < derniers_.size(); ++boite) {
        derniers_.at(boite).charge(services_.reglages);
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
    Reglages& reglages = services_.reglages;
    ReglagesStore::Batch lot(reglages.magasin());
    reglages.ecrit(reglage::combonombredico, etat.Combonombredico);
    reglages.ecrit(reglage::combonombre, etat.combonombre);
    for (const DerniersTextes& derniers : derniers_)
        derniers.sauve(reglages);
    if (!lot.commit())
        reglages.signaleechec();
}

// ---- the window

bool Formulaire::ilyadeslignes() const {
    return liste().visible() && liste().liste().lignes() > 0;
}

void Formulaire::permetaffinage() {
    vue_.permetaffinage(ilyadeslignes());
    if (!ilyadeslignes())
        vue_.choisitaffinage(false);
}

void Formulaire::active() {
    permetaffinage();
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
    motscles_.lirelesmotscles(liste().corpus());
    items_.combomotcle = motscles_.items();
    if (items_.combomotcle.size() != avant)
        vue_.offremotscles(items_.combomotcle);
}

void Formulaire::annuler() {
    if (!liste().encours())
        vue_.cache();
}

void Formulaire::ferme() {
    liste().arrete();
    vue_.cache();
}

void Formulaire::echappe() {
    if (liste().encours())
        liste().arrete();
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
        liste().arrete();
        return;
    }
    liste().remplit([this, onglet](const std::stop_token& arret) { cherche(onglet, arret); }, [this] { abandonne(); });
}

/// Of a search that the memory did not suffice for, what it has found stays.
void Formulaire::abandonne() {
    arrets_.fill(false);
    vue_.cacheprogres();
    for (const Onglet onglet : {Onglet::Rapide, Onglet::Criteres, Onglet::Mots})
        vue_.libelle(onglet, texte(recherchertexte));
    permetaffinage();
}

void Formulaire::toutafficher(Onglet onglet) {
    EtatFormulaire etat = cherches_.at(static_cast<std::size_t>(onglet));
    etat.combonombre = etat.Combonombredico = EtatFormulaire::toutes;
    liste().remplit([this, onglet, etat](const std::stop_token& arret) { cherche(onglet, etat, arret); },
                    [this] { abandonne(); });
}

void Formulaire::cherche(Onglet onglet, const std::stop_token& arret) {
    cherche(onglet, vue_.etat(), arret);
}

void Formulaire::cherche(Onglet onglet, const EtatFormulaire& etat, const std::stop_token& arret) {
    bool& arrete = arrets_.at(static_cast<std::size_t>(onglet));
    cherches_.at(static_cast<std::size_t>(onglet)) = etat;
    vue_.ditbilan(onglet, {});
    if (onglet != Onglet::Mots) {
        arrete = true;
        vue_.libelle(onglet, texte(arretertexte));
    }
    switch (onglet) {
    case Onglet::Rapide:
        cherchevite(etat, arret);
        break;
    case Onglet::Criteres:
        cherchecriteres(etat, arret);
        break;
    case Onglet::Mots:
        cherchemots(etat, arret);
        break;
    }
    arrete = false;
    vue_.cacheprogres();
    vue_.libelle(onglet, texte(recherchertexte));
    if (liste().liste().resultat().issue != Resultat::Issue::TexteCourt)
        acheve(onglet, etat);
}

/// Publishes what was found, and tells it.
void Formulaire::acheve(Onglet onglet, const EtatFormulaire& etat) {
    const Resultat& resultat = liste().liste().resultat();
    liste().acheve();
    permetaffinage();
    // The walks tell what they have found, and nothing of nothing.
    if (resultat.lignes.nombre() == 0 && (onglet != Onglet::Mots || resultat.issue == Resultat::Issue::Terminee))
        liste().dit(0);
    const BilanRecherche bilan = bilande(recherchee(onglet, etat), resultat, services_.texte);
    vue_.ditbilan(onglet, bilan);
    liste().ditbilan(bilan, [this, onglet] { toutafficher(onglet); });
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

void Formulaire::cherchevite(const EtatFormulaire& etat, const std::stop_token& arret) {
    retient(BoiteTexte::Rapide, etat.texterapide);
    Marche marche = liste().marche(arret, progres());
    RechercheRapide(liste().corpus(), marche)
        .cherche({etat.texterapide, lettresdesboutons(etat.boutons), limitedindex(etat.combonombre)},
                 liste().nouveau());
}

void Formulaire::cherchecriteres(const EtatFormulaire& etat, const std::stop_token& arret) {
    const QByteArray lettres = lettresdesboutons(etat.boutons);
    const bool affine = vue_.affinage() && liste().liste().lignes() > 0;
    Criteres criteres = etat.criteres;
    const bool cherche = affine || std::any_of(lettres.begin(), lettres.end(), [this](char lettre) {
                             return liste().corpus().compterarticles(codedelalettre(lettre)) > 0;
                         });
    if (cherche) {
        avancetexte(criteres);
        if (criteres != etat.criteres)
            vue_.montrecriteres(criteres);
        retient(BoiteTexte::Premier, criteres.texterech[0]);
        retient(BoiteTexte::Second, criteres.texterech[1]);
    }
    Marche marche = liste().marche(arret, progres());
    RechercheCriteres recherche(liste().corpus(), marche);
    if (affine)
        recherche.affine(criteres, types_, liste().present());
    else
        recherche.cherche(criteres, types_, lettres, liste().nouveau());
}

void Formulaire::cherchemots(const EtatFormulaire& etat, const std::stop_token& arret) {
    vue_.videresultat();
    DemandeDico demande;
    demande.mots = etat.Textedico;
    demande.lettres = lettresdesboutons(etat.boutons);
    demande.tous = etat.checkandordico;
    demande.limite = limitedindex(etat.Combonombredico);
    demande.sansquestion = etat.Combonombredico == EtatFormulaire::toutes;
    const Resultat& resultat = liste().cherchemots(
        demande, [this](const QString& ligne) { vue_.ajouteresultat(ligne); }, arret);
    if (resultat.issue == Resultat::Issue::TexteCourt)
        ligneauxcriteres(etat);
    else
        retient(BoiteTexte::Mots, etat.Textedico);
}

/// A line that is too short for the index is looked for as a text.
void Formulaire::ligneauxcriteres(const EtatFormulaire& etat) {
    Criteres criteres = etat.criteres;
    criteres.texterech[0] = etat.Textedico;
    vue_.montrecriteres(criteres);
    vue_.montreonglet(Onglet::Criteres);
}

// ---- criteria files

FichierCriteres Formulaire::fichier() const {
    return fichierde(vue_.etat(), items_, liste().liste());
}

void Formulaire::prendfichier(const FichierCriteres& fichier) {
    liste().remplit([this, fichier](const std::stop_token&) { restitue(fichier); }, [this] { abandonne(); });
}

void Formulaire::restitue(const FichierCriteres& fichier) {
    const Attente attente(liste().sablier());
    if (static_cast<Onglet>(fichier.ongletrecherche) == Onglet::Criteres || motscles_.manque(fichier))
        lirelesmotscles();
    vue_.montre(etatde(fichier, items_, vue_.etat().criteres.prefixe));
    liste().restitue(fichier);
    permetaffinage();
}

} // namespace velm
