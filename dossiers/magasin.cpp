#include "dossiers/magasin.h"

#include "core/schemas.h"
#include "dossiers/copies.h"
#include "platform/base/failure.h"
#include "platform/system/files.h"

#include <QLockFile>
#include <QScopedValueRollback>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString extensionverrou = u".verrou"_s;

/// Undoes a change unless it came to its end, however it is left.
class Transaction {
public:
    explicit Transaction(Database& base) : base_(base) {}
    ~Transaction() { base_.rollback(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

private:
    Database& base_;
};

} // namespace

Magasin::Magasin(std::function<QDate()> aujourdhui) : aujourdhui_(std::move(aujourdhui)) {}

Magasin::~Magasin() {
    fermedossiers();
}

void Magasin::ouvredossiers(const QString& dossierchemin) {
    ouvremagasin(joinPath(dossierchemin, nomfichier));
}

void Magasin::ouvremagasin(const QString& chemin) {
    chemin_ = chemin;
    if (!ouvre())
        return;
    verrou_ = std::make_unique<QLockFile>(chemin_ + extensionverrou);
    // A lock whose owner runs is never stale, however old it is.
    verrou_->setStaleLockTime(0);
    tientleverrou();
}

bool Magasin::ouvre() {
    auto ouverte = Database::open(chemin_, OpenMode::Shared, dossiersSchema());
    indisponibles_ = ouverte.database == nullptr;
    echec_ = {ouverte.obstacle, ouverte.message};
    if (indisponibles_)
        return false;
    arborescences_ = ouverte.database->openTable(u"arborescences"_s);
    donnees_ = ouverte.database->openTable(u"données"_s);
    parametres_ = ouverte.database->openTable(u"paramètres"_s);
    base_ = std::move(ouverte.database);
    etat_.reset();
    copie_ = {};
    copiemanquee_ = false;
    return true;
}

void Magasin::fermedossiers() {
    if (indisponibles_)
        return;
    for (auto* table : {&arborescences_, &donnees_, &parametres_}) {
        if (*table)
            (*table)->close();
    }
    if (base_)
        base_->close();
    arborescences_.reset();
    donnees_.reset();
    parametres_.reset();
    base_.reset();
    verrou_.reset();
}

void Magasin::rouvre() {
    auto verrou = std::move(verrou_);
    fermedossiers();
    if (ouvre())
        verrou_ = std::move(verrou);
}

Recordset& Magasin::table(const std::unique_ptr<Recordset>& table, QStringView nom) const {
    if (!table)
        runtimeError(Failure::MissingTable, {nom.toString()});
    return *table;
}

Database& Magasin::dbdossiers() const {
    if (!base_)
        runtimeError(Failure::MissingTable, {u"arborescences"_s});
    return *base_;
}

/// The first read of all; from here to the COMMIT nobody can lock the store.
bool Magasin::litschema() {
    return base_->execute(u"BEGIN; SELECT count(*) FROM sqlite_schema"_s);
}

Obstacle Magasin::etat() {
    Database& base = dbdossiers();
    if (etat_)
        return *etat_;
    const bool lu = litschema();
    const Obstacle obstacle = base.obstacle();
    if (lu)
        etat_ = copies::sain(base) ? Obstacle::None : Obstacle::Damaged;
    base.execute(u"COMMIT"_s);
    return etat_.value_or(obstacle);
}

EchecEcriture Magasin::lit(const std::function<void()>& travail) {
    const Database& base = dbdossiers();
    const auto erreur = failureOf(travail);
    if (!erreur)
        return {};
    return {base.obstacle() == Obstacle::None ? Obstacle::Other : base.obstacle(), erreur->parts.join(u' ')};
}

QString Magasin::derniercopie() const {
    for (const QString& copie : copies::toutes(chemin_)) {
        if (copies::saine(copie))
            return copie;
    }
    return {};
}

bool Magasin::tientleverrou() {
    return verrou_->isLocked() || verrou_->tryLock(0) || verrou_->error() != QLockFile::LockFailedError;
}

void Magasin::copiedujour() {
    const QDate jour = aujourdhui_();
    if (copie_ == jour)
        return;
    copiemanquee_ = !copies::fait(*base_, jour);
    if (!copiemanquee_)
        copie_ = jour;
}

EchecEcriture Magasin::dernier() const {
    return {base_->obstacle() == Obstacle::None ? Obstacle::Other : base_->obstacle(), base_->lastError()};
}

EchecEcriture Magasin::ecrit(const std::function<bool()>& travail) {
    Database& base = dbdossiers();
    if (ecriture_)
        return travail() ? EchecEcriture{} : dernier();
    if (const Obstacle obstacle = etat(); obstacle != Obstacle::None)
        return {obstacle, {}};
    if (!tientleverrou())
        return {Obstacle::Busy, {}};
    copiedujour();
    return base.begin() ? ecritseul(travail) : dernier();
}

EchecEcriture Magasin::ecritseul(const std::function<bool()>& travail) {
    const QScopedValueRollback dedans(ecriture_, true);
    const Transaction transaction(*base_);
    bool fait = false;
    if (const auto erreur = failureOf([&] { fait = travail(); }))
        return {base_->obstacle() == Obstacle::None ? Obstacle::Other : base_->obstacle(), erreur->parts.join(u' ')};
    return fait && base_->commit() ? EchecEcriture{} : dernier();
}

} // namespace velm
