#pragma once
// The program's forms by their names.
#include <QStringView>

namespace velm {

/// True for the names of list windows, as copying and printing tell them from windows with a document. Two of the names
/// belong to no form of the program, and the index list is not among them.
bool estformerecherche(QStringView nom);

} // namespace velm
