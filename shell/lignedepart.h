#pragma once
// A row of the start page: a picture, a name, and what is said quietly at its end. It is pressed as a button.
#include <QAbstractButton>
#include <QIcon>

namespace velm {

class LigneDepart final : public QAbstractButton {
    Q_OBJECT

public:
    /// `nom` is cut in the middle where there is no room for it; the whole is the tool tip then.
    LigneDepart(const QIcon& image, const QString& nom, QWidget* parent);

    /// At the end of the row, before whose room the name ends.
    void changesuite(const QString& suite);
    const QString& suite() const { return suite_; }
    /// The tool tip of a row whose name is not cut.
    void changebulle(const QString& bulle);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    void enterEvent(QEnterEvent* evenement) override;
    void leaveEvent(QEvent* evenement) override;

private:
    QRect placedunom() const;
    QString nommontre() const;
    void montrebulle();

    QString suite_;
    QString bulle_;
};

} // namespace velm
