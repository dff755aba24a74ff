#include "print/fichiertemporaire.h"

#include "print/nomdefichier.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

FichierTemporaire::FichierTemporaire(const QString& titre, const QByteArray& rtf)
    : dossier_(joinPath(tempFolder(), u"document-XXXXXX")) {
    const QString nom = titre.isEmpty() || !nompossible(titre) ? u"temp"_s : titre;
    chemin_ = dossier_.filePath(nom + u".rtf"_s);
    erreur_ = dossier_.isValid() ? writeWhole(chemin_, rtf) : FileError{Obstacle::Other, dossier_.errorString()};
}

} // namespace velm
