#include "core/reglages.h"

#include "platform/text/failure.h"
#include "platform/text/number.h"

#include <cmath>

namespace velm {

namespace {

/// The number of a whole text; a decimal comma is taken as a point.
std::optional<double> nombre(const QString& texte) {
    QString brut = texte.trimmed();
    brut.replace(u',', u'.');
    bool juste = false;
    const double valeur = brut.toDouble(&juste);
    // The words "inf" and "nan" are no numbers here.
    return juste && std::isfinite(valeur) ? std::optional(valeur) : std::nullopt;
}

[[noreturn]] void erreurdeconversion(const QString& section, const QString& cle, const QString& texte) {
    runtimeError(Failure::NotANumber, {section + u'/' + cle, texte});
}

QString motbooleen(bool valeur) {
    return valeur ? QStringLiteral("True") : QStringLiteral("False");
}

std::optional<bool> booleendetexte(const QString& texte) {
    const QString brut = texte.trimmed();
    for (const bool valeur : {true, false}) {
        if (brut.compare(motbooleen(valeur), Qt::CaseInsensitive) == 0)
            return valeur;
    }
    const auto valeur = nombre(brut);
    return valeur ? std::optional(*valeur != 0) : std::nullopt;
}

bool estnumerique(const QVariant& valeur) {
    switch (valeur.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

} // namespace

Reglages::Reglages(ReglagesStore& magasin) : magasin_(magasin) {}

void Reglages::choisitmaitre(const QString& chemin) {
    cheminmaitre_ = chemin;
    maitre_ = Profile(chemin);
}

QVariant Reglages::lireparametre(const QString& section, const QString& cle, const QVariant& defaut) const {
    if (estnumerique(defaut)) {
        // True counts as -1, so that a line "1" and a missing line both mean True.
        const qint64 entierdefaut =
            defaut.typeId() == QMetaType::Bool ? (defaut.toBool() ? -1 : 0) : roundHalfEven(defaut.toDouble());
        return static_cast<qint64>(maitre_.integer(section, cle, static_cast<int>(entierdefaut)));
    }
    const QString texte = maitre_.string(section, cle, QString());
    return texte.isEmpty() ? defaut : QVariant(texte);
}

QString Reglages::getsetting(const QString& section, const QString& cle, const QString& defaut) const {
    return magasin_.get(section, cle, defaut);
}

bool Reglages::savesetting(const QString& section, const QString& cle, const QString& valeur) {
    const bool ecrit = magasin_.save(section, cle, valeur);
    if (!ecrit)
        signaleechec();
    return ecrit;
}

void Reglages::surechec(std::function<void(const QString& raison)> dit) {
    dit_ = std::move(dit);
}

void Reglages::signaleechec() {
    // Once is enough: every later write would fail for the same reason.
    const auto dit = std::exchange(dit_, nullptr);
    if (dit)
        dit(magasin_.lastError());
}

QString Reglages::texte(const QString& section, const QString& cle, const QString& defaut, bool maitre) const {
    return getsetting(section, cle, maitre ? lireparametre(section, cle, defaut).toString() : defaut);
}

qint64 Reglages::entier(const QString& section, const QString& cle, qint64 defaut, bool maitre) const {
    const double valeur = reel(section, cle, static_cast<double>(defaut), maitre);
    constexpr double borne = 2147483648.0;
    if (valeur >= borne || valeur < -borne)
        erreurdeconversion(section, cle, getsetting(section, cle));
    return roundHalfEven(valeur);
}

double Reglages::reel(const QString& section, const QString& cle, double defaut, bool maitre) const {
    const qint64 parmaitre = maitre ? lireparametre(section, cle, defaut).toLongLong() : 0;
    const QString texte =
        getsetting(section, cle, maitre ? QString::number(parmaitre) : QString::number(defaut, 'g', 15));
    const auto valeur = nombre(texte);
    if (!valeur)
        erreurdeconversion(section, cle, texte);
    return *valeur;
}

bool Reglages::booleen(const QString& section, const QString& cle, bool defaut, bool maitre) const {
    const QString pardefaut =
        maitre ? QString::number(lireparametre(section, cle, defaut).toLongLong()) : motbooleen(defaut);
    const QString texte = getsetting(section, cle, pardefaut);
    const auto valeur = booleendetexte(texte);
    if (!valeur)
        erreurdeconversion(section, cle, texte);
    return *valeur;
}

} // namespace velm
