#pragma once
// A row of the start page: a picture, a name, and what is said quietly behind it. It is pressed as a button.
#include <QAbstractButton>
#include <QIcon>

namespace velm {

class LigneDepart final : public QAbstractButton {
    Q_OBJECT

public:
    /// `nom` is cut in the middle where there is no room for it; the whole is the tool tip then.
    LigneDepart(const QIcon& image, const QString& nom, QWidget* parent);

    /// Behind the name, and where there is no room for both, in the tool tip. A row that can be pressed wants that
    /// room.
    void changesuite(const QString& suite);
    const QString& suite() const { return suite_; }
    /// Empty where it is not seen.
    QRect placedelasuite() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    void enterEvent(QEnterEvent* evenement) override;
    void leaveEvent(QEvent* evenement) override;

private:
    int largeurdelasuite() const;
    QRect placedunom() const;
    QString nommontre() const;
    void montrebulle();

    QString suite_;
};

} // namespace velm
