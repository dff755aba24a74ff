#include "core/listes.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/texte.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto titredesmessages = Texte::NomDuProgramme;
constexpr auto titredelimpression = Texte::TitreImpressionDeLaListe;

} // namespace

QString textecompte(qint64 nombre, const Libelles& texte) {
    constexpr auto motdusingulier = Texte::MotDocument;
    constexpr auto motdepluriel = Texte::MotDocuments;
    const QString plusieurs = texte(motdepluriel);
    // None is one in some languages and many in others: as it is said in words.
    const bool un = nombre == 0 ? !texte(Texte::BureauAucunDocument).endsWith(plusieurs) : nombre == 1;
    return u' ' + nombreecrit(nombre, texte) + u' ' + (un ? texte(motdusingulier) : plusieurs);
}

/// A list with all its rows selected takes its time.
bool veutouvrir(qsizetype nombre, Dialogues& dialogues, const Libelles& texte) {
    constexpr qsizetype sansquestion = 50;
    constexpr auto question = Texte::QuestionOuvrirLesDocuments;
    if (nombre <= sansquestion)
        return true;
    Message boite{remplace(texte(question), {nombreecrit(nombre, texte)}), texte(titredesmessages), Icone::Question,
                  Bouton::Oui | Bouton::Non, Bouton::Non};
    boite.accord = texte(Texte::ReponseOuvrir);
    boite.refus = texte(Texte::ReponseAnnuler);
    return dialogues.message(boite) == Bouton::Oui;
}

bool veutimprimer(Dialogues& dialogues, const Libelles& texte) {
    constexpr auto question = Texte::QuestionImprimerLaListe;
    return dialogues.message(texte(question), titreimprime(texte), Icone::Question, Bouton::Oui | Bouton::Non) ==
           Bouton::Oui;
}

QString titreimprime(const Libelles& texte) {
    return texte(titredelimpression);
}

void imprimeliste(const PaperTable& papier, Imprimante& imprimante, Sablier& sablier, Dialogues& dialogues,
                  const Libelles& texte) {
    constexpr auto impossible = Texte::ListePasImprimee;
    const bool imprimee = [&] {
        const Attente attente(sablier);
        return imprimante.imprime(papier);
    }();
    if (!imprimee)
        dialogues.message(texte(impossible), titreimprime(texte), Icone::Exclamation);
}

} // namespace velm
