#pragma once
// The rich text control without a window: a text, a selection, and properties that act on the selection. Logic drives
// this; a view (RichTextBox) shows it and follows it through RichTextObserver.
#include "platform/richtext/find.h"
#include "platform/richtext/news.h"
#include "platform/richtext/richtext.h"
#include "platform/richtext/rtf.h"

#include <optional>

namespace velm {

class RichTextControl {
public:
    RichTextControl();
    ~RichTextControl();
    RichTextControl(const RichTextControl&) = delete;
    RichTextControl& operator=(const RichTextControl&) = delete;

    void setObserver(RichTextObserver* observer) { news_.setObserver(observer); } ///< not owned; null for none

    // ---- content
    QString text() const { return text_.text(); }
    qsizetype length() const { return text_.length(); }
    const RichText& richText() const { return text_; }
    /// Direct access for fast passes; the caller ends with notifyChanged(). The selection is clamped then.
    RichText& richTextForEdit() { return text_; }
    void notifyChanged();

    /// Replaces all by RTF (the last paragraph end dropped); what is no RTF shows as an empty text. Caret to 0.
    void setTextRtf(QByteArrayView rtf);
    QByteArray textRtf() const;
    void setText(QStringView text);

    // ---- selection, positions of the model; clamped to the text. Setting it always tells the observer, even when it
    // stays the same: the caret is to be brought into view.
    qsizetype selStart() const { return selStart_; }
    qsizetype selLength() const { return selLength_; }
    void setSelStart(qsizetype position); ///< sets the caret: the selection becomes empty
    void setSelLength(qsizetype length);
    QString selText() const;
    /// Replaces the selection; the caret stands behind the new text, nothing selected.
    void setSelText(QStringView text);
    QByteArray selRtf() const;
    /// Replaces the selection by RTF with its last paragraph end kept. What is no RTF changes nothing and returns
    /// false.
    bool setSelRtf(QByteArrayView rtf);

    /// Moves the caret to the first (forward) or last (backward) place where a character of `set` stands (`negate`: one
    /// that is not in it): forward onto that character, backward right behind it; to the text's end or start if none.
    void upTo(QStringView set, bool forward, bool negate);

    /// Finds from `start` (-1: from the selection's start) to `end` (-1: the text's end); selects the hit and returns
    /// its position, or -1 and leaves the selection.
    /// An empty `what` is never found.
    qsizetype find(QStringView what, qsizetype start = -1, qsizetype end = -1, FindOptions options = {});

    // ---- properties of the selection (with an empty selection: of the insertion point; readers give nothing when
    // mixed)
    std::optional<QString> selFontName() const;
    std::optional<double> selFontSize() const; ///< points
    std::optional<bool> selBold() const;
    std::optional<bool> selItalic() const;
    std::optional<bool> selUnderline() const;
    std::optional<bool> selStrikeThru() const;
    std::optional<int> selCharOffset() const; ///< twips
    std::optional<int> selColor() const;      ///< autoColour: the automatic one
    std::optional<bool> selBullet() const;
    std::optional<int> selIndent() const; ///< left edge of first lines, twips
    std::optional<int> selRightIndent() const;
    std::optional<int> selHangingIndent() const; ///< further lines relative to the first
    std::optional<Alignment> selAlignment() const;
    std::optional<std::vector<int>> selTabs() const;

    void setSelFontName(const QString& family);
    void setSelFontSize(double points); ///< to the half point; ignored outside 0.5 to 2160
    void setSelBold(bool on);
    void setSelItalic(bool on);
    void setSelUnderline(bool on);
    void setSelStrikeThru(bool on);
    void setSelCharOffset(int twips);
    void setSelColor(int colour);
    /// On: further lines are set in by bulletIndent(); off: by nothing.
    void setSelBullet(bool on);
    void setSelIndent(int twips);
    void setSelRightIndent(int twips);
    void setSelHangingIndent(int twips);
    void setSelAlignment(Alignment alignment);
    /// The count first, then the stops one by one: those that the paragraph had stay until they are set, new ones
    /// stand once they are set (to more than 0). 32 at most.
    void setSelTabCount(int count);
    void setSelTab(int index, int twips); ///< index from 0; beyond the count: ignored

    /// The distance from bullet to text that the next setSelBullet(true) gives.
    int bulletIndent() const { return bulletIndent_; }
    void setBulletIndent(int twips) { bulletIndent_ = twips; }

    // ---- the control itself
    int backColor() const { return backColor_; }
    void setBackColor(int colour);
    bool visible() const { return visible_; }
    void setVisible(bool on);
    bool redraw() const { return news_.redraw(); }
    /// While off the observer hears nothing; turning it on tells it once what changed meanwhile.
    void setRedraw(bool on) { news_.setRedraw(on); }

private:
    void selectionChanged();
    /// Puts the caret where it is after a change of the text, and tells of both.
    void caretAfterChange(qsizetype position);
    template <typename T, typename Get>
    std::optional<T> ofCharacters(Get get) const;
    template <typename T, typename Get>
    std::optional<T> ofParagraphs(Get get) const;
    template <typename T>
    void setCharacters(CharChange::Flag flag, T CharFormat::*member, const T& value);
    template <typename T>
    void setParagraphs(ParaChange::Flag flag, T ParaFormat::*member, const T& value);
    CharFormat caretFormat() const;
    std::vector<int> firstTabs() const;

    RichText text_;
    qsizetype selStart_ = 0;
    qsizetype selLength_ = 0;
    int bulletIndent_ = 0;
    int backColor_ = 0xFFFFFF;
    bool visible_ = true;
    /// Set by character properties on an empty selection, until the caret moves.
    std::optional<CharFormat> insertionFormat_;
    /// The stops as they were set one by one, until the caret moves: the text holds them in order.
    std::optional<std::vector<int>> pendingTabs_;
    RichTextNews news_;
};

} // namespace velm
