#include "shell/logique/choixlangue.h"

#include "platform/system/files.h"

namespace velm {

namespace {

const QString& sectionlangue() {
    static const QString section = QStringLiteral("LANGUE");
    return section;
}

} // namespace

std::vector<LangueOfferte> languesoffertes(const Reglages& reglages, const QString& repertoireapplication) {
    std::vector<LangueOfferte> offertes;
    for (int n = 1; n <= nombremaxlangues; ++n) {
        const auto lit = [&](const QString& cle) {
            return reglages.texte(sectionlangue(), cle + QString::number(n), QString(), true);
        };
        LangueOfferte offerte{lit(QStringLiteral("TEXT")), {}, {}};
        if (offerte.texte.isEmpty())
            continue;
        offerte.extension = lit(QStringLiteral("EXT"));
        const QString drapeau = lit(QStringLiteral("FLAG"));
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
        dialogues.message(langue.lireressource(600), langue.lireressource(601), Icone::Stop);
        return ChoixLangue::SansFichier;
    }
    constexpr int pagedaide = 13;
    const Bouton reponse = dialogues.message(langue.lireressource(602), langue.lireressource(603), Icone::Question,
                                             Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Aucun, pagedaide);
    if (reponse != Bouton::Oui)
        return ChoixLangue::Refuse;
    reglages.savesetting(sectionlangue(), QStringLiteral("EXTENSION"), extension);
    courante = extension;
    return ChoixLangue::Retenu;
}

} // namespace velm
