// Commands that make a base.
#include "collection/collection.h"
#include "core/texte.h"
#include "outil/sortie.h"
#include "platform/system/files.h"
#include "platform/text/number.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t problemesaffiches = 200;

/// Shows the steps on a terminal, at most ten times a second; a file or a pipe gets none of it.
Progres progresterminal(Contexte& contexte) {
    if (::isatty(STDERR_FILENO) == 0)
        return {};
    QElapsedTimer depuis;
    depuis.start();
    return [&contexte, depuis, derniere = std::optional<Etape>()](Etape etape, qint64 fait, qint64 total) mutable {
        if (derniere == etape && fait < total && depuis.elapsed() < 100)
            return;
        derniere = etape;
        depuis.restart();
        const qint64 part = total > 0 ? fait * 100 / total : 100;
        const QByteArray ligne =
            '\r' + contexte.texte(libelledetape(etape)).toUtf8() + "  " + QByteArray::number(part) + " %   ";
        std::fwrite(ligne.constData(), 1, static_cast<std::size_t>(ligne.size()), stderr);
        if (etape == Etape::Ecriture && fait >= total)
            std::fputc('\n', stderr);
    };
}

QJsonObject comptesjson(const ComptesDeBase& c) {
    return {{u"documents"_s, c.documents}, {u"noeuds"_s, c.noeuds},     {u"liens"_s, c.liens}, {u"mots"_s, c.mots},
            {u"motscles"_s, c.motscles},   {u"articles"_s, c.articles}, {u"types"_s, c.types}};
}

void ecritjson(Contexte& contexte, const ResultatCompilation& resultat) {
    QJsonArray problemes;
    for (const Probleme& probleme : resultat.problemes)
        problemes.append(phrase(probleme, [&](Texte lequel) { return contexte.texte(lequel); }));
    const QJsonObject objet{{u"faite"_s, resultat.faite()},     {u"secondes"_s, resultat.secondes},
                            {u"erreurs"_s, resultat.erreurs()}, {u"avertissements"_s, resultat.avertissements()},
                            {u"problemes"_s, problemes},        {u"comptes"_s, comptesjson(resultat.comptes)}};
    contexte.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
}

void ecritproblemes(Contexte& contexte, const ResultatCompilation& resultat) {
    const std::size_t affiches = std::min(resultat.problemes.size(), problemesaffiches);
    for (std::size_t rang = 0; rang < affiches; ++rang)
        contexte.erreur(phrase(resultat.problemes[rang], [&](Texte lequel) { return contexte.texte(lequel); }));
    if (resultat.problemes.size() > problemesaffiches)
        contexte.erreur(contexte.texte(Texte::TropDeProblemes, {QString::number(problemesaffiches)}));
    if (resultat.erreurs() > 0)
        contexte.erreur(contexte.texte(Texte::NombreDErreurs, {contexte.nombre(resultat.erreurs())}));
    if (resultat.avertissements() > 0)
        contexte.erreur(contexte.texte(Texte::NombreDAvertissements, {contexte.nombre(resultat.avertissements())}));
}

int conclut(Contexte& contexte, const ResultatCompilation& resultat, const QString& base, bool json) {
    if (json)
        ecritjson(contexte, resultat);
    else
        ecritproblemes(contexte, resultat);
    switch (resultat.etat) {
    case ResultatCompilation::Etat::Faite:
        break;
    case ResultatCompilation::Etat::SourceIncorrecte:
        return contexte.echoue(SourceFautive, Texte::AucuneBaseEcrite);
    case ResultatCompilation::Etat::DisquePlein:
        return contexte.echoue(Echec, Texte::DisquePlein);
    case ResultatCompilation::Etat::EcritureImpossible:
        return contexte.echouefichier(Texte::FichierNonEcrit, base, resultat.obstacle, resultat.raison);
    }
    if (!json) {
        const ComptesDeBase& c = resultat.comptes;
        contexte.ligne(contexte.texte(Texte::BilanDeCompilation, {contexte.nombre(c.documents),
                                                                  contexte.nombre(c.liens), contexte.nombre(c.mots)}));
        contexte.ligne(contexte.texte(Texte::BaseEcrite, {base, QString::number(resultat.secondes, 'f', 1)}));
    }
    return Reussite;
}

} // namespace

int compiler(Contexte& contexte) {
    const bool json = contexte.option(u"--json"_s);
    const bool textes = !contexte.option(u"--sans-texte"_s);
    const QString base = contexte.arguments().at(1);
    return conclut(contexte, compile(contexte.arguments().first(), base, progresterminal(contexte), textes), base,
                   json);
}

int synthese(Contexte& contexte) {
    const bool json = contexte.option(u"--json"_s);
    const bool textes = !contexte.option(u"--sans-texte"_s);
    const QString mots = contexte.valeur(u"--mots"_s);
    const auto documents = wholeNumber(contexte.arguments().first());
    constexpr qint64 leplus = qint64{11} * 999999;
    if (!documents || *documents < 1 || *documents > leplus)
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {contexte.arguments().first(), u"N"_s});
    OptionsSynthese options = optionssynthese(*documents);
    options.textes = textes;
    if (!mots.isEmpty()) {
        const auto nombre = wholeNumber(mots);
        if (!nombre || *nombre < 1 || *nombre > 100000)
            return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {mots, u"--mots"_s});
        options.mots = static_cast<int>(*nombre);
    }
    const QString base = contexte.arguments().at(1);
    return conclut(contexte, velm::synthese(options, base, progresterminal(contexte)), base, json);
}

} // namespace velm::outil
