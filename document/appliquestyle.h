#pragma once
// Applying a style of the table to rich text.
#include "document/styles.h"
#include "platform/richtext/control.h"
#include "platform/system/sablier.h"

#include <optional>

namespace velm {

/// Applies a style to the control's selection, property by property in the order that the control is used to; a name
/// that is not in the table applies nothing. With `marquer` the selection is then put between the tokens of the style,
/// which take the style `stylemarque`, and is selected again.
void appliquestyle(RichTextControl& controle, const QString& nom, bool marquer, const TableStyles& styles,
                   Sablier& sablier);

/// What appliquestyle() does to a range, as one change of its characters and one of its paragraphs.
struct ChangementStyle {
    CharChange caracteres;
    ParaChange paragraphes;                           ///< nothing for a character style; without the tab stops
    std::optional<std::vector<std::int32_t>> taquets; ///< set only in a text that holds a tab
    std::optional<int> indentpuce;                    ///< the control's bullet distance afterwards
};
ChangementStyle changementdestyle(const Style& style);

/// The stops that a run of five-character fields stands for; what is left over at the end is no field. A control
/// takes 32 stops at most.
std::vector<std::int32_t> taquets(QStringView tabulations);

} // namespace velm
