#include "core/listes.h"

#include "core/langue.h"
#include "platform/text/number.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int titredesmessages = 8;
constexpr int titredelimpression = 33;

} // namespace

QString textecompte(qint64 nombre, const std::function<QString(int)>& texte) {
    constexpr int motdusingulier = 2171;
    constexpr int motdepluriel = 2172;
    return numberText(nombre) + u' ' + texte(nombre > 1 ? motdepluriel : motdusingulier);
}

/// A list with all its rows selected takes its time.
bool veutouvrir(qsizetype nombre, Dialogues& dialogues, const std::function<QString(int)>& texte) {
    constexpr qsizetype sansquestion = 50;
    constexpr int question = 9495;
    return nombre <= sansquestion ||
           dialogues.message(remplace(texte(question), {QString::number(nombre)}), texte(titredesmessages),
                             Icone::Question, Bouton::Oui | Bouton::Non, Bouton::Non) == Bouton::Oui;
}

bool veutimprimer(Dialogues& dialogues, const std::function<QString(int)>& texte) {
    constexpr int question = 2432;
    return dialogues.message(texte(question) + u" ?"_s, titreimprime(texte), Icone::Question,
                             Bouton::Oui | Bouton::Non) == Bouton::Oui;
}

QString titreimprime(const std::function<QString(int)>& texte) {
    return texte(titredelimpression);
}

void imprimeliste(const TableauImprime& papier, Imprimante& imprimante, Sablier& sablier, Dialogues& dialogues,
                  const std::function<QString(int)>& texte) {
    constexpr int impossible = 9496;
    const bool imprimee = [&] {
        const Attente attente(sablier);
        return imprimante.imprime(papier);
    }();
    if (!imprimee)
        dialogues.message(texte(impossible), titreimprime(texte), Icone::Exclamation);
}

} // namespace velm
