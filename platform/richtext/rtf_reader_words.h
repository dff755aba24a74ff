#pragma once
// The part of the RTF reader that knows what control words and symbols mean for the text. Included by rtf_reader.h.
#include "platform/richtext/rtf_reader.h"

namespace velm::rtf {

template <class Sink>
void Reader<Sink>::word(const Token& token) {
    if (!changesText(token.word)) {
        if constexpr (Sink::withFormats)
            sink_.apply(token);
        return;
    }
    switch (token.word) {
    case Word::par:
        paragraph(LineEnd::Paragraph);
        break;
    case Word::line:
    case Word::lbr:
        paragraph(LineEnd::Line);
        break;
    case Word::page:
    case Word::sect:
    case Word::column:
        row_.leave();
        lineEnd(LineEnd::Paragraph);
        break;
    case Word::tab:
        put(u'\t');
        break;
    case Word::pard:
        group_.inTable = false;
        sink_.apply(token);
        break;
    case Word::plain:
        group_.font = -1;
        selectPage();
        sink_.apply(token);
        break;
    case Word::f:
        group_.font = token.number;
        selectPage();
        sink_.apply(token);
        break;
    case Word::u:
        if (token.hasNumber)
            unicode(token.number);
        break;
    case Word::uc:
        group_.fallbacks = std::clamp(token.numberOr(1), 0, 0xFFFF);
        break;
    case Word::cell:
        if (row_.endCell())
            put(u'\t');
        else
            put(u' ');
        break;
    case Word::nestcell:
    case Word::nestrow:
        put(u' ');
        break;
    case Word::row:
        rowEnd();
        break;
    case Word::trowd:
        if (!group_.inNestedRow)
            row_.define();
        break;
    case Word::cellx:
        if (!group_.inNestedRow)
            row_.addEdge(token.number);
        break;
    case Word::trleft:
        if (!group_.inNestedRow)
            row_.left = token.number;
        break;
    case Word::trgaph:
        if (!group_.inNestedRow)
            row_.gap = token.number;
        break;
    case Word::intbl:
        group_.inTable = token.isOn();
        row_.enter();
        break;
    case Word::bin:
        p_ = passBytes(p_, end_, token.number);
        break;
    default:
        if (!character(token.word))
            destination(token);
        break;
    }
}

template <class Sink>
bool Reader<Sink>::character(Word word) {
    switch (word) {
    case Word::emdash:
        put(u'\u2014');
        return true;
    case Word::endash:
        put(u'\u2013');
        return true;
    case Word::bullet:
        put(u'\u2022');
        return true;
    case Word::lquote:
        put(u'\u2018');
        return true;
    case Word::rquote:
        put(u'\u2019');
        return true;
    case Word::ldblquote:
        put(u'\u201C');
        return true;
    case Word::rdblquote:
        put(u'\u201D');
        return true;
    case Word::emspace: // these three are plain blanks, as in the control
    case Word::enspace:
    case Word::qmspace:
        put(u' ');
        return true;
    case Word::ltrmark:
        put(u'\u200E');
        return true;
    case Word::rtlmark:
        put(u'\u200F');
        return true;
    case Word::zwj:
        put(u'\u200D');
        return true;
    case Word::zwnj:
        put(u'\u200C');
        return true;
    case Word::zwbo:
        put(u'\u200B');
        return true;
    case Word::zwnbo:
        put(u'\u2060');
        return true;
    default:
        return false;
    }
}

/// Document properties and groups. What is no body text is passed over.
template <class Sink>
bool Reader<Sink>::destination(const Token& token) {
    switch (token.word) {
    case Word::ansi:
    case Word::mac:
    case Word::pc:
    case Word::pca:
    case Word::ansicpg: {
        const int page = token.word == Word::ansi  ? ansiPage
                         : token.word == Word::mac ? 10000
                         : token.word == Word::pc  ? 437
                         : token.word == Word::pca ? 850
                                                   : token.number;
        document_ = &codePage(page);
        selectPage();
        break;
    }
    case Word::deff:
        defaultFont_ = token.number;
        selectPage();
        break;
    case Word::fonttbl:
        fontTable();
        break;
    case Word::colortbl:
        p_ = sink_.colours(p_, end_);
        break;
    case Word::pict:
        sink_.text(position());
        p_ = sink_.picture(p_, end_, position());
        *o_++ = u'\uFFFC';
        break;
    case Word::pn:
        p_ = sink_.numbering(p_, end_);
        if (p_ != end_) {
            close(); // it speaks of the paragraph around it
            sink_.numberingRead();
        }
        break;
    case Word::pntext:
    case Word::listtext:
        p_ = sink_.listText(p_, end_);
        break;
    case Word::upr:
        upr();
        break;
    case Word::nesttableprops:
        group_.inNestedRow = true;
        break;
    case Word::shppict: // known, so that the group is read although it may be ignored
    case Word::ud:
        break;
    default:
        p_ = passGroup(p_, end_);
        break;
    }
    return true;
}

/// The fonts become known behind the table's own group, whose end would bring the old code page back.
template <class Sink>
void Reader<Sink>::fontTable() {
    p_ = fonts_.read(p_, end_, Sink::withFormats);
    if (p_ == end_)
        return;
    close();
    selectPage();
    sink_.fontsChanged(fonts_, defaultFont_);
}

/// {\upr{text in the code page}{\*\ud{the same in Unicode}}}: only the second counts.
template <class Sink>
void Reader<Sink>::upr() {
    p_ = passBlanks(p_, end_);
    if (p_ == end_ || *p_ != '{')
        return;
    p_ = passGroup(p_ + 1, end_);
    if (p_ != end_)
        ++p_;
}

/// Behind a backslash that no letter follows.
template <class Sink>
void Reader<Sink>::symbol() {
    ++p_;
    if (p_ == end_)
        return;
    const char c = *p_++;
    switch (c) {
    case '\'':
        if (const int value = hexByte(p_, end_); value >= 0) {
            p_ += 2;
            byte(static_cast<unsigned char>(value), false);
        }
        break;
    case '\\':
    case '{':
    case '}':
        put(static_cast<char16_t>(c));
        break;
    case '~':
        put(u'\u00A0');
        break;
    case '_':
        put(u'\u2011');
        break;
    case '-':
        put(u'\u00AD');
        break;
    case '\t':
        put(u'\t');
        break;
    case '\r':
        if (p_ != end_ && *p_ == '\n')
            ++p_;
        [[fallthrough]];
    case '\n':
        paragraph(LineEnd::Paragraph);
        break;
    case '*':
        star();
        break;
    default:
        if (static_cast<unsigned char>(c) >= 0x80)
            --p_;
        break;
    }
}

/// \* before the first control word of a group: all of the group is passed over when the word is not known.
template <class Sink>
void Reader<Sink>::star() {
    if (groupStart_ != nullptr)
        groupStart_ = passBlanks(groupStart_, p_ - 2);
    const bool opensGroup = groupStart_ == p_ - 2;
    const char* q = passBlanks(p_, end_);
    if (!opensGroup || end_ - q < 2 || *q != '\\' || !isLetter(q[1]))
        return;
    Token token;
    readWord(q + 1, end_, token);
    p_ = token.word == Word::unknown ? passGroup(q, end_) : q;
}

template <class Sink>
void Reader<Sink>::unicode(int number) {
    // Most writers give a signed 16-bit number; some give the code point.
    const int point = number < 0 ? number & 0xFFFF : number;
    hasSurrogates_ = hasSurrogates_ || (point >= 0xD800 && point <= 0xDFFF);
    if (point > 0x10FFFF) {
        put(u'\uFFFD');
    } else if (point > 0xFFFF) {
        put(QChar::highSurrogate(static_cast<char32_t>(point)));
        put(QChar::lowSurrogate(static_cast<char32_t>(point)));
    } else {
        put(static_cast<char16_t>(point));
    }
    passFallbacks();
}

/// A half of a pair without the other is no character.
template <class Sink>
void Reader<Sink>::repairSurrogates() {
    for (char16_t* unit = base_; unit != o_; ++unit) {
        if (!QChar::isSurrogate(*unit))
            continue;
        if (QChar::isHighSurrogate(*unit) && unit + 1 != o_ && QChar::isLowSurrogate(unit[1]))
            ++unit;
        else
            *unit = u'\uFFFD';
    }
}

/// Over the characters that stand for a \u to readers without Unicode.
template <class Sink>
void Reader<Sink>::passFallbacks() {
    for (int left = group_.fallbacks; left > 0; --left) {
        const auto [place, any] = passFallback(p_, end_);
        p_ = place;
        if (!any)
            return;
    }
}

} // namespace velm::rtf
