#pragma once
// A strip of bars over a chronological list: how many documents each year has. A click on a bar leads to its first
// document; the Tab key reaches the strip once, the arrow keys, Home and End walk its bars, Return and the space bar
// press one.
#include "core/texte.h"
#include "search/barresannees.h"

#include <QWidget>

namespace velm {

class BandeAnnees final : public QWidget {
    Q_OBJECT

public:
    BandeAnnees(const Libelles& texte, QWidget* parent);

    void montre(std::vector<AnneeChrono> annees);
    const std::vector<BarreAnnees>& barres() const { return barres_; }
    /// Where a bar stands, over the whole height.
    QRect place(int rang) const;
    /// The bar that the keys have walked to, or that was pressed last; -1 for none.
    int courante() const { return courante_; }
    /// What is said of a bar: its years, and how many documents they have.
    QString dit(int rang) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void voulue(int annee, int derniere);

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    void mousePressEvent(QMouseEvent* evenement) override;
    void mouseMoveEvent(QMouseEvent* evenement) override;
    void leaveEvent(QEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;
    void focusInEvent(QFocusEvent* evenement) override;
    void focusOutEvent(QFocusEvent* evenement) override;
    bool event(QEvent* evenement) override;

private:
    int sous(const QPoint& point) const;
    void choisit(int rang);
    void presse(int rang);
    void range();
    void ditcourante();

    Libelles texte_;
    std::vector<AnneeChrono> annees_;
    std::vector<BarreAnnees> barres_;
    int laplushaute_ = 0;
    int courante_ = -1;
    int survolee_ = -1;
};

} // namespace velm
