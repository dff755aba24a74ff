#pragma once
// The document view: shows a rich text control on its sheet and lets the user select in it.
//
// The control is the truth; the view follows it and gives the user's selection back. Positions are the control's.
// Tab and Shift+Tab select the next link from the caret on, or the one before it; where there is none the focus leaves.
#include "platform/richtext/control.h"
#include "platform/widgets/text/hitmarks.h"
#include "platform/widgets/text/linkranges.h"
#include "platform/widgets/text/readingcaret.h"
#include "platform/widgets/text/sheetview.h"

#include <memory>

namespace velm {

class RichTextBox : public SheetView, private RichTextObserver {
    Q_OBJECT

public:
    /// With a control of its own.
    explicit RichTextBox(QWidget* parent = nullptr);
    /// Shows a control that outlives the view.
    explicit RichTextBox(RichTextControl& control, QWidget* parent = nullptr);
    ~RichTextBox() override;

    RichTextControl& control() { return control_; }
    const RichTextControl& control() const { return control_; }

    // ---- the control's words
    qsizetype selStart() const { return control_.selStart(); }
    qsizetype selLength() const { return control_.selLength(); }
    void setSelStart(qsizetype position) { control_.setSelStart(position); }
    void setSelLength(qsizetype length) { control_.setSelLength(length); }
    void upTo(QStringView set, bool forward, bool negate) { control_.upTo(set, forward, negate); }
    qsizetype findText(QStringView what, qsizetype start = -1, qsizetype end = -1, FindOptions options = {}) {
        return control_.find(what, start, end, options);
    }
    void setRedraw(bool on) { control_.setRedraw(on); }

    // ---- the view's own
    /// Ranges that lead somewhere, in the owner's order. They hold until the next call.
    void setLinkRanges(const std::vector<LinkRange>& ranges);

    /// The link under the pointer, or -1.
    int hoveredLink() const { return hoveredLink_; }

    /// Shows what was found in the text, until another text comes: a ground under each, a tick beside the scroll bar
    /// that leads there, and stronger the one that is selected. Nothing is put into the text.
    void setHits(HitKind kind, std::vector<HitRange> hits);
    /// Where they stand on the screen now.
    SeenHits seenHits();

    /// Whether light paper is shown as it is, or softer.
    enum class PaperTone { AsItIs, Soft, SoftInTheDark };
    void setPaperTone(PaperTone tone);

    /// Scrolls, if need be, until the caret can be seen.
    void revealCaret();

signals:
    /// Another text is shown.
    void contentReplaced();
    /// The left button was released (a drag counts as well) or Return pressed; the selection's start. A double click
    /// is told once.
    void clicked(qsizetype position);
    /// A context menu is wanted, by mouse or key.
    void rightClicked(qsizetype position, const QPoint& globalPosition);
    /// The mouse, or the Tab key, went to another link; -1 for none.
    void linkHovered(int index);

protected:
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void contentSet(bool another) override;
    void contentGrew() override;
    void wentElsewhere() override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void prepare();
    void richTextChanged() override;
    void richSelectionChanged() override;
    void richPropertiesChanged() override;

    void showSelection();
    void takeUserSelection();
    void applySheet();
    void placeLinks();
    void hover(const QPoint& point);
    void leaveHover();
    bool reachLink(bool next);
    void leaveReached();
    bool selectToEnd(const QKeyEvent& event);
    void putCaret(int position);
    QPointF toDocument(const QPoint& point) const;

    std::unique_ptr<RichTextControl> own_;
    RichTextControl& control_;
    HitMarks* marks_ = nullptr; ///< child
    std::vector<LinkRange> linkRanges_;
    int hoveredLink_ = -1;
    int reachedLink_ = -1; ///< selected by the Tab key
    bool doubled_ = false; ///< the release to come ends a double click
    bool visible_ = true;
    std::unique_ptr<ReadingCaret> readingCaret_;
    PaperTone tone_ = PaperTone::AsItIs;
};

} // namespace velm
