#include "collection/fichiers.h"

#include <QFileInfo>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

Obstacle DossierDeFichiers::obstacle() const {
    const QFileInfo info(lieu_);
    return info.isDir() ? Obstacle::None : info.exists() ? Obstacle::NotFolder : Obstacle::Missing;
}

QStringList DossierDeFichiers::noms(const QString& motif) const {
    QStringList noms = dossier_.entryList({motif}, QDir::Files, QDir::Unsorted);
    std::sort(noms.begin(), noms.end());
    return noms;
}

FileBytes DossierDeFichiers::lit(const QString& nom) const {
    return readPlain(dossier_.filePath(nom));
}

bool DossierDeFichiers::dehors(const QString& chemin) const {
    const QString propre = QDir::cleanPath(chemin);
    const QFileInfo info(dossier_.filePath(propre));
    return QDir::isAbsolutePath(propre) || propre == u".."_s || propre.startsWith(u"../"_s) ||
           (info.exists() && !info.canonicalFilePath().startsWith(dossier_.canonicalPath() + u'/'));
}

} // namespace velm
