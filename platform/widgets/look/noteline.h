#pragma once
// A quiet line of words under what they are about, with a link that does more about it. It wraps where it is too
// narrow, is cut where it is too low, with the whole in its tip, and takes no room while it has nothing to say.
#include <QWidget>

class QLabel;
class QToolButton;

namespace velm {

class NoteLine final : public QWidget {
    Q_OBJECT

public:
    enum class Tone { Quiet, Warning };

    explicit NoteLine(QWidget* parent = nullptr);

    /// Says a text, of which readers of the screen hear at once, and shows a link behind it; empty for none.
    void say(const QString& text, Tone tone = Tone::Quiet, const QString& link = {});
    QString text() const { return text_; }
    QToolButton* link() const { return link_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

signals:
    void linkClicked();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Places;
    Places placesIn(int width, const QString& text) const;
    int heightOf(const QString& text, int width) const;
    QString cut(const QSize& room) const;
    void arrange();
    void colour();

    QString text_;
    QLabel* label_;
    QToolButton* link_;
    Tone tone_ = Tone::Quiet;
};

} // namespace velm
