#pragma once
#include <QWidget>

class QLabel;

namespace velm {

/// The window of the start: what the program is, and the step it stands at.
class frmSplash final : public QWidget {
    Q_OBJECT

public:
    struct Textes {
        QString titre;
        QString version;
        QString marque;
    };
    explicit frmSplash(const Textes& textes);

    /// Shown at once, even while the event loop does not run.
    void changeetape(const QString& etape);

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    QLabel* etape_;
};

} // namespace velm
