#include "platform/paper/jobfonts.h"

#include "platform/base/twips.h"

namespace velm {

QFont jobFont(const JobStyle& style) {
    QFont font;
    font.setFamilies({style.family});
    font.setPixelSize(std::max(1, qRound(style.points * twipsPerPoint)));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strike);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

} // namespace velm
