#pragma once
// A text that is read where it stands, in as many lines as it needs: it can be selected and copied, by mouse and by
// keys, and not changed.
#include <QLabel>

namespace velm {

class TexteLu final : public QLabel {
    Q_OBJECT

public:
    explicit TexteLu(QWidget* parent);

    /// Whoever listens instead hears it behind its name (accessibleName).
    void montre(const QString& texte);

protected:
    /// Reached by the Tab key it is selected whole, ready to be copied, and shows by that where the focus is.
    void focusInEvent(QFocusEvent* evenement) override;
    void focusOutEvent(QFocusEvent* evenement) override;
};

} // namespace velm
