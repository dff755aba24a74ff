#include "dossiers/reparation.h"

#include "core/schemas.h"
#include "platform/base/failure.h"
#include "platform/engine/basecopy.h"

#include <QTemporaryDir>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 parannonce = 512; ///< rows between two words of how far it is

EchecEcriture echecde(const Database& base) {
    return {base.obstacle() == Obstacle::None ? Obstacle::Other : base.obstacle(), base.lastError()};
}

} // namespace

BilanReparation Reparation::repare(Magasin& magasin, const Progres& progres) {
    BilanReparation bilan;
    // As any other change: the copy of the day, and nobody else who writes. The lock is held until the store is closed.
    bilan.echec = magasin.ecrit([] { return true; });
    if (!bilan.echec.ok())
        return bilan;
    const QTemporaryDir dossier;
    const QString chemin = dossier.filePath(u"base.dat"_s);
    Database& base = magasin.dbdossiers();
    if (!dossier.isValid() || !backUp(base, chemin)) {
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
    if (bilan.arretee)
        return bilan;
    faite = faite && !erreur && copie.database->check() && rebuildInto(*copie.database, magasin.cheminbasedossiers());
    if (!faite) {
        bilan.echec = echecde(*copie.database);
        return bilan;
    }
    magasin.rouvre();
    bilan.echec = magasin.dossiersindisponibles() ? magasin.echec() : EchecEcriture{};
    return bilan;
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
    elements_->setIndex(u"primarykey"_s);
    // Each item is seen twice: for its dossier, and for the count of that.
    avoir_ = std::max<qint64>(1, 2 * (dossiers_->recordCount() + elements_->recordCount()));
    return copie_.begin() && retiredossiers() && retireelements() && corrigecomptes() && corrigenumero() &&
           copie_.commit();
}

bool Reparation::avance() {
    if (vus_++ % parannonce != 0 || !progres_ || progres_(int(100 * std::min(vus_, avoir_) / avoir_)))
        return true;
    bilan_.arretee = true;
    return false;
}

/// Once, in the order of the numbers: of a chain of orphans go those whose parent has a smaller number.
bool Reparation::retiredossiers() {
    for (dossiers_->moveFirst(); !dossiers_->eof(); dossiers_->moveNext()) {
        if (!avance())
            return false;
        const qint64 parent = dossiers_->number(u"dépendance"_s);
        if (parent == 0)
            continue;
        cherches_->seek(Seek::Equal, parent);
        if (!cherches_->noMatch())
            continue;
        if (!dossiers_->remove())
            return false;
        ++bilan_.dossiers;
    }
    return true;
}

bool Reparation::retireelements() {
    for (elements_->moveFirst(); !elements_->eof(); elements_->moveNext()) {
        if (!avance())
            return false;
        cherches_->seek(Seek::Equal, elements_->number(u"arborescence"_s));
        if (!cherches_->noMatch())
            continue;
        if (!elements_->remove())
            return false;
        ++bilan_.elements;
    }
    return true;
}

/// Dossiers and items stand in the same order: the count of each is that of the items up to the next one.
bool Reparation::corrigecomptes() {
    elements_->moveFirst();
    for (dossiers_->moveFirst(); !dossiers_->eof(); dossiers_->moveNext()) {
        if (!avance())
            return false;
        const qint64 numero = dossiers_->number(u"numerodutype"_s);
        qint64 compte = 0;
        for (; !elements_->eof() && elements_->number(u"arborescence"_s) == numero; elements_->moveNext(), ++compte) {
            if (!avance())
                return false;
        }
        if (dossiers_->number(u"nbarticles"_s) == compte)
            continue;
        dossiers_->edit();
        dossiers_->setValue(u"nbarticles"_s, compte);
        if (!dossiers_->update())
            return false;
        ++bilan_.comptes;
    }
    return true;
}

bool Reparation::corrigenumero() {
    dossiers_->moveLast();
    const qint64 dernier = dossiers_->eof() ? 0 : dossiers_->number(u"numerodutype"_s);
    parametres_->moveFirst();
    parametres_->edit();
    parametres_->setValue(u"dernoarborescence"_s, dernier);
    return parametres_->update();
}

} // namespace velm
