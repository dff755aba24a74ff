#pragma once
// Values as a PDF writes them.
#include <QByteArray>
#include <QString>

#include <array>
#include <string>

namespace velm::pdf {

/// As short as it can be said, to a hundredth.
QByteArray number(double value);
/// "[left bottom right top]".
std::string rectangle(const std::array<double, 4>& edges);
/// A text in any script.
std::string unicode(const QString& text);
/// A string of bytes.
std::string bytes(const QByteArray& all);

} // namespace velm::pdf
