#pragma once
// What an observer hears of a control: each change at once, or while redraw is off, once for all when it comes on.

namespace velm {

class RichTextObserver {
public:
    virtual ~RichTextObserver() = default;
    virtual void richTextChanged() = 0; ///< content or formats (only while redraw is on, else once when it comes on)
    virtual void richSelectionChanged() = 0;
    virtual void richPropertiesChanged() = 0; ///< background, visible
};

class RichTextNews {
public:
    void setObserver(RichTextObserver* observer) { observer_ = observer; } ///< not owned; null for none

    void textChanged();
    void selectionChanged();
    void propertiesChanged();

    bool redraw() const { return redraw_; }
    /// Turned on, it tells what changed meanwhile: properties, then text, then selection.
    void setRedraw(bool on);

private:
    RichTextObserver* observer_ = nullptr;
    bool redraw_ = true;
    bool text_ = false; ///< these changed while redraw was off
    bool selection_ = false;
    bool properties_ = false;
};

} // namespace velm
