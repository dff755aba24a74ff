#include "dossiers/reparation.h"

#include "core/schemas.h"
#include "dossiers/copies.h"
#include "platform/base/failure.h"
#include "platform/engine/basecopy.h"
#include "platform/engine/recordset.h"

#include <QTemporaryDir>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 parannonce = 512; ///< rows between two words of how far it is

/// How far each step leads, of a hundred.
constexpr int aprescopie = 30;
constexpr int aprestravail = 80;
constexpr int tout = 100;

EchecEcriture echecde(const Database& base) {
    return {base.obstacle() == Obstacle::None ? Obstacle::Other : base.obstacle(), base.lastError()};
}

} // namespace

BilanReparation Reparation::surcopie(Database& base, const Progres& progres, const Place& place) {
    BilanReparation bilan;
    const QTemporaryDir dossier;
    const QString chemin = dossier.filePath(u"base.dat"_s);
    const auto copiee = [&progres](double pourcent) {
        if (progres)
            progres(static_cast<int>(pourcent) * aprescopie / tout);
    };
    if (!dossier.isValid() || !backUp(base, chemin, copiee)) {
        bilan.echec = dossier.isValid() ? echecde(base) : EchecEcriture{Obstacle::Other, dossier.errorString()};
        return bilan;
    }
    const auto copie = Database::open(chemin, OpenMode::Shared, dossiersSchema());
    if (!copie.database) {
        bilan.echec = {copie.obstacle, copie.message};
        return bilan;
    }
    Reparation reparation(*copie.database, progres);
    bool faite = false;
    const auto erreur = failureOf([&] { faite = reparation.travaille(); });
    bilan = reparation.bilan_;
    if (!bilan.arretee && (!faite || erreur || !copie.database->check() || !place(*copie.database)))
        bilan.echec = echecde(*copie.database);
    return bilan;
}

BilanReparation Reparation::repare(Magasin& magasin, const Progres& progres) {
    BilanReparation bilan;
    if (magasin.dossiersindisponibles())
        return {.echec = magasin.echec()};
    // As any other change: the copy of the day, and nobody else who writes. The lock is held until the store is closed.
    bilan.echec = magasin.ecrit([] { return true; });
    if (!bilan.echec.ok())
        return bilan;
    bilan = surcopie(magasin.dbdossiers(), progres,
                     [&](Database& copie) { return rebuildInto(copie, magasin.cheminbasedossiers()); });
    if (!bilan.faite())
        return bilan;
    if (progres)
        progres(tout);
    magasin.rouvre();
    bilan.echec = magasin.dossiersindisponibles() ? magasin.echec() : EchecEcriture{};
    return bilan;
}

BilanReparation Reparation::verifie(Database& base, const Progres& progres) {
    if (!copies::sain(base))
        return {.echec = {Obstacle::Damaged, {}}};
    return surcopie(base, progres, [](Database&) { return true; });
}

bool Reparation::travaille() {
    dossiers_ = copie_.openTable(u"arborescences"_s);
    cherches_ = copie_.openTable(u"arborescences"_s);
    elements_ = copie_.openTable(u"données"_s);
    parametres_ = copie_.openTable(u"paramètres"_s);
    if (!dossiers_ || !cherches_ || !elements_ || !parametres_)
        return false;
    dossiers_->setIndex(u"primarykey"_s);
    cherches_->setIndex(u"primarykey"_s);
    // Each dossier is seen twice: for its parent, and for its count.
    avoir_ = std::max<qint64>(1, 2 * dossiers_->recordCount() + elements_->recordCount());
    return copie_.begin() && retiredossiers() && retireelements() && compteelements() && corrigecomptes() &&
           corrigenumero() && copie_.commit();
}

bool Reparation::avance() {
    if (++vus_ < annonce_)
        return true;
    annonce_ = vus_ + parannonce;
    constexpr int part = aprestravail - aprescopie;
    if (!progres_ || progres_(aprescopie + static_cast<int>(part * std::min(vus_, avoir_) / avoir_)))
        return true;
    bilan_.arretee = true;
    return false;
}

bool Reparation::existe(qint64 dossier) {
    cherches_->seek(Seek::Equal, dossier);
    return !cherches_->noMatch();
}

/// Once, in the order of the numbers: of a chain of orphans go those whose parent has a smaller number.
bool Reparation::retiredossiers() {
    for (dossiers_->moveFirst(); !dossiers_->eof(); dossiers_->moveNext()) {
        if (!avance())
            return false;
        const qint64 parent = dossiers_->number(u"dépendance"_s);
        if (parent == 0 || existe(parent)) {
            comptes_.emplace_back(dossiers_->number(u"numerodutype"_s), 0);
            continue;
        }
        if (!dossiers_->remove())
            return false;
        ++bilan_.dossiers;
    }
    return true;
}

/// In words of the engine: row by row these many rows would be waited for.
bool Reparation::retireelements() {
    const qint64 avant = elements_->recordCount();
    if (!copie_.execute(u"DELETE FROM \"données\" WHERE NOT EXISTS (SELECT 1 FROM \"arborescences\" "
                        "WHERE \"numerodutype\"=\"données\".\"arborescence\")"_s))
        return false;
    bilan_.elements = avant - elements_->recordCount();
    return true;
}

/// Dossiers and items stand in the same order and are gone through once.
bool Reparation::compteelements() {
    const auto groupes =
        copie_.openQuery(u"SELECT arborescence, COUNT(*) FROM données GROUP BY arborescence ORDER BY arborescence"_s);
    if (!groupes)
        return false;
    auto dossier = comptes_.begin();
    for (; !groupes->eof(); groupes->moveNext()) {
        const qint64 compte = groupes->number(1);
        dossier = std::find_if(dossier, comptes_.end(), [&](const auto& un) { return un.first >= groupes->number(0); });
        if (dossier != comptes_.end() && dossier->first == groupes->number(0))
            dossier->second = compte;
        vus_ += compte - 1;
        if (!avance())
            return false;
    }
    return true;
}

bool Reparation::corrigecomptes() {
    dossiers_->moveFirst();
    for (auto compte = comptes_.begin(); compte != comptes_.end() && !dossiers_->eof();
         dossiers_->moveNext(), ++compte) {
        if (!avance())
            return false;
        if (dossiers_->number(u"nbarticles"_s) == compte->second)
            continue;
        dossiers_->edit();
        dossiers_->setValue(u"nbarticles"_s, compte->second);
        if (!dossiers_->update())
            return false;
        ++bilan_.comptes;
    }
    return true;
}

bool Reparation::corrigenumero() {
    bilan_.nouveau = comptes_.empty() ? 0 : comptes_.back().first;
    parametres_->moveFirst();
    bilan_.ancien = parametres_->number(u"dernoarborescence"_s);
    parametres_->edit();
    parametres_->setValue(u"dernoarborescence"_s, bilan_.nouveau);
    return parametres_->update();
}

} // namespace velm
