#pragma once
// A view that shows a rich text on its sheet, at a zoom, and keeps what is read where it is.
//
// A text of ordinary size is there at once, and is laid out where it is looked at. Of a longer one the view takes in
// what lies ahead between two rounds of events; what is to be shown of it shows as soon as it is there.
#include "platform/typeset/documentfill.h"
#include "platform/typeset/showntext.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/viewplace.h"

#include <QBasicTimer>
#include <QScopedValueRollback>
#include <QTextEdit>

#include <memory>
#include <optional>

namespace velm {

class HitStrip;
class PaperLayout;
class SheetBar;

class SheetView : public QTextEdit {
    Q_OBJECT

public:
    explicit SheetView(QWidget* parent = nullptr);
    ~SheetView() override;

    static constexpr int leastZoom = 25;
    static constexpr int mostZoom = 500;
    int zoom() const { return zoom_; } ///< per cent
    void setZoom(int percent);         ///< clamped; keeps the place; changes no stored format
    void zoomStep(int steps);          ///< to the next of the usual sizes, up or down

    /// Nothing is left to take in and to lay out.
    bool isSettled() const;
    /// Scrolls, if need be, until a place of the text can be seen with something around it; the caret stays where it
    /// is.
    void reveal(qsizetype position);

signals:
    void zoomChanged(int percent);

protected:
    /// Shows a text; what is needed of it is copied. True when it is another one than before, whatever it looks like.
    bool setContent(const RichText& rich);
    /// The same where the text has changed: if only its looks did, the place stays, else `caret` is revealed.
    void setChangedContent(const RichText& rich, qsizetype caret);
    void setSheet(const look::Sheet& sheet);

    const ShownText& shown() const { return shown_; }
    PaperLayout& sheetLayout() const { return *layout_; }
    HitStrip& hitStrip() const { return *strip_; }
    /// The document holds the whole text.
    bool isFilled() const { return fill_->isDone(); }
    /// Sets the cursor, and scrolls nowhere.
    void placeCursor(const QTextCursor& cursor);
    /// What the screen shows stays where it is: before the user does something.
    void stay();

    /// The view is being brought in line: what the document tells is no wish of the user.
    bool isFollowing() const { return following_; }
    [[nodiscard]] QScopedValueRollback<bool> following() { return QScopedValueRollback(following_, true); }

    virtual void contentSet(bool another) { Q_UNUSED(another) } ///< shown as far as it is there; with other characters
    virtual void contentGrew() {}                               ///< more of it is there
    virtual void wentElsewhere() {}                             ///< what the screen shows has moved

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void fillSlice();
    void showWhatWaited();
    void keepWorking();
    QColor besideSheet() const;
    void updateBeside();
    bool zoomKey(const QKeyEvent& event);
    void showMargins();

    ShownText shown_;
    PaperLayout* layout_ = nullptr; // the document's
    SheetBar* bar_ = nullptr;       // the area's
    HitStrip* strip_ = nullptr;     // child
    std::unique_ptr<DocumentFill> fill_;
    std::unique_ptr<ViewPlace> place_;
    QBasicTimer working_; ///< while there is something to take in or to lay out
    int zoom_ = 100;
    int wheelRest_ = 0;
    bool following_ = false;
    /// What is to be shown as soon as it can: the window hidden, or the document not filled so far.
    qsizetype reveal_ = -1;
    std::optional<ViewPlace::Anchor> anchor_;
};

} // namespace velm
