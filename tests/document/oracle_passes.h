#pragma once
// The four passes in their literal wording: through the control's selection, its whole text read and searched again
// after every change. Slow, and right by inspection.
#include "document/balises.h"

namespace velm::test {

void oraclechargecontenu(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte);

} // namespace velm::test
