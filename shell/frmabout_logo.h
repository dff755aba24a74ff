#pragma once
// The program's own picture: an open book, whose page turns in the about box.
#include <QWidget>

namespace velm {

/// Pictures of the animation; the first is the book at rest.
inline constexpr int nombredimages = 12;

/// A picture by its number, from 0; larger numbers begin again. Null for negative ones. The side counts pixels of the
/// layout.
QPixmap imagelogo(int image, int cote, qreal densite);

/// Shows the book at the density of the screen it stands on.
class Logo final : public QWidget {
    Q_OBJECT

public:
    Logo(int cote, QWidget* parent);

    int image() const { return image_; }
    /// Shows the next picture, after the last the first.
    void suivante();

signals:
    void clique();

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void mouseReleaseEvent(QMouseEvent* evenement) override;

private:
    int image_ = 0;
};

} // namespace velm
