// Commands that find documents by what lists them: the numbers of articles and texts, and keywords.
#include "core/listes.h"
#include "core/nombres.h"
#include "core/texte.h"
#include "outil/base.h"
#include "outil/reponse.h"
#include "search/listemotcle.h"
#include "search/listenumero.h"
#include "search/recherchemotcle.h"
#include "search/typescherches.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

void ecritobjet(const Contexte& contexte, const QJsonObject& objet) {
    contexte.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
}

QJsonArray numerosjson(const ListeNumero& liste) {
    QJsonArray tous;
    for (int row = 0; row < liste.rowCount(); ++row)
        tous.append(QJsonObject{{u"cle"_s, liste.cle(row).texte()},
                                {u"titre"_s, liste.text(row, ListeNumero::Titre)},
                                {u"numarticle"_s, liste.text(row, ListeNumero::NumeroArticle)},
                                {u"numtitre"_s, liste.text(row, ListeNumero::NumeroTexte)},
                                {u"titretexte"_s, liste.text(row, ListeNumero::TitreTexte)}});
    return tous;
}

/// One line for one row, whatever stands in the texts.
QString enligne(const QStringList& textes) {
    QStringList simples;
    for (const QString& texte : textes)
        simples << texte.simplified();
    return simples.join(u'\t');
}

} // namespace

int numero(Contexte& contexte) {
    DemandeNumero demande{contexte.arguments().join(u' ')};
    if (contexte.option(u"--texte"_s))
        demande.champ = DemandeNumero::Champ::Texte;
    if (const QString types = contexte.valeur(u"--types"_s); !types.isEmpty()) {
        if (!lettresdescodes(types.toUpper()))
            return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {types, u"--types"_s});
        demande.types = TypesChoisis::decodes(types.toUpper());
    }
    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, cheminbase(contexte)); code != Reussite)
        return code;
    ListeNumero liste(corpus, demande);
    acheve(*liste.remplissage());
    if (contexte.option(u"--json"_s)) {
        ecritobjet(contexte, {{u"nombre"_s, liste.rowCount()}, {u"documents"_s, numerosjson(liste)}});
        return Reussite;
    }
    for (int row = 0; row < liste.rowCount(); ++row)
        contexte.ligne(enligne({liste.cle(row).texte(), liste.text(row, ListeNumero::NumeroArticle),
                                liste.text(row, ListeNumero::NumeroTexte), liste.text(row, ListeNumero::Titre)}));
    contexte.ligne(textecompte(liste.rowCount(), [&](Texte id) { return contexte.texte(id); }).trimmed());
    return Reussite;
}

int motscles(Contexte& contexte) {
    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, cheminbase(contexte)); code != Reussite)
        return code;
    const ListeMotcle liste(corpus);
    if (contexte.option(u"--json"_s)) {
        QJsonArray tous;
        for (int row = 0; row < liste.rowCount(); ++row)
            tous.append(QJsonObject{{u"motcle"_s, liste.motcle(row)},
                                    {u"documents"_s, liste.text(row, ListeMotcle::Nombre).toLongLong()}});
        ecritobjet(contexte, {{u"nombre"_s, liste.rowCount()}, {u"motscles"_s, tous}});
        return Reussite;
    }
    for (int row = 0; row < liste.rowCount(); ++row)
        contexte.ligne(enligne({liste.motcle(row), liste.text(row, ListeMotcle::Nombre)}));
    contexte.ligne(comptemotscles(liste.rowCount(), [&](Texte id) { return contexte.texte(id); }));
    return Reussite;
}

int motcle(Contexte& contexte) {
    const QString cherche = contexte.arguments().join(u' ');
    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, cheminbase(contexte)); code != Reussite)
        return code;
    const auto documents = documentsdumotcle(corpus, cherche);
    if (!documents)
        return contexte.echoue(Echec, Texte::MotCleSansReponse, {cherche});
    Resultat resultat;
    prenddocuments(*documents, resultat);
    ecritresultat(contexte, resultat, {}, contexte.option(u"--json"_s));
    return Reussite;
}

} // namespace velm::outil
