#pragma once
// What shows the fields of a form, as high as they are; where there is less room, the one that has the focus is in
// sight.
#include <QScrollArea>

namespace velm {

class Defilement final : public QScrollArea {
    Q_OBJECT

public:
    explicit Defilement(QWidget* parent);
    ~Defilement() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The part of its width that the scroll bar takes, whenever it may be another one; 0 while all is seen.
    void barrechangee(int largeur);

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    int hauteurvoulue() const;
    void ajustebarre();
    void montrefocus();
};

} // namespace velm
