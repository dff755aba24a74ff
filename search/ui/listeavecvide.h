#pragma once
// A drop-down whose blank entry is shown in words. What it holds stays blank: so it is searched, and so it is stored.
#include <QComboBox>

namespace velm {

class ListeAvecVide final : public QComboBox {
    Q_OBJECT

public:
    /// `vide` stands where a blank entry would be seen.
    ListeAvecVide(const QString& vide, QWidget* parent);

    /// What is seen of an entry.
    QString vu(const QString& entree) const { return entree.trimmed().isEmpty() ? vide_ : entree; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    QString vide_;
};

} // namespace velm
