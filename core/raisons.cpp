#include "core/raisons.h"

#include "core/texte.h"

#include <QDir>

#include <array>

namespace velm {

namespace {

/// In the order of Failure.
constexpr std::array raisons{Texte::FauteDeLimites, Texte::FauteDeNombre, Texte::FauteDeTable,
                             Texte::FauteDeLecture, Texte::FauteDIndex,   Texte::FauteDeChamp};
constexpr auto reglagefautif = Texte::ReglageFautif;
constexpr auto fautesansnombre = Texte::FauteReglageSansNombre;
constexpr auto horsdeslimites = Texte::FauteReglageHorsLimites;

/// A value may be of any length; what a box shows of it may not.
QString court(const QString& texte) {
    constexpr qsizetype plusdecaracteres = 80;
    const QString ligne = texte.simplified();
    return ligne.size() > plusdecaracteres ? ligne.left(plusdecaracteres - 1) + u'…' : ligne;
}

} // namespace

QString raisondelerreur(Langue& langue, const RuntimeFailure& erreur) {
    if (!erreur.setting)
        return remplace(langue.lireressource(raisons.at(static_cast<std::size_t>(erreur.what))), erreur.parts);
    const FaultySetting& reglage = *erreur.setting;
    const bool limite = erreur.what == Failure::ArrayBounds;
    const QString faute = remplace(langue.lireressource(limite ? horsdeslimites : fautesansnombre), erreur.parts);
    return remplace(langue.lireressource(reglagefautif),
                    {QDir::cleanPath(reglage.file), reglage.section, reglage.key, court(reglage.text), faute});
}

} // namespace velm
