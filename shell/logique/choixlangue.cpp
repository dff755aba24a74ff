#include "shell/logique/choixlangue.h"

#include "core/tablereglages.h"
#include "core/texte.h"
#include "platform/system/files.h"

namespace velm {

std::vector<LangueOfferte> languesoffertes(const Reglages& reglages, const QString& repertoireapplication) {
    std::vector<LangueOfferte> offertes;
    for (int n = 1; n <= nombremaxlangues; ++n) {
        LangueOfferte offerte{reglages.lit(reglage::languetexte[n]), {}, {}};
        if (offerte.texte.isEmpty())
            continue;
        offerte.extension = reglages.lit(reglage::langueextension[n]);
        const QString drapeau = reglages.lit(reglage::languedrapeau[n]);
        const QString chemin = joinPath(joinPath(repertoireapplication, u"langues"), drapeau);
        if (!drapeau.isEmpty() && fileExists(chemin))
            offerte.drapeau = chemin;
        offertes.push_back(std::move(offerte));
    }
    return offertes;
}

ChoixLangue choisitlangue(const QString& extension, QString& courante, const QString& repertoireapplication,
                          Reglages& reglages, Langue& langue, Dialogues& dialogues) {
    if (extension == courante)
        return ChoixLangue::Identique;
    // Any other extension would be read as the French one at the next start.
    if (!Langue::estextension(extension) || !fileExists(Langue::cheminfichier(repertoireapplication, extension))) {
        dialogues.message(langue.lireressource(Texte::LangueSansFichier),
                          langue.lireressource(Texte::TitreErreurDeFichier), Icone::Stop);
        return ChoixLangue::SansFichier;
    }
    constexpr int pagedaide = 13;
    const Bouton reponse =
        dialogues.message(langue.lireressource(Texte::QuestionLangue), langue.lireressource(Texte::TitreLangue),
                          Icone::Question, Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Aucun, pagedaide);
    if (reponse != Bouton::Oui)
        return ChoixLangue::Refuse;
    reglages.ecrit(reglage::langue, extension);
    courante = extension;
    return ChoixLangue::Retenu;
}

} // namespace velm
