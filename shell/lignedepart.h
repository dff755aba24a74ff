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

    /// What stands quietly behind the name, or in the tool tip where there is no room for both. A row that can be
    /// pressed asks for that room, a disabled one does without.
    void changesuite(const QString& suite);
    const QString& suite() const { return suite_; }
    /// Where that is painted; empty where there is no room for it.
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
