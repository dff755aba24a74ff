#pragma once
#include <QWidget>

#include <functional>

class QFrame;
class QLabel;
class QProgressBar;

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

    /// The window is on the screen.
    std::function<void()> estmontree;

    /// Shown at once, even while the event loop does not run.
    void changeetape(const QString& etape);

    /// Shows the bar of a long step, from 0 to 100, at once.
    void changeprogression(double pourcentage);

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void showEvent(QShowEvent* evenement) override;

private:
    QLabel* etiquette(const char* nom, const QString& texte);
    void construit(const Textes& textes);
    void repeint();

    QFrame* cadre_;
    QLabel* etape_ = nullptr;
    QProgressBar* progression_ = nullptr;
};

} // namespace velm
