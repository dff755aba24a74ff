#include "dossiers/copies.h"

#include "core/schemas.h"
#include "platform/base/failure.h"
#include "platform/engine/basecopy.h"
#include "platform/engine/recordset.h"
#include "platform/system/files.h"

#include <QDir>
#include <QFileInfo>

namespace velm::copies {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString prefixe = u"dossiers-"_s;
const QString suffixe = u".dat"_s;
const QString formejour = u"yyyy-MM-dd"_s;

/// Whether a file has the name of a copy: what only looks like one is the user's own, and stays.
bool estcopie(const QString& nom) {
    return nom.startsWith(prefixe) && nom.endsWith(suffixe) &&
           QDate::fromString(nom.chopped(suffixe.size()).mid(prefixe.size()), formejour).isValid();
}

} // namespace

QString chemin(const QString& magasin, QDate jour) {
    return joinPath(folderOf(magasin), prefixe + jour.toString(formejour) + suffixe);
}

QStringList toutes(const QString& magasin) {
    const QString dossier = folderOf(magasin);
    // As their dates are written, their names stand in the order of their days.
    QStringList noms =
        QDir(dossier).entryList({prefixe + u"*-*-*"_s + suffixe}, QDir::Files, QDir::Name | QDir::Reversed);
    noms.removeIf([](const QString& nom) { return !estcopie(nom); });
    for (QString& nom : noms)
        nom = joinPath(dossier, nom);
    return noms;
}

bool fait(Database& base, QDate jour) {
    const QString magasin = base.path();
    const QString copie = chemin(magasin, jour);
    if (fileExists(copie))
        return true;
    if (!backUp(base, copie))
        return false;
    for (const QString& vieille : toutes(magasin).mid(gardees))
        QFile::remove(vieille);
    return true;
}

bool sain(Database& base) {
    bool bon = false;
    const auto erreur = failureOf([&] {
        bon = base.check() && complete(base);
        if (!bon)
            return;
        const auto parametres = base.openTable(u"paramètres"_s);
        parametres->moveFirst();
        bon = !parametres->eof();
    });
    return bon && !erreur;
}

bool saine(const QString& chemin) {
    const auto ouverte = Database::open(chemin, OpenMode::ExclusiveReadOnly, dossiersSchema());
    return ouverte.database && sain(*ouverte.database);
}

} // namespace velm::copies
