#pragma once
// A label whose text is cut with an ellipsis where there is too little room; the whole is then its tool tip.
#include <QLabel>

namespace velm {

class Etiquette final : public QLabel {
    Q_OBJECT

public:
    Etiquette(const QString& texte, QWidget* parent);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;
    bool event(QEvent* evenement) override;
};

} // namespace velm
