#pragma once
// Exact search for UTF-16 units.
#include <QStringView>

namespace velm {

/// First place at or after `from` (0 or more) where `needle` (not empty) stands, or -1. Linear in the text whatever the
/// two hold, and as fast as the search for the needle's first unit where that is rare.
qsizetype indexOfUnits(QStringView text, QStringView needle, qsizetype from);

/// The same in a text of two pieces; hits may lie across both.
qsizetype indexOfUnits(QStringView first, QStringView second, QStringView needle, qsizetype from);

} // namespace velm
