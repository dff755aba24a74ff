// Commands that search, with the engines of the program.
#include "outil/banc.h"
#include "outil/base.h"
#include "search/recherchedico.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"

namespace velm::outil {

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
    demande.json = contexte.option(QStringLiteral("--json"));
    demande.base = cheminbase(contexte);
    const QString types = contexte.valeur(QStringLiteral("--types"));
    const QString limite = contexte.valeur(QStringLiteral("--limite"));
    demande.texte = contexte.arguments().join(u' ');
    if (!types.isEmpty()) {
        const auto lettres = lettresdescodes(types.toUpper());
        if (!lettres)
            return contexte.echoue(LigneIncorrecte, 9339, {types, QStringLiteral("--types")});
        demande.lettres = *lettres;
    }
    if (!limite.isEmpty()) {
        bool nombre = false;
        demande.limite = limite.toLongLong(&nombre);
        if (!nombre || demande.limite < 1)
            return contexte.echoue(LigneIncorrecte, 9339, {limite, QStringLiteral("--limite")});
    }
    return Reussite;
}

} // namespace

int mots(Contexte& contexte) {
    const bool ou = contexte.option(QStringLiteral("--ou"));
    Demande demande;
    if (const int code = litdemande(contexte, demande); code != Reussite)
        return code;
    Banc banc(contexte);
    if (const int code = ouvrebase(contexte, banc.corpus, demande.base); code != Reussite)
        return code;
    QStringList lignes;
    RechercheDico recherche(banc.atelier(), [&lignes](const QString& ligne) { lignes << ligne; });
    const ResultatDico resultat = recherche.cherche({demande.texte, demande.lettres, !ou, demande.limite});
    if (resultat.issue == ResultatDico::Issue::TexteCourt)
        return contexte.echoue(LigneIncorrecte, 9455);
    banc.ecrit(lignes, demande.json);
    return Reussite;
}

int rapide(Contexte& contexte) {
    Demande demande;
    if (const int code = litdemande(contexte, demande); code != Reussite)
        return code;
    Banc banc(contexte);
    if (const int code = ouvrebase(contexte, banc.corpus, demande.base); code != Reussite)
        return code;
    RechercheRapide(banc.atelier(), {}).cherche({demande.texte, demande.lettres, demande.limite});
    banc.ecrit({}, demande.json);
    return Reussite;
}

} // namespace velm::outil
