#pragma once
// What stands below the fields of the search form whatever is scrolled: the buttons of the tab that is shown, and how
// far the search is.
#include <QWidget>

class QVBoxLayout;

namespace velm {

class PiedFormulaire final : public QWidget {
    Q_OBJECT

public:
    explicit PiedFormulaire(QWidget* parent);

    /// Takes a widget over, below those it has.
    void ajoute(QWidget* celui);
    /// Whether the fields above go on below it: a line tells so.
    void separe(bool coupes);

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    QVBoxLayout* disposition_;
    bool coupes_ = false;
};

} // namespace velm
