#pragma once
// A text box with a drop-down of the last texts. The box inside bears the name; keys and the wheel never change its
// text by themselves.
#include <QComboBox>
#include <QLineEdit>

namespace velm {

class BoiteDerniers final : public QComboBox {
    Q_OBJECT

public:
    /// The text box takes the name. `derniers` names the drop-down to who cannot see it.
    BoiteDerniers(const QString& nom, const QString& derniers, QWidget* parent);

    void offre(const QStringList& textes);
    QString texte() const { return lineEdit()->text(); }
    void metstexte(const QString& texte);

    void showPopup() override;

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;
    void wheelEvent(QWheelEvent* evenement) override;
};

} // namespace velm
