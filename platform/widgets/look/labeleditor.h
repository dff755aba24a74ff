#pragma once
// The field in which the label of an entry is edited in its place: in trees and lists alike.
#include <QLineEdit>

namespace velm {

/// Lies in the viewport of its view as long as that lives, and is seen while it edits. Return, Tab and the loss of the
/// focus keep, Escape cancels; none of these keys goes on to the window. A menu of its own takes nothing from it, and
/// a window that comes in front keeps what was written.
class LabelEditor final : public QLineEdit {
    Q_OBJECT

public:
    /// `viewport` is a child of the view that gets the focus back.
    explicit LabelEditor(QWidget* viewport);

    /// Shows the field with all of the text selected, and gives it the focus.
    void begin(int entry, const QString& text, const QRect& label);
    /// Lays it over the label again: as wide as the text needs, and no wider than the viewport has room for. The
    /// words stay where they are; centred ones are centred on the label, too.
    void lay(const QRect& label);
    /// Hides the field and tells ended(); nothing where none is edited.
    void end(bool keep);
    /// What is edited; 0 for none.
    int entry() const { return entry_; }
    /// What is edited has another number now.
    void setEntry(int entry) { entry_ = entry; }

signals:
    /// The field is hidden and entry() is 0 already.
    void ended(int entry, const QString& text, bool keep);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int inset() const;

    int entry_ = 0;
    QRect label_;
};

} // namespace velm
