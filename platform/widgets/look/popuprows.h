#pragma once
// What is offered beside a field shows whole rows, where the screen leaves no room for all of them.

class QAbstractItemView;
class QWidget;

namespace velm {

/// Makes a window of nothing but rows as low as the last one that is seen whole; it stays beside the field that it
/// belongs to, be it above or below.
void cutToWholeRows(QWidget& window, const QAbstractItemView& rows, const QWidget& field);

/// Has it done each time that a drop-down list opens its window.
void keepRowsWhole(QWidget& windowOfBox);

} // namespace velm
