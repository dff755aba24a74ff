#pragma once
// The sheet that the start page lies on: it can be read over whatever ground.
#include <QWidget>

namespace velm {

class FeuilleDepart final : public QWidget {
public:
    explicit FeuilleDepart(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* evenement) override;
};

} // namespace velm
