#include "search/criteres.h"

#include "platform/text/letters.h"
#include "platform/text/number.h"
#include "search/remplacecodes.h"

#include <QDate>

#include <algorithm>
#include <limits>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A date box as a small whole number; beyond its range no date equals it.
int petitentier(QStringView texte) {
    constexpr qint64 leplus = std::numeric_limits<qint16>::max();
    return static_cast<int>(std::clamp(roundHalfEven(val(texte)), -leplus - 1, leplus));
}

bool estentre(QStringView texte, double plusgrand) {
    if (texte.isEmpty())
        return true;
    const double valeur = val(texte);
    return valeur >= 1 && valeur <= plusgrand;
}

/// A base may name the kind by its label or by its number.
bool estdutype(const CriteresLus& criteres, const QString& type) {
    if (type.isEmpty())
        return false;
    return (!criteres.libelletype.isEmpty() && type == criteres.libelletype) ||
           wholeNumber(type) == criteres.numerotype;
}

bool estdeladate(const CriteresLus& criteres, const QString& texte) {
    if (!criteres.datedemandee())
        return true;
    const QDate date = QDate::fromString(texte, Qt::ISODate);
    if (!date.isValid())
        return false;
    const auto egal = [](int demande, int valeur) { return demande == 0 || demande == valeur; };
    return egal(criteres.jour, date.day()) && egal(criteres.mois, date.month()) && egal(criteres.annee, date.year());
}

/// Whole words matter in bodies alone.
bool estdanschamp(const CriteresLus& criteres, std::size_t n, const QString& champ) {
    return criteres.options[n].matchCase ? champ.contains(criteres.textes[n])
                                         : upperCase(champ).contains(criteres.textesmaj[n]);
}

/// Whether a text stands in one of the places. The short fields are at hand, so they come before the body.
std::optional<bool> trouve(const CriteresLus& criteres, const FicheCriteres& fiche, std::size_t n,
                           CorpsCherche& corps) {
    if (criteres.emplacement[Criteres::Titre] && estdanschamp(criteres, n, fiche.titre))
        return true;
    if (criteres.emplacement[Criteres::Source] && estdanschamp(criteres, n, fiche.source))
        return true;
    if (!criteres.emplacement[Criteres::Contenu])
        return false;
    return corps.contient(fiche.rangee, static_cast<int>(n));
}

} // namespace

void annulercriteres(Criteres& criteres) {
    const int prefixe = criteres.prefixe;
    criteres = {};
    criteres.prefixe = prefixe;
}

void avancetexte(Criteres& criteres) {
    if (criteres.texterech[0].isEmpty())
        std::swap(criteres.texterech[0], criteres.texterech[1]);
}

bool validejour(QStringView texte) {
    constexpr double plusgrand = 31;
    return estentre(texte, plusgrand);
}

bool validemois(QStringView texte) {
    constexpr double plusgrand = 12;
    return estentre(texte, plusgrand);
}

QString valideannee(const QString& texte) {
    constexpr double court = 10;
    constexpr double siecle = 1900;
    constexpr double millenaire = 2000;
    constexpr int chiffres = 15;
    if (texte.isEmpty())
        return texte;
    const double valeur = val(texte);
    if (valeur >= siecle)
        return texte;
    return QString::number(valeur + (valeur < court ? millenaire : siecle), 'g', chiffres);
}

bool touchedelannee(QStringView frappe) {
    return frappe != u"e"_s && frappe != u"E"_s;
}

CriteresLus litcriteres(const Criteres& criteres, const TypesDocument& types) {
    CriteresLus lus;
    lus.motcle = criteres.motcle;
    if (const qsizetype rang = criteres.type - 1; rang >= 0 && rang < types.numerotype.size()) {
        lus.numerotype = roundHalfEven(val(types.numerotype[rang]));
        lus.libelletype = types.combotype.value(rang);
    }
    lus.jour = petitentier(criteres.textejour);
    lus.mois = petitentier(criteres.textemois);
    lus.annee = petitentier(criteres.texteannee);
    for (std::size_t n = 0; n < lus.textes.size(); ++n) {
        lus.textes[n] = remplacecodes(criteres.texterech[n]);
        lus.textesmaj[n] = upperCase(lus.textes[n]);
        lus.options[n] = {criteres.motentier[n], criteres.respectminmaj[n]};
    }
    lus.emplacement = criteres.emplacement;
    lus.nie = criteres.prefixe == 1;
    lus.conjonction = criteres.conjonction;
    return lus;
}

bool testefiche(const CriteresLus& criteres, const FicheCriteres& fiche) {
    if (!criteres.motcle.isEmpty() &&
        std::find(fiche.motcle.begin(), fiche.motcle.end(), criteres.motcle) == fiche.motcle.end())
        return false;
    if (criteres.numerotype && !estdutype(criteres, fiche.type))
        return false;
    return estdeladate(criteres, fiche.date);
}

std::optional<bool> testetextes(const CriteresLus& criteres, const FicheCriteres& fiche, CorpsCherche& corps) {
    if (!criteres.chercheuntexte())
        return true;
    const std::optional<bool> premier = trouve(criteres, fiche, 0, corps);
    if (!premier)
        return premier;
    if (*premier == criteres.nie)
        return false;
    // The first condition holds. "Or" asks for nothing more, whether the second text stands there or not.
    if (criteres.textes[1].isEmpty() || criteres.conjonction == Criteres::Ou ||
        criteres.conjonction == Criteres::OuSauf)
        return true;
    const std::optional<bool> second = trouve(criteres, fiche, 1, corps);
    if (!second)
        return second;
    return *second == (criteres.conjonction != Criteres::Sauf);
}

std::optional<bool> testecriteres(const CriteresLus& criteres, const FicheCriteres& fiche, CorpsCherche& corps) {
    if (!testefiche(criteres, fiche))
        return false;
    return testetextes(criteres, fiche, corps);
}

} // namespace velm
