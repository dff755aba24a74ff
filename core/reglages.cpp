#include "core/reglages.h"

#include "platform/text/letters.h"
#include "platform/text/number.h"

#include <cmath>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

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

QString motbooleen(bool valeur) {
    return valeur ? u"True"_s : u"False"_s;
}

/// Nine digits hold any length that is stored.
QString textereel(double valeur) {
    return QString::number(valeur, 'g', 9);
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

/// A line of a file by its name, whatever its case.
QString nomdeligne(const QString& fichier, const QString& section, const QString& cle) {
    return upperCase(section + u'\n' + cle) + u'\n' + fichier;
}

RuntimeFailure pasunnombre(const QString& texte) {
    return {Failure::NotANumber, {texte}};
}

std::optional<RuntimeFailure> convertitreel(const QString& texte, double& valeur) {
    const auto lue = nombre(texte);
    valeur = lue.value_or(0);
    return lue ? std::nullopt : std::optional(pasunnombre(texte));
}

std::optional<RuntimeFailure> convertitentier(const QString& texte, const Bornes& bornes, double& valeur) {
    if (auto faute = convertitreel(texte, valeur))
        return faute;
    const qint64 entier = roundHalfEven(valeur);
    valeur = static_cast<double>(entier);
    if (entier >= bornes.min && entier <= bornes.max)
        return std::nullopt;
    return RuntimeFailure{Failure::ArrayBounds,
                          {texte, QString::number(entier > bornes.max ? bornes.max : bornes.min)}};
}

std::optional<RuntimeFailure> convertitbooleen(const QString& texte, double& valeur) {
    const auto lue = booleendetexte(texte);
    valeur = lue.value_or(false) ? 1 : 0;
    return lue ? std::nullopt : std::optional(pasunnombre(texte));
}

bool dumaitre(Maitre maitre) {
    return maitre == Maitre::Oui;
}

/// Whether two texts of a setting stand for one value, as "1" and "True" do, or "10" and " 10,0".
bool memevaleur(const QString& un, const QString& autre) {
    if (un == autre)
        return true;
    const auto valeur = [](const QString& texte) -> std::optional<double> {
        const auto lue = nombre(texte);
        const auto mot = lue ? std::nullopt : booleendetexte(texte);
        return mot ? std::optional(*mot ? 1.0 : 0.0) : lue;
    };
    const auto ici = valeur(un);
    return ici && ici == valeur(autre);
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
    ecartes_.remove(nomdeligne(magasin_.path(), section, cle));
    const bool ecrit = magasin_.save(section, cle, valeur);
    if (!ecrit)
        signaleechec();
    return ecrit;
}

bool Reglages::lit(const ReglageBooleen& reglage) const {
    return booleen(reglage.cle.nomdesection(), reglage.cle.nom(), reglage.defaut, dumaitre(reglage.maitre));
}

int Reglages::lit(const ReglageEntier& reglage) const {
    return static_cast<int>(entier(reglage.cle.nomdesection(), reglage.cle.nom(), reglage.defaut,
                                   dumaitre(reglage.maitre), reglage.bornes));
}

double Reglages::lit(const ReglageReel& reglage) const {
    return reel(reglage.cle.nomdesection(), reglage.cle.nom(), reglage.defaut, dumaitre(reglage.maitre));
}

double Reglages::lit(const ReglageLibre& reglage) const {
    return val(getsetting(reglage.cle.nomdesection(), reglage.cle.nom(), QString::number(reglage.defaut)));
}

double Reglages::litlibre(const ReglageEntier& reglage) const {
    return lit(ReglageLibre{reglage.cle, reglage.defaut});
}

QString Reglages::lit(const ReglageTexte& reglage) const {
    return texte(reglage.cle.nomdesection(), reglage.cle.nom(), reglage.defaut.toString(), dumaitre(reglage.maitre));
}

QString Reglages::lit(const ReglageLieu& reglage, const QString& defaut) const {
    return getsetting(reglage.cle.nomdesection(), reglage.cle.nom(), defaut);
}

bool Reglages::ecrit(const ReglageBooleen& reglage, bool valeur) {
    return changenombre(reglage, QString::number(valeur ? 1 : 0), false);
}

bool Reglages::ecrit(const ReglageEntier& reglage, int valeur) {
    return changenombre(reglage, QString::number(valeur), false);
}

bool Reglages::ecrit(const ReglageReel& reglage, double valeur) {
    return changenombre(reglage, textereel(valeur), false);
}

bool Reglages::ecrit(const ReglageLibre& reglage, int valeur) {
    return change(reglage.cle, QString::number(valeur), false, [&] { return QString::number(lit(reglage)); });
}

bool Reglages::ecrit(const ReglageTexte& reglage, const QString& valeur) {
    return change(reglage.cle, valeur, false, [&] { return lit(reglage); });
}

bool Reglages::ecrit(const ReglageLieu& reglage, const QString& valeur) {
    return change(reglage.cle, valeur, false, [&] { return lit(reglage, QString()); });
}

bool Reglages::note(const ReglageEntier& reglage, int valeur) {
    return changenombre(reglage, QString::number(valeur), true);
}

bool Reglages::note(const ReglageReel& reglage, double valeur) {
    return changenombre(reglage, textereel(valeur), true);
}

template <class Sorte>
bool Reglages::changenombre(const Sorte& reglage, const QString& valeur, bool deluimeme) {
    return change(reglage.cle, valeur, deluimeme, [&] {
        return ligne(reglage.cle.nomdesection(), reglage.cle.nom(), textereel(reglage.defaut), dumaitre(reglage.maitre))
            .texte;
    });
}

bool Reglages::change(const CleReglage& cle, const QString& valeur, bool deluimeme,
                      const std::function<QString()>& actuelle) {
    const QString section = cle.nomdesection();
    const QString nom = cle.nom();
    const QString avant = actuelle();
    const bool ecrit = deluimeme ? note(section, nom, valeur) : savesetting(section, nom, valeur);
    if (!memevaleur(avant, actuelle()))
        ditchangement(nomdeligne(QString(), section, nom));
    return ecrit;
}

Reglages::Ecoute Reglages::quandchange(const CleReglage& cle, std::function<void()> dit) {
    auto ecoute = std::make_shared<const std::function<void()>>(std::move(dit));
    ecouteurs_.push_back({nomdeligne(QString(), cle.nomdesection(), cle.nom()), ecoute});
    return ecoute;
}

void Reglages::ditchangement(const QString& nom) {
    std::erase_if(ecouteurs_, [](const Ecouteur& ecouteur) { return ecouteur.dit.expired(); });
    // Who is told may begin or end to listen.
    const std::vector<Ecouteur> ici = ecouteurs_;
    for (const Ecouteur& ecouteur : ici) {
        const Ecoute vivante = ecouteur.nom == nom ? ecouteur.dit.lock() : nullptr;
        if (vivante)
            (*vivante)();
    }
}

bool Reglages::note(const QString& section, const QString& cle, const QString& valeur) {
    const auto remplacant = ecartes_.constFind(nomdeligne(magasin_.path(), section, cle));
    if (remplacant != ecartes_.cend() && nombre(valeur) == *remplacant)
        return true;
    return savesetting(section, cle, valeur);
}

void Reglages::surfaute(std::function<bool(const RuntimeFailure& faute)> decide) {
    decide_ = std::move(decide);
}

void Reglages::surechec(std::function<void(const FileError& raison)> dit) {
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

/// What stands for a setting now, strongest first; lines that are set aside count as if they were not there.
Reglages::Ligne Reglages::ligne(const QString& section, const QString& cle, const QString& defaut, bool maitre) const {
    const auto compte = [&](const QString& fichier) { return !ecartes_.contains(nomdeligne(fichier, section, cle)); };
    if (magasin_.contains(section, cle) && compte(magasin_.path()))
        return {magasin_.get(section, cle), magasin_.path()};
    if (maitre && maitre_.contains(section, cle) && compte(cheminmaitre_))
        return {QString::number(maitre_.integer(section, cle)), cheminmaitre_};
    return {defaut, {}};
}

void Reglages::ecarte(const QString& section, const QString& cle, const Ligne& ligne,
                      const RuntimeFailure& faute) const {
    RuntimeFailure dite = faute;
    if (dite.what == Failure::NotANumber)
        dite.parts.prepend(section + u'/' + cle);
    if (ligne.fichier.isEmpty())
        runtimeError(dite); // a default is never at fault, and nothing stands behind it
    dite.setting = FaultySetting{ligne.fichier, section, cle, ligne.texte};
    if (decide_ && decide_(dite)) {
        ecartes_.insert(nomdeligne(ligne.fichier, section, cle), 0);
        return;
    }
    dite.said = decide_ != nullptr;
    runtimeError(dite);
}

double Reglages::nombrelu(const QString& section, const QString& cle, const QString& defaut, bool maitre,
                          const Conversion& convertit) const {
    for (;;) {
        const Ligne ici = ligne(section, cle, defaut, maitre);
        double valeur = 0;
        const auto faute = convertit(ici.texte, valeur);
        if (faute) {
            ecarte(section, cle, ici, *faute);
            continue;
        }
        const auto ecartee = ecartes_.find(nomdeligne(magasin_.path(), section, cle));
        if (ecartee != ecartes_.end())
            *ecartee = valeur;
        return valeur;
    }
}

qint64 Reglages::entier(const QString& section, const QString& cle, qint64 defaut, bool maitre,
                        const Bornes& bornes) const {
    return static_cast<qint64>(
        nombrelu(section, cle, QString::number(defaut), maitre,
                 [&bornes](const QString& texte, double& valeur) { return convertitentier(texte, bornes, valeur); }));
}

double Reglages::reel(const QString& section, const QString& cle, double defaut, bool maitre) const {
    // The publisher's numbers are whole ones, and so is the default that takes their road.
    const QString pardefaut = maitre ? QString::number(roundHalfEven(defaut)) : QString::number(defaut, 'g', 15);
    return nombrelu(section, cle, pardefaut, maitre, convertitreel);
}

bool Reglages::booleen(const QString& section, const QString& cle, bool defaut, bool maitre) const {
    return nombrelu(section, cle, motbooleen(defaut), maitre, convertitbooleen) != 0;
}

} // namespace velm
