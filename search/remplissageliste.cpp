#include "search/remplissageliste.h"

#include "core/langue.h"
#include "core/listes.h"
#include "core/texte.h"
#include "platform/base/memory.h"
#include "platform/system/files.h"
#include "search/bilanrecherche.h"
#include "search/fichiercriteres.h"
#include "search/questionlimite.h"
#include "search/recherchemotcle.h"
#include "search/selectionoutil.h"

#include <QScopeGuard>

namespace velm {

using namespace Qt::Literals::StringLiterals;

RemplissageListe::RemplissageListe(Services services, ListeSelection& liste, VueLignes& lignes, VueListe& vue)
    : services_(std::move(services)), liste_(liste), lignes_(lignes), vue_(vue),
      poste_(services_.evenements, services_.pas) {}

// ---- one thing after the other

void RemplissageListe::remplit(Poste::Travail travail, std::function<void()> abandon) {
    poste_.fait([this, travail = std::move(travail), abandon = std::move(abandon)](const std::stop_token& arret) {
        constexpr auto sansmemoire = Texte::ListeIncomplete;
        constexpr auto titre = Texte::NomDuProgramme;
        if (!travaille([&] { travail(arret); }, abandon))
            services_.dialogues.message(services_.texte(sansmemoire), services_.texte(titre), Icone::Exclamation);
    });
}

bool RemplissageListe::travaille(const std::function<void()>& travail, const std::function<void()>& abandon) {
    lignes_.cache();
    ditbilan({});
    const auto montre = qScopeGuard([this] { montrelignes(); });
    if (withinMemory(travail))
        return true;
    publie();
    abandon();
    return false;
}

// ---- a piece of work

Resultat& RemplissageListe::nouveau() {
    liste_.vide();
    vue_.ditetat(QString());
    return present();
}

Resultat& RemplissageListe::present() {
    visible_ = false;
    return liste_.resultat();
}

Marche RemplissageListe::marche(const std::stop_token& arret, std::function<void(qint64, qint64)> progres) {
    return Marche(poste_.cession(), arret, [this, progres = std::move(progres)](const Marche::Etape& etape) {
        if (progres)
            progres(etape.vus, etape.total);
        if (etape.compte)
            dit(*etape.compte);
    });
}

const Resultat& RemplissageListe::cherchemots(const DemandeDico& demande, std::function<void(const QString&)> ligne,
                                              const std::stop_token& arret) {
    constexpr auto motrefuse = Texte::MotInconnu;
    const Attente attente(services_.sablier);
    Marche tours = marche(arret);
    RechercheDico recherche(services_.corpus, tours,
                            {std::move(ligne), services_.texte(motrefuse), [this](qint64 nombre) {
                                 return demandelimite(nombre, services_.dialogues, services_.sablier, services_.texte);
                             }});
    recherche.cherche(demande, nouveau());
    return liste_.resultat();
}

void RemplissageListe::acheve() {
    if (const auto compte = liste_.resultat().compte)
        dit(*compte);
    publie();
}

void RemplissageListe::dit(qint64 nombre) const {
    vue_.ditetat(textecompte(nombre, services_.texte));
}

void RemplissageListe::ditbilan(const BilanRecherche& bilan, std::function<void()> tout) {
    tout_ = bilan.coupe ? std::move(tout) : nullptr;
    vue_.ditbilan(bilan);
}

void RemplissageListe::ditregroupement() const {
    vue_.infobulle(Ordre::Regrouper, services_.texte(infobulleregrouper(liste_, lignes_.etroite())));
}

void RemplissageListe::ditreste() {
    dit(liste_.lignes());
    ditlignes();
    ditregroupement();
}

void RemplissageListe::ditlignes() {
    ditbilan(bilandelignes(liste_.lignes(), services_.texte));
}

void RemplissageListe::toutafficher() {
    // A copy: the search replaces `tout_` while it runs.
    if (const auto tout = tout_)
        tout();
}

/// Shows the list as its result stands now, and enables the commands that need rows.
void RemplissageListe::publie() {
    liste_.effacemarquestri();
    visible_ = true;
    for (const Ordre ordre : {Ordre::PrecedentRecherche, Ordre::SuivantRecherche, Ordre::SauverCriteres,
                              Ordre::ImprimerCriteres, Ordre::EnvoyerCriteres})
        vue_.permet(ordre, liste_.lignes() > 0);
    vue_.permet(Ordre::OuvrirCriteres, true);
    ditregroupement();
}

// ---- lists that come from elsewhere

void RemplissageListe::remplitdecles(const QStringList& cles) {
    remplit([this, cles](const std::stop_token& arret) { prendcles(cles, arret); }, [this] { montreliste(); });
}

void RemplissageListe::prendcles(const QStringList& cles, const std::stop_token& arret) {
    Resultat& resultat = nouveau();
    resultat.commence();
    // In turns, as the list may be one of all documents.
    Marche tours = marche(arret);
    tours.commence(cles.size());
    for (const QString& cle : cles) {
        resultat.compte = resultat.lignes.nombre();
        if (!tours.continuer(resultat))
            break;
        ++resultat.vus;
        const Recordset* rangee = services_.corpus.rangee(decoupecle(cle));
        if (rangee && !ajoutedocument(resultat.lignes, *rangee))
            break;
    }
    resultat.compte = resultat.lignes.nombre();
    acheve();
    ditlignes();
    montreliste();
}

void RemplissageListe::remplitdemotcle(const QString& motcle) {
    remplit([this, motcle](const std::stop_token&) { prendmotcle(motcle); }, [this] { montreliste(); });
}

void RemplissageListe::prendmotcle(const QString& motcle) {
    constexpr auto refus = Texte::MotCleIncherchable;
    constexpr auto titre = Texte::NomDuProgramme;
    if (!trouvemotcle(motcle)) {
        if (visible_)
            ditlignes();
        services_.dialogues.message(remplace(services_.texte(refus), {motcle}), services_.texte(titre),
                                    Icone::Exclamation);
        return;
    }
    acheve();
    ditbilan(bilande({Recherchee::Sorte::MotCle, motcle}, liste_.resultat(), services_.texte));
    montreliste();
}

/// False, with the list as it was, when its documents cannot be asked for.
bool RemplissageListe::trouvemotcle(const QString& motcle) {
    const Attente attente(services_.sablier);
    const auto documents = documentsdumotcle(services_.corpus, motcle);
    if (!documents)
        return false;
    prenddocuments(*documents, nouveau());
    return true;
}

void RemplissageListe::cherchedans(const QString& code, const QString& mots, const EcouteFenetre& ecoute, bool tous) {
    DemandeDico demande = DemandeDico::defenetre(mots, code);
    demande.sansquestion = tous;
    lance(demande, ecoute);
}

void RemplissageListe::lance(const DemandeDico& demande, const EcouteFenetre& ecoute) {
    remplit([this, demande, ecoute](const std::stop_token& arret) { cherchemaintenant(demande, ecoute, arret); },
            [this] { montreliste(); });
}

void RemplissageListe::cherchemaintenant(const DemandeDico& demande, const EcouteFenetre& ecoute,
                                         const std::stop_token& arret) {
    const Resultat& resultat = cherchemots(
        demande,
        [&ecoute](const QString& ligne) {
            if (ecoute.ligne)
                ecoute.ligne(ligne);
        },
        arret);
    acheve();
    const BilanRecherche bilan =
        bilande({Recherchee::Sorte::Mots, demande.mots, true, true}, resultat, services_.texte);
    ditbilan(bilan, [this, toutes = demande, fin = ecoute.fin]() mutable {
        toutes.sansquestion = true;
        lance(toutes, {{}, fin});
    });
    if (ecoute.fin)
        ecoute.fin(bilan);
    if (resultat.lignes.nombre() > 0) {
        montreliste();
        return;
    }
    visible_ = false;
    if (resultat.issue == Resultat::Issue::Terminee)
        dit(0);
    cachepanneau();
}

bool RemplissageListe::prenddoutil(const QString& dossiertemporaire) {
    const QString chemin = fichierselection(dossiertemporaire);
    if (!fileExists(chemin))
        return false;
    remplit([this, chemin](const std::stop_token&) { prendselection(chemin); }, [this] { montreliste(); });
    return true;
}

void RemplissageListe::prendselection(const QString& chemin) {
    if (!remplitdepuisoutil(chemin, services_.corpus, liste_.resultat()))
        return;
    liste_.choisit(0, 0);
    acheve();
    ditlignes();
    vue_.elargitpanneau();
    montreliste();
}

void RemplissageListe::restitue(const FichierCriteres& fichier) {
    liste_.vide();
    Resultat& resultat = present();
    resultat.commence();
    rendmots(fichier, resultat);
    rendlignes(fichier, resultat.lignes);
    resultat.compte = resultat.lignes.nombre();
    acheve();
    ditlignes();
}

// ---- the panel

void RemplissageListe::montrelignes() {
    for (int colonne = 0; colonne < ListeSelection::colonnesvisibles; ++colonne)
        lignes_.montremarque(colonne, liste_.marque(colonne));
    lignes_.relit();
    lignes_.choisit(liste_.row(), liste_.rowsel());
    lignes_.montre(visible_);
}

void RemplissageListe::montreliste() {
    vue_.montrepanneau(true);
    vue_.majdispositions();
}

void RemplissageListe::cachepanneau() {
    vue_.montrepanneau(false);
    vue_.montrecriteres(false);
    vue_.majdispositions();
}

} // namespace velm
