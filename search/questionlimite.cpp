#include "search/questionlimite.h"

#include "core/nombres.h"
#include "core/texte.h"
#include "search/recherche.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

std::optional<qint64> demandelimite(qint64 nombre, Dialogues& dialogues, Sablier& sablier, const Libelles& texte) {
    constexpr qint64 limite = 200;
    constexpr int pagedaide = 2;
    constexpr auto titre = Texte::TitreRechercheParMots;
    const QString question = texte(Texte::LaRechercheATrouve) + u' ' + nombreecrit(nombre, texte) + u' ' +
                             texte(Texte::QuestionPremiersDocuments);
    sablier.fixepointeur(Sablier::defaut);
    const Bouton reponse =
        dialogues.message(question, texte(titre), Icone::Aucune,
                          Bouton::Oui | Bouton::Non | Bouton::Annuler | Bouton::Aide, Bouton::Aucun, pagedaide);
    sablier.fixepointeur(Sablier::attente);
    if (reponse == Bouton::Annuler)
        return std::nullopt;
    return reponse == Bouton::Oui ? limite : sanslimite;
}

} // namespace velm
