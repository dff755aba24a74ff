#pragma once
// The user's printer.
#include "platform/system/outside.h"

class QPrinter;

namespace velm {

class QtImprimante final : public Imprimante {
public:
    bool imprime(const TableauImprime& tableau) override;
};

/// Row under row, each as high as its longest cell needs, the headers at the top of each page and its number at the
/// bottom. False when the printer fails.
bool imprimetableau(QPrinter& imprimante, const TableauImprime& tableau);

} // namespace velm
