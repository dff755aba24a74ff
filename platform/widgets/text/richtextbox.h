#pragma once
// The document view: shows a rich text control on its sheet and lets the user select in it.
//
// The control is the truth; the view follows it and gives the user's selection back. Positions are the control's.
// A text of ordinary size is there at once, and is laid out where it is looked at. Of a longer one the view takes in
// what lies ahead between two rounds of events; what is to be shown of it shows as soon as it is there.
// Tab and Shift+Tab select the next link from the caret on, or the one before it; where there is none the focus leaves.
#include "platform/richtext/control.h"
#include "platform/widgets/text/documentfill.h"
#include "platform/widgets/text/linkranges.h"
#include "platform/widgets/text/showntext.h"
#include "platform/widgets/text/viewplace.h"

#include <QBasicTimer>
#include <QTextEdit>

#include <memory>
#include <optional>

namespace velm {

class PaperLayout;

class RichTextBox : public QTextEdit, private RichTextObserver {
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
    static constexpr int leastZoom = 25;
    static constexpr int mostZoom = 500;
    int zoom() const { return zoom_; } ///< per cent
    void setZoom(int percent);         ///< clamped; keeps the place; changes no stored format
    void zoomStep(int steps);          ///< to the next of the usual sizes, up or down

    /// Ranges that lead somewhere, in the owner's order. They hold until the next call.
    void setLinkRanges(const std::vector<LinkRange>& ranges);

    /// Nothing is left to take in and to lay out.
    bool isSettled() const;
    /// Scrolls, if need be, until the caret can be seen.
    void revealCaret();
    /// The same for any place of the text; the caret stays where it is.
    void reveal(qsizetype position);

signals:
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
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
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

    void rebuild();
    void fillSlice();
    void showWhatWaited();
    void showSelection();
    void takeUserSelection();
    void applySheet();
    QColor besideSheet() const;
    void placeLinks();
    void hover(const QPoint& point);
    void leaveHover();
    bool reachLink(bool next);
    void leaveReached();
    void showMargins();
    bool selectToEnd(const QKeyEvent& event);
    void keepWorking();
    QPointF toDocument(const QPoint& point) const;

    std::unique_ptr<RichTextControl> own_;
    RichTextControl& control_;
    ShownText shown_;
    PaperLayout* layout_ = nullptr; // the document's
    std::unique_ptr<DocumentFill> fill_;
    std::unique_ptr<ViewPlace> place_;
    std::vector<LinkRange> linkRanges_;
    QBasicTimer working_; ///< while there is something to take in or to lay out
    int zoom_ = 100;
    int wheelRest_ = 0;
    int hoveredLink_ = -1;
    int reachedLink_ = -1; ///< selected by the Tab key
    bool doubled_ = false; ///< the release to come ends a double click
    bool visible_ = true;
    bool following_ = false; ///< the control is being followed: what the document tells is no wish of the user
    /// What is to be shown as soon as it can: the window hidden, or the document not filled so far.
    qsizetype reveal_ = -1;
    std::optional<ViewPlace::Anchor> anchor_;
    bool selectionWaits_ = false;
};

} // namespace velm
