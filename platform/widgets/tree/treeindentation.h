#pragma once
// How far each level of a tree stands to the right of the one above.

class QFontMetrics;

namespace velm {

/// Pixels of one step in a view of that width whose deepest seen nodes stand `deepest` steps under their root: as far
/// as the picture above, or less where the deepest texts would have no room.
int treeIndentation(const QFontMetrics& metrics, int width, int deepest);

} // namespace velm
