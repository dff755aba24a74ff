#pragma once
// The two texts that describe the columns of a list: six digits of width for each column, and one digit that tells what
// it shows.
#include <QString>
#include <QStringView>

namespace velm {

/// Width in twips of column i (from 0); 0 where the mask has no group for it.
int largeurdumasque(QStringView largeurs, int colonne);

/// What column i shows: the value of its digit; -1 where the mask has none.
int champdumasque(QStringView ordre, int colonne);

/// Number of the text that heads a column with this digit: 300 for "0".
int titreduchamp(QChar chiffre);

} // namespace velm
