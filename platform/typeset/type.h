#pragma once
// The type that documents are set in, on the screen and on paper.
#include <QFont>
#include <QStringList>

namespace velm::type {

/// Families of documents without a font of their own, in order of preference.
QStringList serifFamilies();
QStringList sansFamilies();
QStringList fixedFamilies();
QFont documentFont();
inline constexpr double documentPoints = 11.5;

/// The longest line of running text, in characters of average width.
inline constexpr int measureCharacters = 90;
/// The sheet's inner margin, in ems of its type.
inline constexpr double sheetMargin = 2.25;
/// Height of a single-spaced line, in heights of its type (ascent and descent).
inline constexpr double singleLine = 1.2;

} // namespace velm::type
