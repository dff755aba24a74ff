#include "platform/widgets/look/popuprows.h"

#include <QAbstractItemView>
#include <QEvent>

#include <algorithm>

namespace velm {

namespace {

class WholeRows final : public QObject {
public:
    explicit WholeRows(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        auto* const window = qobject_cast<QWidget*>(object);
        const auto* const rows = window ? window->findChild<QAbstractItemView*>() : nullptr;
        if (rows && window->parentWidget() && event->type() == QEvent::Show)
            cutToWholeRows(*window, *rows, *window->parentWidget());
        return QObject::eventFilter(object, event);
    }
};

} // namespace

void cutToWholeRows(QWidget& window, const QAbstractItemView& rows, const QWidget& field) {
    const int row = std::max(rows.sizeHintForRow(0), 1);
    const int room = rows.viewport()->height();
    const int seen = std::clamp(room / row, 1, std::max(rows.model()->rowCount(), 1));
    const int rest = room - seen * row;
    const bool above = window.y() < field.mapToGlobal(QPoint()).y();
    window.setGeometry(window.x(), above ? window.y() + rest : window.y(), window.width(), window.height() - rest);
}

void keepRowsWhole(QWidget& windowOfBox) {
    for (const QObject* const child : windowOfBox.children()) {
        if (dynamic_cast<const WholeRows*>(child))
            return;
    }
    new WholeRows(windowOfBox);
}

} // namespace velm
