#pragma once
// The styles that a pass applies to stretches of its text, gathered and carried out at once. Private to this folder.
#include "document/appliquestyle.h"
#include "document/peinture.h"
#include "document/plat.h"

#include <QHash>

#include <array>
#include <memory>

namespace velm::passes {

struct Etendue {
    qsizetype debut;
    qsizetype fin;
    qsizetype longueur() const { return fin - debut; }
};

/// Positions and lines are those of the text that the pass reads: deleting moves none of them. A style applied later
/// covers an earlier one property by property, so that sections that overlap cost no more than others.
class MiseEnForme {
public:
    MiseEnForme(const Plat& texte, RichText& hote, const TableStyles& styles)
        : texte_(texte), hote_(hote), styles_(styles) {}

    /// A style on the characters and the lines (by rank, the last paragraph behind all of them); an unknown name
    /// applies nothing. Tab stops only with `tabulations`.
    void applique(QStringView nom, Etendue caracteres, Etendue lignes, bool tabulations);

    /// A change that reaches the text's end leaves there the format that the character now at `place` has.
    void finprend(qsizetype place) { fin_ = Fin{place, traits_.size()}; }

    /// The control's bullet distance after all that; nothing when no paragraph style was applied.
    std::optional<int> indentpuce() const { return indentpuce_; }

    /// The text of the stretches that are left, in their new formats.
    Plat rend(const std::vector<Etendue>& restes);

private:
    struct Fin {
        qsizetype place;
        std::size_t traits; ///< strokes at that time
    };
    /// Which style gives which property, -1 for none: most, the font's name, its size; most, alignment, tab stops.
    using Styles = std::array<std::int32_t, 3>;
    using Calques = std::array<std::vector<std::int32_t>, 3>;

    const ChangementStyle& changement(std::int32_t style);
    FormatId caractere(FormatId format, const Styles& styles);
    FormatId paragraphe(FormatId format, const Styles& styles);
    std::vector<qsizetype> bornes() const;
    Calques calquescaracteres(const std::vector<qsizetype>& bornes);
    Calques calqueslignes();
    FormatId finalcaractere(const Fin& fin);

    const Plat& texte_;
    RichText& hote_;
    const TableStyles& styles_;
    QHash<QString, int> indices_;
    std::array<std::unique_ptr<ChangementStyle>, TableStyles::nombre> changements_;
    std::vector<Trait> traits_; ///< on characters, by position
    std::vector<Trait> lignes_; ///< on lines; the colour is twice the style, one more with tab stops
    QHash<std::pair<FormatId, quint32>, FormatId> caracteres_;
    QHash<std::pair<FormatId, quint32>, FormatId> paragraphes_;
    std::optional<int> indentpuce_;
    std::optional<Fin> fin_;
};

} // namespace velm::passes
