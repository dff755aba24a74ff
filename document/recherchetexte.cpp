#include "document/recherchetexte.h"

#include <algorithm>

namespace velm {

namespace {

FindOptions voulues(int options) {
    return {(options & RechercheTexte::motentier) != 0, (options & RechercheTexte::casse) != 0};
}

} // namespace

bool FindString(RichTextControl& controle, const QString& texte, qsizetype debut, qsizetype fin, int options) {
    return controle.find(texte, debut, fin, voulues(options)) >= 0;
}

std::vector<qsizetype> occurrencesde(const RichText& dans, const QString& texte, int options) {
    return findAll(dans, texte, voulues(options));
}

bool RechercheTexte::precedent(RichTextControl& controle, const std::vector<qsizetype>& occurrences,
                               qsizetype longueur) {
    if (occurrences.empty())
        return false;
    const auto ici = std::lower_bound(occurrences.begin(), occurrences.end(), derniere());
    const qsizetype avant = ici == occurrences.begin() ? occurrences.back() : *std::prev(ici);
    controle.setSelStart(avant);
    controle.setSelLength(longueur);
    debut_ = avant + 1;
    return true;
}

RechercheTexte::Issue RechercheTexte::suivant(RichTextControl& controle, const QString& texte, int options) {
    constexpr int plusieurs = 2;
    if (FindString(controle, texte, debut_, -1, options)) {
        debut_ = controle.selStart() + 1;
        ++compte_;
        return Issue::Trouve;
    }
    const bool seul = compte_ < plusieurs;
    recommence();
    return seul ? Issue::Absent : Issue::Termine;
}

} // namespace velm
