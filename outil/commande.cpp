#include "outil/commande.h"

#include "outil/sortie.h"

#include <algorithm>
#include <array>
#include <optional>

namespace velm::outil {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr GroupeOptions optionbase{Texte::OptionBase, "--base="};
constexpr GroupeOptions optiondossiers{Texte::OptionDossiers, "--dossiers="};
constexpr GroupeOptions optionjson{Texte::OptionJson, "--json"};
constexpr GroupeOptions optiontypes{Texte::OptionTypes, "--types="};
constexpr GroupeOptions optionlimite{Texte::OptionLimite, "--limite="};
constexpr GroupeOptions optionsanstexte{Texte::OptionSansTexte, "--sans-texte"};

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
        return contexte.echoue(LigneIncorrecte, Texte::OptionInconnue, {option});
    if (contexte.option(option))
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentEnTrop, {option});
    if (*valeur && reste.isEmpty())
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentManquant, {option});
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
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentManquant,
                               {commande.arguments ? contexte.texte(*commande.arguments) : QString()});
    if (commande.auplus != Commande::sanslimite && arguments.size() > commande.auplus)
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentEnTrop, {arguments.at(commande.auplus)});
    return Reussite;
}

QLatin1StringView nomde(const Commande& commande) {
    return QLatin1StringView(commande.nom);
}

/// The commands whose names have this first word and a second one.
std::vector<const Commande*> familledenom(const QString& nom) {
    std::vector<const Commande*> famille;
    for (const Commande& commande : commandes()) {
        if (nomde(commande).startsWith(nom + u' '))
            famille.push_back(&commande);
    }
    return famille;
}

int executeune(Contexte& contexte, const Commande& commande, const QStringList& ligne) {
    if (demandeaide(ligne)) {
        aide(contexte, commande);
        return Reussite;
    }
    const int code = prendligne(contexte, commande, ligne);
    return code == Reussite ? commande.fait(contexte) : code;
}

int executedelafamille(Contexte& contexte, const std::vector<const Commande*>& famille, const QString& nom,
                       const QStringList& ligne) {
    const QString entier = nom + u' ' + ligne.value(0);
    for (const Commande* une : famille) {
        if (entier == nomde(*une))
            return executeune(contexte, *une, ligne.mid(1));
    }
    if (demandeaide(ligne)) {
        for (const Commande* une : famille)
            aide(contexte, *une);
        return Reussite;
    }
    if (!ligne.isEmpty())
        return contexte.echoue(LigneIncorrecte, Texte::CommandeInconnue, {entier});
    QStringList noms;
    for (const Commande* une : famille)
        noms << QString(nomde(*une)).section(u' ', 1);
    return contexte.echoue(LigneIncorrecte, Texte::ArgumentManquant, {noms.join(u", "_s)});
}

} // namespace

const std::vector<Commande>& commandes() {
    constexpr qsizetype tous = Commande::sanslimite;
    static const std::vector<Commande> toutes{
        {"compiler",
         Texte::CommandeCompiler,
         Texte::ArgumentsSourceBase,
         2,
         2,
         {optionjson, optionsanstexte},
         compiler},
        {"synthese",
         Texte::CommandeSynthese,
         Texte::ArgumentsNBase,
         2,
         2,
         {{Texte::OptionMots, "--mots="}, optionjson, optionsanstexte},
         synthese},
        {"info", Texte::CommandeInfo, Texte::ArgumentBase, 1, 1, {optionjson}, info},
        {"document",
         Texte::CommandeDocument,
         Texte::ArgumentCle,
         1,
         1,
         {{Texte::OptionsDuDocument, "--texte --rtf --liens --condense"}, optionbase, optionjson},
         document},
        {"texte", Texte::CommandeTexte, Texte::ArgumentFichierRtf, 1, 1, {}, texte},
        {"rtf", Texte::CommandeRtf, Texte::ArgumentFichierRtf, 1, 1, {}, rtf},
        {"formats", Texte::CommandeFormats, Texte::ArgumentFichierRtf, 1, 1, {}, formats},
        {"pdf",
         Texte::CommandePdf,
         Texte::ArgumentsPdf,
         1,
         tous,
         {{Texte::OptionDossierPdf, "--dossier="}, optiondossiers, optionbase},
         pdf},
        {"dossiers cree", Texte::CommandeDossiers, Texte::ArgumentBase, 1, 1, {}, dossierscree},
        {"dossiers liste", Texte::CommandeDossiersListe, {}, 0, 0, {optiondossiers, optionjson}, dossiersliste},
        {"dossiers exporte",
         Texte::CommandeDossiersExporte,
         Texte::ArgumentsNumeroDv2,
         2,
         2,
         {optiondossiers, optionjson},
         dossiersexporte},
        {"dossiers importe",
         Texte::CommandeDossiersImporte,
         Texte::ArgumentFichierDv2,
         1,
         1,
         {optiondossiers, optionjson},
         dossiersimporte},
        {"dossiers verifie", Texte::CommandeDossiersVerifie, {}, 0, 0, {optiondossiers, optionjson}, dossiersverifie},
        {"dossiers repare", Texte::CommandeDossiersRepare, {}, 0, 0, {optiondossiers, optionjson}, dossiersrepare},
        {"mots",
         Texte::CommandeMots,
         Texte::ArgumentMots,
         1,
         tous,
         {optiontypes, {Texte::OptionOu, "--ou"}, optionlimite, optionbase, optionjson},
         mots},
        {"rapide",
         Texte::CommandeRapide,
         Texte::ArgumentTextes,
         1,
         tous,
         {optiontypes, optionlimite, optionbase, optionjson},
         rapide},
        {"index", Texte::CommandeIndex, {}, 0, 0, {optiontypes, optionbase, optionjson}, index},
        {"chrono",
         Texte::CommandeChrono,
         {},
         0,
         0,
         {optiontypes, {Texte::OptionsDesDates, "--de= --a="}, optionbase, optionjson},
         chrono},
        {"criteres",
         Texte::CommandeCriteres,
         {},
         0,
         0,
         {{Texte::OptionsDesTextes, "--texte= --texte2= --conjonction= --negation --lieux="},
          {Texte::OptionsDesMots, "--entier --entier2 --casse --casse2"},
          {Texte::OptionsDesAutresCriteres, "--motcle= --type= --jour= --mois= --annee="},
          optiontypes,
          {Texte::OptionSansTable, "--sans-table"},
          optionbase,
          optionjson},
         criteres},
        {"numero",
         Texte::CommandeNumero,
         Texte::ArgumentNumero,
         1,
         tous,
         {{Texte::OptionTexteNumero, "--texte"}, optiontypes, optionbase, optionjson},
         numero},
        {"motscles", Texte::CommandeMotsCles, {}, 0, 0, {optionbase, optionjson}, motscles},
        {"motcle", Texte::CommandeMotCle, Texte::ArgumentMotCle, 1, tous, {optionbase, optionjson}, motcle},
        {"cv2", Texte::CommandeCv2, Texte::ArgumentFichierCv2, 1, 1, {optionjson}, cv2}};
    return toutes;
}

QString Commande::usage(Contexte& contexte) const {
    QStringList mots{QString::fromLatin1(nom)};
    if (arguments)
        mots << contexte.texte(*arguments);
    if (!options.empty())
        mots << contexte.texte(Texte::MotOptions);
    return mots.join(u' ');
}

void aide(Contexte& contexte, const Commande& commande) {
    contexte.ligne(u"velmoutil "_s + commande.usage(contexte));
    contexte.ligne(contexte.texte(commande.description));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(Texte::TitreDesOptions));
    for (const GroupeOptions& groupe : commande.options)
        contexte.ligne(u"  "_s + contexte.texte(groupe.aide));
    contexte.ligne(u"  "_s + contexte.texte(optionaide.aide));
}

void aide(Contexte& contexte) {
    contexte.ligne(contexte.texte(Texte::PresentationDeLOutil));
    contexte.ligne(contexte.texte(Texte::UsageDeLOutil));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(Texte::TitreDesCommandes));
    std::vector<Texte> options;
    for (const Commande& commande : commandes()) {
        contexte.ligne(u"  "_s + commande.usage(contexte));
        contexte.ligne(u"      "_s + contexte.texte(commande.description));
        for (const GroupeOptions& groupe : commande.options) {
            if (std::find(options.begin(), options.end(), groupe.aide) == options.end())
                options.push_back(groupe.aide);
        }
    }
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(Texte::TitreDesOptions));
    options.insert(options.end(), {optionaide.aide, Texte::OptionVersion});
    for (const Texte option : options)
        contexte.ligne(u"  "_s + contexte.texte(option));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(Texte::TitreDesCodesDeRetour));
    constexpr std::array codes{Texte::CodeReussite, Texte::CodeEchec, Texte::CodeLigneIncorrecte,
                               Texte::CodeSourceFautive, Texte::CodeDocumentAbsent};
    for (std::size_t code = 0; code < codes.size(); ++code)
        contexte.ligne(u"  %1  %2"_s.arg(code).arg(contexte.texte(codes.at(code))));
    contexte.ligne(QString());
    contexte.ligne(contexte.texte(Texte::AideDUneCommande));
}

int execute(Contexte& contexte, const QString& nom, const QStringList& ligne) {
    const std::vector<const Commande*> famille = familledenom(nom);
    if (!famille.empty())
        return executedelafamille(contexte, famille, nom, ligne);
    const auto commande = std::ranges::find_if(commandes(), [&](const Commande& c) { return nom == nomde(c); });
    // The names of two words are known by the first.
    if (commande == commandes().end() || nom.contains(u' '))
        return contexte.echoue(LigneIncorrecte, Texte::CommandeInconnue, {nom});
    return executeune(contexte, *commande, ligne);
}

} // namespace velm::outil
