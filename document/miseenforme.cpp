#include "document/miseenforme.h"

#include <algorithm>

namespace velm::passes {
namespace {

template <std::size_t N>
quint32 empreinte(const std::array<std::int32_t, N>& styles) {
    quint32 cle = 0;
    for (const std::int32_t style : styles)
        cle = cle * 128 + static_cast<quint32>(style + 1);
    return cle;
}

/// The styles of one cell.
std::array<std::int32_t, 3> cellule(const std::array<std::vector<std::int32_t>, 3>& calques, std::size_t i) {
    std::array<std::int32_t, 3> styles{};
    for (std::size_t k = 0; k < styles.size(); ++k)
        styles[k] = calques[k][i];
    return styles;
}

bool vide(const std::array<std::int32_t, 3>& styles) {
    return std::all_of(styles.begin(), styles.end(), [](std::int32_t style) { return style < 0; });
}

} // namespace

const ChangementStyle& MiseEnForme::changement(std::int32_t style) {
    auto& place = changements_[static_cast<std::size_t>(style)];
    if (!place)
        place = std::make_unique<ChangementStyle>(changementdestyle(styles_.styles[static_cast<std::size_t>(style)]));
    return *place;
}

void MiseEnForme::applique(QStringView nom, Etendue caracteres, Etendue lignes, bool tabulations) {
    const QString cle = nom.toString();
    auto trouve = indices_.constFind(cle);
    if (trouve == indices_.constEnd())
        trouve = indices_.insert(cle, styles_.indice(nom));
    const std::int32_t style = *trouve;
    if (style < 0)
        return;
    const auto court = [](qsizetype place) { return static_cast<std::int32_t>(place); };
    if (caracteres.longueur() > 0)
        traits_.push_back({court(caracteres.debut), court(caracteres.fin), style});
    const ChangementStyle& change = changement(style);
    if (change.paragraphes.mask == 0)
        return;
    lignes_.push_back({court(lignes.debut), court(lignes.fin), 2 * style + (tabulations && change.taquets ? 1 : 0)});
    indentpuce_ = change.indentpuce;
}

FormatId MiseEnForme::caractere(FormatId format, const Styles& styles) {
    const auto cle = std::pair(format, empreinte(styles));
    if (const auto connu = caracteres_.constFind(cle); connu != caracteres_.constEnd())
        return *connu;
    CharFormat f = hote_.charFormat(format);
    if (styles[0] >= 0) {
        const CharFormat& valeurs = changement(styles[0]).caracteres.values;
        f.bold = valeurs.bold;
        f.underline = valeurs.underline;
        f.italic = valeurs.italic;
        f.strike = valeurs.strike;
        f.offset = valeurs.offset;
        f.colour = valeurs.colour;
    }
    if (styles[1] >= 0)
        f.family = changement(styles[1]).caracteres.values.family;
    if (styles[2] >= 0)
        f.size = changement(styles[2]).caracteres.values.size;
    return *caracteres_.insert(cle, hote_.intern(f));
}

FormatId MiseEnForme::paragraphe(FormatId format, const Styles& styles) {
    const auto cle = std::pair(format, empreinte(styles));
    if (const auto connu = paragraphes_.constFind(cle); connu != paragraphes_.constEnd())
        return *connu;
    ParaFormat f = hote_.paraFormat(format);
    if (styles[0] >= 0) {
        const ParaFormat& valeurs = changement(styles[0]).paragraphes.values;
        f.bullet = valeurs.bullet;
        f.startIndent = valeurs.startIndent;
        f.rightIndent = valeurs.rightIndent;
        f.offset = valeurs.offset;
    }
    if (styles[1] >= 0)
        f.alignment = changement(styles[1]).paragraphes.values.alignment;
    if (styles[2] >= 0)
        f.tabs = *changement(styles[2]).taquets;
    return *paragraphes_.insert(cle, hote_.intern(f));
}

std::vector<qsizetype> MiseEnForme::bornes() const {
    std::vector<qsizetype> toutes{0, texte_.longueur()};
    for (const Trait& trait : traits_) {
        toutes.push_back(trait.debut);
        toutes.push_back(trait.fin);
    }
    std::sort(toutes.begin(), toutes.end());
    toutes.erase(std::unique(toutes.begin(), toutes.end()), toutes.end());
    return toutes;
}

MiseEnForme::Calques MiseEnForme::calquescaracteres(const std::vector<qsizetype>& bornes) {
    const auto rang = [&bornes](qsizetype place) {
        return static_cast<std::int32_t>(std::lower_bound(bornes.begin(), bornes.end(), place) - bornes.begin());
    };
    std::vector<Trait> traits = traits_;
    for (Trait& trait : traits) {
        trait.debut = rang(trait.debut);
        trait.fin = rang(trait.fin);
    }
    const auto calque = [&](unsigned masque) {
        return dessus(static_cast<std::int32_t>(bornes.size()) - 1, traits,
                      [this, masque](std::int32_t style) { return (changement(style).caracteres.mask & masque) != 0; });
    };
    return {calque(CharChange::Bold), calque(CharChange::Family), calque(CharChange::Size)};
}

MiseEnForme::Calques MiseEnForme::calqueslignes() {
    const auto calque = [&](const std::function<bool(std::int32_t)>& compte) {
        auto couleurs = dessus(static_cast<std::int32_t>(texte_.lignes().size()) + 1, lignes_, compte);
        for (std::int32_t& couleur : couleurs)
            couleur = couleur < 0 ? -1 : couleur / 2;
        return couleurs;
    };
    return {calque([](std::int32_t) { return true; }), calque([this](std::int32_t couleur) {
                return (changement(couleur / 2).paragraphes.mask & ParaChange::Align) != 0;
            }),
            calque([](std::int32_t couleur) { return couleur % 2 != 0; })};
}

FormatId MiseEnForme::finalcaractere(const Fin& fin) {
    Styles styles{-1, -1, -1};
    for (std::size_t i = 0; i < fin.traits; ++i) {
        const Trait& trait = traits_[i];
        if (fin.place < trait.debut || fin.place >= trait.fin)
            continue;
        const unsigned masque = changement(trait.couleur).caracteres.mask;
        styles[0] = trait.couleur;
        styles[1] = (masque & CharChange::Family) != 0 ? trait.couleur : styles[1];
        styles[2] = (masque & CharChange::Size) != 0 ? trait.couleur : styles[2];
    }
    return sansobjet(hote_, caractere(texte_.caractere(fin.place), styles));
}

Plat MiseEnForme::rend(const std::vector<Etendue>& restes) {
    const std::vector<qsizetype> limites = bornes();
    const Calques caracteres = traits_.empty() ? Calques{} : calquescaracteres(limites);
    const Calques lignes = lignes_.empty() ? Calques{} : calqueslignes();
    const auto deligne = [&](std::size_t i) {
        const FormatId format = texte_.paragraphe(i);
        return lignes_.empty() ? format : paragraphe(format, cellule(lignes, i));
    };

    Plat vers;
    vers.reserve(texte_.longueur());
    vers.prendfin(texte_);
    std::size_t i = 0;
    for (const Etendue& reste : restes) {
        qsizetype debut = reste.debut;
        while (debut < reste.fin) {
            while (limites[i + 1] <= debut)
                ++i;
            const qsizetype fin = std::min(reste.fin, limites[i + 1]);
            const Styles styles = traits_.empty() ? Styles{-1, -1, -1} : cellule(caracteres, i);
            const bool nu = vide(styles);
            vers.ajoute(
                texte_, debut, fin, [&](FormatId format) { return nu ? format : caractere(format, styles); }, deligne);
            debut = fin;
        }
    }
    vers.fixedernierparagraphe(deligne(texte_.lignes().size()));
    if (fin_)
        vers.fixederniercaractere(finalcaractere(*fin_));
    return vers;
}

} // namespace velm::passes
