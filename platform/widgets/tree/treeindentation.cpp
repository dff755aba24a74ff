#include "platform/widgets/tree/treeindentation.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/look/look.h"

#include <QFontMetrics>

#include <algorithm>

namespace velm {
namespace {

/// What a text deep in the tree keeps of the width, in average characters, as long as a step is no smaller than this.
constexpr int leastCharacters = 24;
constexpr int leastStep = 2 * look::grid; // the sign of an open branch is as wide

} // namespace

int treeIndentation(const QFontMetrics& metrics, int width, int deepest) {
    const int text = leastCharacters * metrics.averageCharWidth() + gridlook::rowHeight(metrics);
    const int usual = gridlook::iconEdge(metrics) + look::grid;
    const int least = std::min(leastStep, (width / 2 - 1) / (deepest + 1));
    return std::clamp((width - text) / (deepest + 1), least, usual);
}

} // namespace velm
