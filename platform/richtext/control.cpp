#include "platform/richtext/control.h"

#include <algorithm>
#include <utility>

namespace velm {

RichTextControl::RichTextControl() = default;
RichTextControl::~RichTextControl() = default;

void RichTextControl::setObserver(RichTextObserver* observer) {
    observer_ = observer;
}

// ---- telling

void RichTextControl::changed() {
    pendingText_ = !redraw_;
    if (redraw_ && observer_ != nullptr)
        observer_->richTextChanged();
}

void RichTextControl::selectionChanged() {
    insertionFormat_.reset();
    pendingTabs_.reset();
    pendingSelection_ = !redraw_;
    if (redraw_ && observer_ != nullptr)
        observer_->richSelectionChanged();
}

void RichTextControl::propertiesChanged() {
    pendingProperties_ = !redraw_;
    if (redraw_ && observer_ != nullptr)
        observer_->richPropertiesChanged();
}

void RichTextControl::setRedraw(bool on) {
    if (redraw_ == on)
        return;
    redraw_ = on;
    if (!on)
        return;
    // What is heard may change things again: nothing is left pending before it is told.
    const bool text = std::exchange(pendingText_, false);
    const bool selection = std::exchange(pendingSelection_, false);
    const bool properties = std::exchange(pendingProperties_, false);
    if (observer_ != nullptr && properties)
        observer_->richPropertiesChanged();
    if (observer_ != nullptr && text)
        observer_->richTextChanged();
    if (observer_ != nullptr && selection)
        observer_->richSelectionChanged();
}

void RichTextControl::setBackColor(int colour) {
    if (std::exchange(backColor_, colour) != colour)
        propertiesChanged();
}

void RichTextControl::setVisible(bool on) {
    if (std::exchange(visible_, on) != on)
        propertiesChanged();
}

// ---- content

void RichTextControl::notifyChanged() {
    const qsizetype start = std::min(selStart_, length());
    const qsizetype count = std::min(selLength_, length() - start);
    const bool moved = std::exchange(selStart_, start) != start || selLength_ != count;
    selLength_ = count;
    insertionFormat_.reset();
    pendingTabs_.reset();
    changed();
    if (moved)
        selectionChanged();
}

void RichTextControl::caretAfterChange(qsizetype position) {
    selStart_ = position;
    selLength_ = 0;
    changed();
    selectionChanged();
}

void RichTextControl::setTextRtf(QByteArrayView rtf) {
    if (!readRtf(rtf, text_, RtfLoad::Whole))
        text_.clear();
    caretAfterChange(0);
}

QByteArray RichTextControl::textRtf() const {
    return writeRtf(text_);
}

void RichTextControl::setText(QStringView text) {
    RichText fresh;
    fresh.replace(0, 0, text);
    text_ = std::move(fresh);
    caretAfterChange(0);
}

// ---- selection

void RichTextControl::setSelStart(qsizetype position) {
    selStart_ = std::clamp<qsizetype>(position, 0, length());
    selLength_ = 0;
    selectionChanged();
}

void RichTextControl::setSelLength(qsizetype length) {
    selLength_ = std::clamp<qsizetype>(length, 0, text_.length() - selStart_);
    selectionChanged();
}

QString RichTextControl::selText() const {
    return text_.text(selStart_, selLength_);
}

void RichTextControl::setSelText(QStringView text) {
    const qsizetype start = text_.changeRange(selStart_, selLength_).first;
    if (selLength_ == 0 && text.isEmpty())
        return;
    const qsizetype added = text_.replace(selStart_, selLength_, text);
    if (insertionFormat_)
        text_.changeCharacters(start, added, {CharChange::All, *insertionFormat_});
    caretAfterChange(start + added);
}

QByteArray RichTextControl::selRtf() const {
    return writeRtf(text_, selStart_, selLength_);
}

bool RichTextControl::setSelRtf(QByteArrayView rtf) {
    RichText other;
    if (!readRtf(rtf, other, RtfLoad::Selection))
        return false;
    const qsizetype start = text_.changeRange(selStart_, selLength_).first;
    caretAfterChange(start + text_.replace(selStart_, selLength_, other));
    return true;
}

void RichTextControl::upTo(QStringView set, bool forward, bool negate) {
    const auto stops = [&](qsizetype position) { return set.contains(QChar(text_.at(position))) != negate; };
    qsizetype position = forward ? selStart_ + selLength_ : selStart_;
    if (forward) {
        while (position < length() && !stops(position))
            ++position;
    } else {
        while (position > 0 && !stops(position - 1))
            --position;
    }
    setSelStart(position);
}

qsizetype RichTextControl::find(QStringView what, qsizetype start, qsizetype end, FindOptions options) {
    const qsizetype hit = velm::find(text_, what, start < 0 ? selStart_ : start, end, options);
    if (hit >= 0) {
        selStart_ = hit;
        selLength_ = what.size();
        selectionChanged();
    }
    return hit;
}

} // namespace velm
