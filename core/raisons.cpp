#include "core/raisons.h"

#include <QDir>

namespace velm {

namespace {

constexpr int premiereraison = 9405; ///< of Failure, in its order
constexpr int reglagefautif = 9510;
constexpr int pasunnombre = 9511;
constexpr int horsdeslimites = 9512;

/// A value may be of any length; what a box shows of it may not.
QString court(const QString& texte) {
    constexpr qsizetype plusdecaracteres = 80;
    const QString ligne = texte.simplified();
    return ligne.size() > plusdecaracteres ? ligne.left(plusdecaracteres - 1) + u'…' : ligne;
}

} // namespace

QString raisondelerreur(Langue& langue, const RuntimeFailure& erreur) {
    if (!erreur.setting)
        return remplace(langue.lireressource(premiereraison + static_cast<int>(erreur.what)), erreur.parts);
    const FaultySetting& reglage = *erreur.setting;
    const bool limite = erreur.what == Failure::ArrayBounds;
    const QString faute = remplace(langue.lireressource(limite ? horsdeslimites : pasunnombre), erreur.parts);
    return remplace(langue.lireressource(reglagefautif),
                    {QDir::cleanPath(reglage.file), reglage.section, reglage.key, court(reglage.text), faute});
}

} // namespace velm
