#pragma once
// A list of plain lines. Its copy key copies the line that is chosen, whatever the menus offer for that key.
#include "platform/widgets/look/copykey.h"

#include <QListWidget>

namespace velm {

class LineList final : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    bool event(QEvent* event) override { return claimsCopyKey(*event) || QListWidget::event(event); }
};

} // namespace velm
