#pragma once
// What shows a form, and would rather show all of it; where it cannot, the control that has the focus is in sight.
#include <QScrollArea>

namespace velm {

class Defilement final : public QScrollArea {
    Q_OBJECT

public:
    /// It would be as large as `utile` at least.
    Defilement(const QSize& utile, QWidget* parent);
    ~Defilement() override;

    QSize sizeHint() const override { return utile_.expandedTo(widget()->sizeHint()); }

protected:
    void resizeEvent(QResizeEvent* evenement) override;

private:
    void montrefocus();

    QSize utile_;
};

} // namespace velm
