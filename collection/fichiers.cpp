#include "collection/fichiers.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

bool DossierDeFichiers::present() const {
    return QFileInfo(lieu_).isDir();
}

QStringList DossierDeFichiers::noms(const QString& motif) const {
    QStringList noms = dossier_.entryList({motif}, QDir::Files, QDir::Unsorted);
    std::sort(noms.begin(), noms.end());
    return noms;
}

bool DossierDeFichiers::existe(const QString& nom) const {
    return dossier_.exists(nom);
}

std::optional<QByteArray> DossierDeFichiers::lit(const QString& nom) const {
    const QString chemin = dossier_.filePath(nom);
    QFile fichier(chemin);
    // A pipe or a device would keep the compiler waiting.
    if (!QFileInfo(chemin).isFile() || !fichier.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray contenu = fichier.readAll();
    return fichier.error() == QFileDevice::NoError ? std::optional(contenu) : std::nullopt;
}

bool DossierDeFichiers::dehors(const QString& chemin) const {
    const QString propre = QDir::cleanPath(chemin);
    const QFileInfo info(dossier_.filePath(propre));
    return QDir::isAbsolutePath(propre) || propre == u".."_s || propre.startsWith(u"../"_s) ||
           (info.exists() && !info.canonicalFilePath().startsWith(dossier_.canonicalPath() + u'/'));
}

} // namespace velm
