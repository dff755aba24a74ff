#pragma once
// Tabs that are as high as the one that is shown needs, and not as the highest of them.
#include <QTabWidget>

namespace velm {

class OngletsAjustes final : public QTabWidget {
    Q_OBJECT

public:
    explicit OngletsAjustes(QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int largeur) const override;
};

} // namespace velm
