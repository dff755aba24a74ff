#pragma once
// The order of texts in lists.
#include <QString>

#include <functional>
#include <vector>

namespace velm {

/// The order that puts texts into French order (capitals do not count, accents last); texts that stand equal keep their
/// order, upwards and downwards. The result names, for each place, the row that goes there.
std::vector<int> frenchOrder(int count, const std::function<QString(int row)>& text, bool descending);

} // namespace velm
