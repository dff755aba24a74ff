#pragma once
// A file that is there for as long as somebody is given it.
#include "platform/system/files.h"

#include <QTemporaryDir>

namespace velm {

class FichierTemporaire {
public:
    /// Writes it under its title, or as "temp.rtf" where the title is empty or no name for a file. It lies in a folder
    /// of its own, so that it takes the place of no other file, and goes with this object.
    FichierTemporaire(const QString& titre, const QByteArray& rtf);

    const QString& chemin() const { return chemin_; }
    /// Why it could not be written.
    const FileError& erreur() const { return erreur_; }

private:
    QTemporaryDir dossier_;
    QString chemin_;
    FileError erreur_;
};

} // namespace velm
