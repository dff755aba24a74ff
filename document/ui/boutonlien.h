#pragma once
// A link that stands by itself: a picture, words in the colour of links, underlined thinly, fully under the pointer. It
// is a button for the keyboard: Tab and the arrows reach it, the space bar and Return press it.
#include <QAbstractButton>

namespace velm {

class BoutonLien final : public QAbstractButton {
    Q_OBJECT

public:
    BoutonLien(const QIcon& image, const QString& texte, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;
};

} // namespace velm
