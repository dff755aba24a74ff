#include "dossiers/fichierdossier.h"

#include "platform/text/ansilines.h"

namespace velm {

QByteArray ecritfichierdossier(const FichierDossier& fichier) {
    ansi::LineWriter lignes(ansi::encodeReadable);
    lignes.line(FichierDossier::entete);
    lignes.line(fichier.nom);
    for (const auto& [cle, texte] : fichier.elements) {
        lignes.line(cle);
        lignes.line(texte);
    }
    return lignes.take();
}

std::optional<FichierDossier> litfichierdossier(QByteArrayView octets) {
    ansi::LineReader lignes(octets);
    if (lignes.line() != FichierDossier::entete)
        return std::nullopt;
    FichierDossier fichier;
    fichier.nom = lignes.line();
    while (!lignes.atEnd()) {
        QString cle = lignes.line();
        if (lignes.atEnd()) {
            fichier.interrompu = true;
            break;
        }
        fichier.elements.emplace_back(std::move(cle), lignes.line());
    }
    return fichier;
}

} // namespace velm
