#include "document/marques.h"

#include "platform/richtext/find.h"

#include <algorithm>

namespace velm {

namespace {

constexpr qsizetype introuvable = -1;

/// The last hit that lies wholly in the first `fin` characters.
qsizetype derniere(const RichText& texte, const QString& mot, qsizetype fin) {
    // Back through the text by pieces; a hit that begins in a piece may end in the one behind it.
    constexpr qsizetype morceau = 4096;
    for (qsizetype haut = std::min(fin, texte.length()); haut > 0;) {
        const qsizetype bas = std::max<qsizetype>(haut - morceau, 0);
        const qsizetype borne = std::min(haut + mot.size() - 1, fin);
        qsizetype trouvee = introuvable;
        for (qsizetype ici = bas; (ici = find(texte, mot, ici, borne, {})) >= 0; ++ici)
            trouvee = ici;
        if (trouvee >= 0)
            return trouvee;
        haut = bas;
    }
    return introuvable;
}

/// The smaller one of two positions that are there; the first word's when they are the same.
std::optional<Occurrence> choisit(const MotsCherches& mots, qsizetype r1, qsizetype r2) {
    if (r1 < 0 && r2 < 0)
        return std::nullopt;
    const bool second = r1 < 0 || (r2 >= 0 && r2 < r1);
    return second ? Occurrence{r2, mots.mot2.size()} : Occurrence{r1, mots.mot1.size()};
}

} // namespace

Marques marquemot(RichTextControl& controle, const QString& mot, const Marquage& marquage) {
    CharChange change;
    change.mask = CharChange::Colour | CharChange::Bold | CharChange::Italic;
    change.values.colour = marquage.couleur;
    change.values.bold = marquage.gras;
    change.values.italic = marquage.italique;
    RichText& texte = controle.richTextForEdit();
    Marques marques;
    for (qsizetype ici = 0; (ici = find(texte, mot, ici, -1, {})) > 0; ++ici) {
        texte.changeCharacters(ici, mot.size(), change);
        if (marques.nombre++ == 0)
            marques.premiere = ici;
        marques.ou.push_back({ici, mot.size()});
    }
    if (marques.nombre > 0)
        controle.notifyChanged();
    return marques;
}

Marques marquemots(RichTextControl& controle, const MotsCherches& mots, const Marquage& marquage) {
    const bool avant = controle.redraw();
    controle.setRedraw(false);
    Marques marques = marquemot(controle, mots.mot1, marquage);
    const Marques autres = mots.mot2.isEmpty() ? Marques{} : marquemot(controle, mots.mot2, marquage);
    marques.nombre += autres.nombre;
    marques.ou.insert(marques.ou.end(), autres.ou.begin(), autres.ou.end());
    if (marques.premiere < 0 || (autres.premiere >= 0 && autres.premiere < marques.premiere))
        marques.premiere = autres.premiere;
    controle.setRedraw(avant);
    return marques;
}

std::optional<Occurrence> motsuivant(const RichText& texte, const MotsCherches& mots) {
    const qsizetype debut = mots.posdepartrecherche + 1;
    return choisit(mots, find(texte, mots.mot1, debut, -1, {}), find(texte, mots.mot2, debut, -1, {}));
}

std::optional<Occurrence> motprecedent(const RichText& texte, const MotsCherches& mots) {
    const qsizetype fin = mots.posdepartrecherche - 1;
    return choisit(mots, derniere(texte, mots.mot1, fin), derniere(texte, mots.mot2, fin));
}

} // namespace velm
