#pragma once
// A box of the date: it is not left while what it holds cannot be.
#include <QLineEdit>

#include <functional>

namespace velm {

class ChampDate final : public QLineEdit {
    Q_OBJECT

public:
    explicit ChampDate(QWidget* parent = nullptr);

    /// Whether a text may stand when the box is left; without it any may.
    std::function<bool(QStringView texte)> valide;
    /// Whether the focus may be taken back from where the user has carried it (null for nowhere); without it, it may.
    std::function<bool(const QWidget* ou)> retient;
    /// What becomes of a text when the box is left.
    std::function<QString(const QString& texte)> complete;
    /// Whether a key may be typed.
    std::function<bool(QStringView frappe)> touche;

    /// The box is to be left: completes its text. False, and the box takes the focus, when it must stay.
    bool quitte();

signals:
    /// The user goes on to another control.
    void abandonne();

protected:
    void focusOutEvent(QFocusEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    bool acheve();
    void reprend();
};

} // namespace velm
