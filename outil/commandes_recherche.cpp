// Commands that search, with the engines of the program.
#include "core/texte.h"
#include "outil/base.h"
#include "outil/reponse.h"
#include "search/recherchedico.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What the options of both commands ask for.
struct Demande {
    QString texte;
    QByteArray lettres = touteslettres();
    qint64 limite = sanslimite;
    QString base;
    bool json = false;
};

int litdemande(Contexte& contexte, Demande& demande) {
    demande.json = contexte.option(u"--json"_s);
    demande.base = cheminbase(contexte);
    const QString types = contexte.valeur(u"--types"_s);
    const QString limite = contexte.valeur(u"--limite"_s);
    demande.texte = contexte.arguments().join(u' ');
    if (!types.isEmpty()) {
        const auto lettres = lettresdescodes(types.toUpper());
        if (!lettres)
            return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {types, u"--types"_s});
        demande.lettres = *lettres;
    }
    if (!limite.isEmpty()) {
        bool nombre = false;
        demande.limite = limite.toLongLong(&nombre);
        if (!nombre || demande.limite < 1)
            return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {limite, u"--limite"_s});
    }
    return Reussite;
}

/// What a search works with, and what it leaves.
struct Preparee {
    Demande demande;
    Corpus corpus;
    Marche marche;
    Resultat resultat;
};

int prepare(Contexte& contexte, Preparee& recherche) {
    const int code = litdemande(contexte, recherche.demande);
    return code == Reussite ? ouvrebase(contexte, recherche.corpus, recherche.demande.base) : code;
}

} // namespace

int mots(Contexte& contexte) {
    const bool ou = contexte.option(u"--ou"_s);
    Preparee recherche;
    if (const int code = prepare(contexte, recherche); code != Reussite)
        return code;
    const Demande& demande = recherche.demande;
    QStringList lignes;
    // Very many documents raise no question: all of them are shown, as nobody named a limit.
    RechercheDico(recherche.corpus, recherche.marche,
                  {[&lignes](const QString& ligne) { lignes << ligne; }, contexte.texte(Texte::MotInconnu)})
        .cherche({demande.texte, demande.lettres, !ou, demande.limite}, recherche.resultat);
    if (recherche.resultat.issue == Resultat::Issue::TexteCourt)
        return contexte.echoue(LigneIncorrecte, Texte::TroisCaracteresAuMoins);
    ecritresultat(contexte, recherche.resultat, lignes, demande.json);
    return Reussite;
}

int rapide(Contexte& contexte) {
    Preparee recherche;
    if (const int code = prepare(contexte, recherche); code != Reussite)
        return code;
    const Demande& demande = recherche.demande;
    RechercheRapide(recherche.corpus, recherche.marche)
        .cherche({demande.texte, demande.lettres, demande.limite}, recherche.resultat);
    ecritresultat(contexte, recherche.resultat, {}, demande.json);
    return Reussite;
}

} // namespace velm::outil
