#pragma once
// The caret of a text that is read and not written: it shows once a key moves it or selects with it, or F7 asks for it,
// and while the mouse selects. As long as it does not, the keys up, down, home and end scroll, and a key that moves it
// begins at what the screen shows.
#include <functional>

class QKeyEvent;
class QTextEdit;

namespace velm {

class PaperLayout;

class ReadingCaret {
public:
    /// View and layout outlive it. `put` sets the caret to a position of the document and scrolls nowhere.
    ReadingCaret(QTextEdit& view, PaperLayout& layout, std::function<void(int position)> put);

    void hide() { show(false, false); }
    /// The mouse selects, or no longer does.
    void setSelecting(bool selecting) { show(shown_, selecting); }
    /// Before the view handles a key; true when that is done with.
    bool key(const QKeyEvent& event);

private:
    void show(bool shown, bool selecting);
    void fetch();

    QTextEdit& view_;
    PaperLayout& layout_;
    std::function<void(int)> put_;
    bool shown_ = false;
};

} // namespace velm
