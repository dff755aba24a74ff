#pragma once
// Numbers as the system's texts write and read them.
#include <QString>
#include <QStringView>

#include <optional>

namespace velm {

/// The number that a text begins with. Blanks, tabs and line feeds are passed over, also between digits ("1 2 3" is
/// 123); an exponent letter E, e, D or d counts when digits stand before it. A text that begins with no number is 0;
/// beyond the range of a double the largest one is given. Always finite.
double val(QStringView text);

/// A number as text for a key: a blank (or "-") in the sign position, then the decimal digits: 12 gives " 12".
QString numberText(qint64 number);

/// Nearest integer; an exact half goes to the even neighbour: 0.5 gives 0, 1.5 gives 2. Saturates; no number gives 0.
qint64 roundHalfEven(double value);

/// The text as a whole number when all of it is one (blanks or tabs around it and one sign allowed) and fits, else
/// nothing.
std::optional<qint64> wholeNumber(QStringView text);

} // namespace velm
