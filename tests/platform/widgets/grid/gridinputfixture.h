#pragma once
// A grid with hands on it.
#include "gridfixture.h"

#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QHelpEvent>
#include <QMimeData>
#include <QToolTip>

namespace velm {

using namespace Qt::Literals::StringLiterals;

class FlexGridInput : public GridTest {
protected:
    FlexGridInput() {
        number(100);
        grid.setColWidth(0, 3000);
    }
    int pageRows() const { return rowsWidget()->height() / grid.view()->rowHeight(0); }
    void rightClick(int row, int col) { QTest::mouseClick(rowsWidget(), Qt::RightButton, {}, pointOf(row, col)); }
    QString tipAt(QWidget* widget, const QPoint& at) {
        QHelpEvent help(QEvent::ToolTip, at, widget->mapToGlobal(at));
        QApplication::sendEvent(widget, &help);
        return QToolTip::text();
    }
    /// A tip that stands goes after a moment.
    bool noTipAt(QWidget* widget, const QPoint& at) {
        tipAt(widget, at);
        return QTest::qWaitFor([] { return !QToolTip::isVisible(); });
    }
};

} // namespace velm
