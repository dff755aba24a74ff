#include "platform/richtext/news.h"

#include <utility>

namespace velm {

void RichTextNews::textChanged() {
    text_ = !redraw_;
    if (redraw_ && observer_ != nullptr)
        observer_->richTextChanged();
}

void RichTextNews::selectionChanged() {
    selection_ = !redraw_;
    if (redraw_ && observer_ != nullptr)
        observer_->richSelectionChanged();
}

void RichTextNews::propertiesChanged() {
    properties_ = !redraw_;
    if (redraw_ && observer_ != nullptr)
        observer_->richPropertiesChanged();
}

void RichTextNews::setRedraw(bool on) {
    if (redraw_ == on)
        return;
    redraw_ = on;
    if (!on)
        return;
    // What is heard may change things again: nothing is left pending before it is told.
    const bool text = std::exchange(text_, false);
    const bool selection = std::exchange(selection_, false);
    const bool properties = std::exchange(properties_, false);
    if (observer_ != nullptr && properties)
        observer_->richPropertiesChanged();
    if (observer_ != nullptr && text)
        observer_->richTextChanged();
    if (observer_ != nullptr && selection)
        observer_->richSelectionChanged();
}

} // namespace velm
