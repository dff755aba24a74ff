// Commands that list documents without a search: those of the windows of lists, with their engines.
#include "core/listes.h"
#include "core/texte.h"
#include "outil/base.h"
#include "search/listechrono.h"
#include "search/listeindex.h"
#include "search/typescherches.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The collections that --types names; all without it. Nothing where one of them is none, which is said.
std::optional<TypesChoisis> typesvoulus(Contexte& contexte, int& code) {
    const QString types = contexte.valeur(u"--types"_s).toUpper();
    if (types.isEmpty())
        return TypesChoisis();
    if (lettresdescodes(types))
        return TypesChoisis::decodes(types);
    code = contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {contexte.valeur(u"--types"_s), u"--types"_s});
    return std::nullopt;
}

/// A year, a month of a year, or a day.
bool litdate(Contexte& contexte, const QString& option, QString& date, int& code) {
    static const QRegularExpression forme(u"^\\d{4}(-\\d{2}(-\\d{2})?)?$"_s);
    date = contexte.valeur(option);
    if (date.isEmpty() || forme.match(date).hasMatch())
        return true;
    code = contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {date, option});
    return false;
}

/// Row by row, however many there are. `champs` names columns of the list; those of the JSON bear these names.
void ecritliste(Contexte& contexte, const SourceDocuments& liste, const std::vector<std::pair<QString, int>>& champs) {
    const bool json = contexte.option(u"--json"_s);
    if (json)
        contexte.ecrit("{\"documents\": [");
    for (int row = 0; row < liste.rowCount(); ++row) {
        QJsonObject document{{u"cle"_s, liste.cle(row).texte()}};
        QStringList cellules{liste.cle(row).texte()};
        for (const auto& [nom, column] : champs) {
            document.insert(nom, liste.text(row, column));
            cellules << liste.text(row, column).simplified();
        }
        if (json)
            contexte.ecrit((row == 0 ? "\n" : ",\n") + QJsonDocument(document).toJson(QJsonDocument::Compact));
        else
            contexte.ligne(cellules.join(u'\t'));
    }
    if (json)
        contexte.ecrit("\n], \"nombre\": " + QByteArray::number(liste.rowCount()) + "}\n");
    else
        contexte.ligne(textecompte(liste.rowCount(), [&](Texte id) { return contexte.texte(id); }).trimmed());
}

} // namespace

int index(Contexte& contexte) {
    int code = Reussite;
    const auto types = typesvoulus(contexte, code);
    if (!types)
        return code;
    Corpus corpus;
    if (code = ouvrebase(contexte, corpus, cheminbase(contexte)); code != Reussite)
        return code;
    RequeteIndex requete;
    requete.reselect(*types);
    ListeIndex liste(corpus, requete.source());
    acheve(*liste.remplissage());
    enum Place { Titre = 2, MotCle1, MotCle2, MotCle3 };
    ecritliste(contexte, liste,
               {{u"titre"_s, Titre}, {u"motclé1"_s, MotCle1}, {u"motclé2"_s, MotCle2}, {u"motclé3"_s, MotCle3}});
    return Reussite;
}

int chrono(Contexte& contexte) {
    int code = Reussite;
    const auto types = typesvoulus(contexte, code);
    IntervalleDates intervalle;
    if (!types || !litdate(contexte, u"--de"_s, intervalle.de, code) ||
        !litdate(contexte, u"--a"_s, intervalle.a, code))
        return code;
    Corpus corpus;
    if (code = ouvrebase(contexte, corpus, cheminbase(contexte)); code != Reussite)
        return code;
    ListeChrono liste(corpus, *types, intervalle);
    acheve(*liste.remplissage());
    ecritliste(contexte, liste,
               {{u"année"_s, ListeChrono::Annee},
                {u"mois"_s, ListeChrono::Mois},
                {u"jour"_s, ListeChrono::Jour},
                {u"titre"_s, ListeChrono::Titre}});
    return Reussite;
}

} // namespace velm::outil
