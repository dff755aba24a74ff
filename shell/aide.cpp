#include "shell/aide.h"

#include "core/texte.h"
#include "platform/system/files.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

QString Aide::fichier() const {
    // Disks that tell upper from lower case may hold the file under its other usual spelling.
    const Preferences& preferences = seance.preferences();
    for (const QString& nom : {preferences.aidefichier, u"Velm2000.chm"_s}) {
        const QString chemin = joinPath(preferences.aidechemin, nom);
        if (fileExists(chemin))
            return chemin;
    }
    return {};
}

void Aide::ouvre() const {
    const QString chemin = fichier();
    if (!chemin.isEmpty()) {
        monde.navigateur.openFile(chemin);
        return;
    }
    monde.dialogues.message(langue.lireressource(Texte::AucunFichierDAide), langue.lireressource(Texte::NomDuProgramme),
                            Icone::Information);
}

} // namespace velm
