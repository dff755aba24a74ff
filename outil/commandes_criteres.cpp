// The criteria search and the files that keep it.
#include "core/texte.h"
#include "outil/base.h"
#include "outil/reponse.h"
#include "search/etatformulaire.h"
#include "search/recherchecriteres.h"
#include "search/typescherches.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace velm::outil {

namespace {

using namespace Qt::Literals::StringLiterals;

const QStringList lieux{u"titre"_s, u"contenu"_s, u"source"_s};
const QStringList conjonctions{u"et"_s, u"ou"_s, u"sauf"_s, u"ousauf"_s};

struct Demande {
    Criteres criteres;
    QString type;
    QByteArray lettres = touteslettres();
    QString base;
    bool json = false;
    bool sanstable = false;
};

int refuse(Contexte& contexte, const QString& valeur, const QString& option) {
    return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {valeur, option});
}

int littextes(Contexte& contexte, Criteres& criteres) {
    criteres.texterech = {contexte.valeur(u"--texte"_s), contexte.valeur(u"--texte2"_s)};
    criteres.motentier = {contexte.option(u"--entier"_s), contexte.option(u"--entier2"_s)};
    criteres.respectminmaj = {contexte.option(u"--casse"_s), contexte.option(u"--casse2"_s)};
    criteres.prefixe = contexte.option(u"--negation"_s) ? 1 : 0;
    const QString conjonction = contexte.valeur(u"--conjonction"_s);
    if (!conjonction.isEmpty()) {
        criteres.conjonction = static_cast<int>(conjonctions.indexOf(conjonction));
        if (criteres.conjonction < 0)
            return refuse(contexte, conjonction, u"--conjonction"_s);
    }
    const QString places = contexte.valeur(u"--lieux"_s);
    if (places.isEmpty())
        return Reussite;
    criteres.emplacement = {};
    for (const QString& place : places.split(u',')) {
        const qsizetype rang = lieux.indexOf(place.trimmed());
        if (rang < 0)
            return refuse(contexte, place, u"--lieux"_s);
        criteres.emplacement[static_cast<std::size_t>(rang)] = true;
    }
    return Reussite;
}

int litdate(Contexte& contexte, Criteres& criteres) {
    criteres.textejour = contexte.valeur(u"--jour"_s);
    if (!validejour(criteres.textejour))
        return refuse(contexte, criteres.textejour, u"--jour"_s);
    criteres.textemois = contexte.valeur(u"--mois"_s);
    if (!validemois(criteres.textemois))
        return refuse(contexte, criteres.textemois, u"--mois"_s);
    criteres.texteannee = valideannee(contexte.valeur(u"--annee"_s));
    return Reussite;
}

int litdemande(Contexte& contexte, Demande& demande) {
    demande.json = contexte.option(u"--json"_s);
    demande.sanstable = contexte.option(u"--sans-table"_s);
    demande.base = cheminbase(contexte);
    demande.criteres.motcle = contexte.valeur(u"--motcle"_s);
    demande.type = contexte.valeur(u"--type"_s);
    if (const int code = littextes(contexte, demande.criteres); code != Reussite)
        return code;
    if (const int code = litdate(contexte, demande.criteres); code != Reussite)
        return code;
    const QString types = contexte.valeur(u"--types"_s);
    if (!types.isEmpty()) {
        const auto lettres = lettresdescodes(types.toUpper());
        if (!lettres)
            return refuse(contexte, types, u"--types"_s);
        demande.lettres = *lettres;
    }
    return Reussite;
}

/// The row of a kind, by its label or its number; 0 when the base has no such kind.
int rangdutype(const TypesDocument& types, const QString& type) {
    const qsizetype parlibelle = types.combotype.indexOf(type, 0);
    return static_cast<int>(parlibelle >= 0 ? parlibelle : types.numerotype.indexOf(type)) + 1;
}

// ---- criteria files

QStringList codes(const FichierCriteres& fichier) {
    QStringList tous;
    for (const char lettre : lettresdesboutons(fichier.boutons))
        tous << codedelalettre(lettre);
    return tous;
}

QJsonObject textejson(const Criteres& criteres, std::size_t i) {
    return {{u"texte"_s, criteres.texterech[i]},
            {u"motentier"_s, criteres.motentier[i]},
            {u"respectminmaj"_s, criteres.respectminmaj[i]}};
}

QJsonObject criteresjson(const FichierCriteres& f) {
    const Criteres& c = f.criteres;
    QJsonObject places;
    for (qsizetype i = 0; i < lieux.size(); ++i)
        places.insert(lieux.at(i), c.emplacement[static_cast<std::size_t>(i)]);
    return {{u"ongletrecherche"_s, f.ongletrecherche},
            {u"types"_s, QJsonArray::fromStringList(codes(f))},
            {u"Textedico"_s, f.Textedico},
            {u"checkandordico"_s, f.checkandordico != 0},
            {u"Combonombredico"_s, f.Combonombredico},
            {u"texterapide"_s, f.texterapide},
            {u"combonombre"_s, f.combonombre},
            {u"combomotcle"_s, f.combomotcle},
            {u"combotype"_s, f.combotype},
            {u"textejour"_s, c.textejour},
            {u"textemois"_s, c.textemois},
            {u"texteannée"_s, c.texteannee},
            {u"emplacement"_s, places},
            {u"texterech"_s, QJsonArray{textejson(c, 0), textejson(c, 1)}},
            {u"conjonction"_s, f.conjonction}};
}

QString textelisible(Contexte& contexte, const Criteres& criteres, std::size_t i) {
    QStringList marques;
    if (criteres.motentier[i])
        marques << contexte.texte(Texte::MotEntier);
    if (criteres.respectminmaj[i])
        marques << contexte.texte(Texte::RespecterLesMajuscules);
    return criteres.texterech[i] + (marques.isEmpty() ? QString() : u" ("_s + marques.join(u", "_s) + u')');
}

/// What the form would show, without what is empty.
QStringList criteresenlignes(Contexte& contexte, const FichierCriteres& f) {
    const Criteres& c = f.criteres;
    QStringList date{c.textejour, c.textemois, c.texteannee};
    date.removeAll(QString());
    QStringList places;
    constexpr std::array<Texte, 3> nomsdeslieux{Texte::Titre, Texte::TexteDuDocument, Texte::Source};
    for (std::size_t i = 0; i < nomsdeslieux.size(); ++i) {
        if (c.emplacement[i])
            places << contexte.texte(nomsdeslieux[i]);
    }
    constexpr std::array<Texte, EtatFormulaire::onglets> nomsdesonglets{Texte::OngletRapide, Texte::OngletCriteres,
                                                                        Texte::OngletMots};
    QStringList onglet;
    if (f.ongletrecherche >= 0 && f.ongletrecherche < EtatFormulaire::onglets)
        onglet << contexte.texte(nomsdesonglets[static_cast<std::size_t>(f.ongletrecherche)]);
    const std::pair<Texte, QString> lignes[] = {
        {Texte::LigneOnglet, onglet.join(QString())},
        {Texte::LigneCollections, codes(f).join(u' ')},
        {Texte::LigneMots, f.Textedico},
        {Texte::LigneRapide, f.texterapide},
        {Texte::LigneMotCle, f.combomotcle},
        {Texte::LigneType, f.combotype},
        {Texte::LigneDate, date.join(u'/')},
        {Texte::LigneLieux, places.join(u", "_s)},
        {Texte::LignePremierTexte, textelisible(contexte, c, 0)},
        {Texte::LigneLiaison, c.texterech[1].isEmpty() ? QString() : f.conjonction},
        {Texte::LigneSecondTexte, textelisible(contexte, c, 1)}};
    QStringList ecrites;
    for (const auto& [nom, valeur] : lignes) {
        if (!valeur.isEmpty())
            ecrites << contexte.texte(Texte::LigneEtiquetee, {contexte.texte(nom), valeur});
    }
    return ecrites;
}

} // namespace

int criteres(Contexte& contexte) {
    Demande demande;
    if (const int code = litdemande(contexte, demande); code != Reussite)
        return code;
    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, demande.base); code != Reussite)
        return code;
    const TypesDocument types = littypesdocument(corpus);
    demande.criteres.type = demande.type.isEmpty() ? 0 : rangdutype(types, demande.type);
    if (!demande.type.isEmpty() && demande.criteres.type == 0)
        return refuse(contexte, demande.type, u"--type"_s);
    Marche marche;
    Resultat resultat;
    RechercheCriteres recherche(corpus, marche);
    recherche.sanstable(demande.sanstable);
    recherche.cherche(demande.criteres, types, demande.lettres, resultat);
    ecritresultat(contexte, resultat, {}, demande.json);
    return Reussite;
}

int cv2(Contexte& contexte) {
    const bool json = contexte.option(u"--json"_s);
    const QString chemin = contexte.arguments().first();
    const std::optional<QByteArray> octets = litfichier(contexte, chemin, FileKind::Plain);
    if (!octets)
        return Echec;
    const std::optional<FichierCriteres> fichier = litfichiercriteres(*octets);
    if (!fichier)
        return contexte.echoue(Echec, Texte::PasUnFichierDeCriteres, {chemin});
    Resultat resultat;
    rendmots(*fichier, resultat);
    rendlignes(*fichier, resultat.lignes);
    if (!json) {
        ecritresultat(contexte, resultat, criteresenlignes(contexte, *fichier), false);
        return Reussite;
    }
    QJsonObject objet = resultatjson(resultat);
    objet.insert(u"criteres"_s, criteresjson(*fichier));
    contexte.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
    return Reussite;
}

} // namespace velm::outil
