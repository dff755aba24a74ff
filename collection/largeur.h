#pragma once
// Widths of text in the sans of tables, so that tab stops can be set without a font at hand.
#include <QStringView>

namespace velm {

/// In 1000ths of the font size.
inline constexpr int largeurdublanc = 278;
int largeurdetexte(QStringView texte, bool gras);

} // namespace velm
