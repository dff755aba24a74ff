#include "outil/commande.h"

#include "outil/sortie.h"

#include <algorithm>
#include <optional>

namespace velm::outil {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr GroupeOptions optionbase{9304, "--base="};
constexpr GroupeOptions optionjson{9305, "--json"};
constexpr GroupeOptions optiontypes{9454, "--types="};
constexpr GroupeOptions optionlimite{9543, "--limite="};
constexpr GroupeOptions optionsanstexte{9545, "--sans-texte"};

bool estoption(const QString& mot) {
    return mot.startsWith(u"--"_s) || mot == u"-h";
}

/// Whether the command takes this option, and then whether with a value.
std::optional<bool> avecvaleur(const Commande& commande, const QString& option) {
    for (const GroupeOptions& groupe : commande.options) {
        for (const QString& nom : QString::fromLatin1(groupe.noms).split(u' ')) {
            if (nom == option || nom == option + u'=')
                return nom.endsWith(u'=');
        }
    }
    return std::nullopt;
}

bool demandeaide(const QStringList& ligne) {
    const QStringList noms = QString::fromLatin1(optionaide.noms).split(u' ');
    return std::any_of(noms.begin(), noms.end(), [&](const QString& nom) { return ligne.contains(nom); });
}

int prendoption(Contexte& contexte, const Commande& commande, QStringList& reste) {
    const QString option = reste.takeFirst();
    const std::optional<bool> valeur = avecvaleur(commande, option);
    if (!valeur)
        return contexte.echoue(LigneIncorrecte, 9338, {option});
    if (contexte.option(option))
        return contexte.echoue(LigneIncorrecte, 9547, {option});
    if (*valeur && reste.isEmpty())
        return contexte.echoue(LigneIncorrecte, 9336, {option});
    contexte.prendoption(option, *valeur ? reste.takeFirst() : QString());
    return Reussite;
}

int prendligne(Contexte& contexte, const Commande& commande, QStringList reste) {
    while (!reste.isEmpty()) {
        // Behind two dashes alone everything is an argument.
        if (reste.first() == u"--") {
            contexte.prendarguments(reste.mid(1));
            break;
        }
        if (!estoption(reste.first()))
            contexte.prendarguments({reste.takeFirst()});
        else if (const int code = prendoption(contexte, commande, reste); code != Reussite)
            return code;
    }
    const QStringList& arguments = contexte.arguments();
    if (arguments.size() < commande.aumoins)
        return contexte.echoue(LigneIncorrecte, 9336, {contexte.texte(commande.arguments)});
    if (commande.auplus != Commande::sanslimite && arguments.size() > commande.auplus)
        return contexte.echoue(LigneIncorrecte, 9547, {arguments.at(commande.auplus)});
    return Reussite;
}

} // namespace

const std::vector<Commande>& commandes() {
    constexpr qsizetype tous = Commande::sanslimite;
    static const std::vector<Commande> toutes{
        {"compiler", 9310, 9390, 2, 2, {optionjson, optionsanstexte}, compiler},
        {"synthese", 9311, 9391, 2, 2, {{9546, "--mots="}, optionjson, optionsanstexte}, synthese},
        {"info", 9312, 9392, 1, 1, {optionjson}, info},
        {"document", 9313, 9393, 1, 1, {{9307, "--texte --rtf --liens --condense"}, optionbase, optionjson}, document},
        {"texte", 9314, 9394, 1, 1, {}, texte},
        {"rtf", 9315, 9394, 1, 1, {}, rtf},
        {"formats", 9316, 9394, 1, 1, {}, formats},
        {"dossiers", 9318, 9392, 1, 1, {}, dossiers},
        {"mots", 9450, 9452, 1, tous, {optiontypes, {9544, "--ou"}, optionlimite, optionbase, optionjson}, mots},
        {"rapide", 9451, 9453, 1, tous, {optiontypes, optionlimite, optionbase, optionjson}, rapide},
        {"criteres",
         9473,
         0,
         0,
         0,
         {{9477, "--texte= --texte2= --conjonction= --negation --lieux="},
          {9478, "--entier --entier2 --casse --casse2"},
          {9479, "--motcle= --type= --jour= --mois= --annee="},
          optiontypes,
          {9480, "--sans-table"},
          optionbase,
          optionjson},
         criteres},
        {"cv2", 9475, 9476, 1, 1, {optionjson}, cv2}};
    return toutes;
}

QString Commande::usage(Contexte& contexte) const {
    QStringList mots{QString::fromLatin1(nom)};
    if (arguments != 0)
        mots << contexte.texte(arguments);
    if (!options.empty())
        mots << contexte.texte(9548);
    return mots.join(u' ');
}

void aide(Contexte& contexte, const Commande& commande) {
    contexte.ligne(u"velmoutil "_s + commande.usage(contexte));
    contexte.ligne(contexte.texte(commande.description));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9303));
    for (const GroupeOptions& groupe : commande.options)
        contexte.ligne(u"  "_s + contexte.texte(groupe.aide));
    contexte.ligne(u"  "_s + contexte.texte(optionaide.aide));
}

void aide(Contexte& contexte) {
    contexte.ligne(contexte.texte(9301));
    contexte.ligne(contexte.texte(9300));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9302));
    std::vector<int> options;
    for (const Commande& commande : commandes()) {
        contexte.ligne(u"  "_s + commande.usage(contexte));
        contexte.ligne(u"      "_s + contexte.texte(commande.description));
        for (const GroupeOptions& groupe : commande.options) {
            if (std::find(options.begin(), options.end(), groupe.aide) == options.end())
                options.push_back(groupe.aide);
        }
    }
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9303));
    options.insert(options.end(), {optionaide.aide, 9317});
    for (const int id : options)
        contexte.ligne(u"  "_s + contexte.texte(id));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9308));
    for (int code = 0; code <= DocumentAbsent; ++code)
        contexte.ligne(u"  %1  %2"_s.arg(code).arg(contexte.texte(9320 + code)));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(9309));
}

int execute(Contexte& contexte, const QString& nom, const QStringList& ligne) {
    const auto commande = std::find_if(commandes().begin(), commandes().end(),
                                       [&](const Commande& c) { return nom == QLatin1StringView(c.nom); });
    if (commande == commandes().end())
        return contexte.echoue(LigneIncorrecte, 9335, {nom});
    if (demandeaide(ligne)) {
        aide(contexte, *commande);
        return Reussite;
    }
    const int code = prendligne(contexte, *commande, ligne);
    return code == Reussite ? commande->fait(contexte) : code;
}

} // namespace velm::outil
