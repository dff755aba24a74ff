#pragma once
// The RTF reader. All that decides about the text stands here, once; what wants formats as well is told by a sink.
//
// A sink has: `State state` (what a group saves and restores), `withFormats`, text(position) before characters are put
// at `position`, lineEnd and rowEnd behind the line end, apply(token) for control words of formats, and for the groups
// that it may look into (colours, numbering, list texts, pictures) a function that returns the place of their closing
// brace.
#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_fonts.h"
#include "platform/richtext/rtf_row.h"
#include "platform/richtext/rtf_scan.h"

#include <vector>

namespace velm::rtf {

enum class LineEnd { Paragraph, Line };

/// Place of the first brace of an RTF document, or -1.
qsizetype rtfStart(QByteArrayView bytes);

template <class Sink>
class Reader {
public:
    /// `rtf` begins with its first brace. `text` is the buffer that the text is put into; its old content is lost.
    Reader(QByteArrayView rtf, QString& text, Sink& sink) : p_(rtf.begin()), end_(rtf.end()), text_(text), sink_(sink) {
        text_.resize(rtf.size() + slack);
        base_ = o_ = reinterpret_cast<char16_t*>(text_.data());
        frames_.reserve(64);
        group_.page = document_;
    }

    void read(RtfLoad load) {
        open();
        p_ = passBlanks(p_, end_);
        run();
        finish(load);
    }

    /// Stops some way behind the first `atLeast` units: what may still change lies behind them.
    void readStart(qsizetype atLeast) {
        constexpr qsizetype unsettled = 4; // a line end that would be dropped, half of a pair
        stop_ = atLeast + unsettled;
        read(RtfLoad::Whole);
    }

private:
    void finish(RtfLoad load) {
        if (load == RtfLoad::Whole && lineEnd_ == position() && lineEnd_ > 0) {
            o_ -= 2;
            sink_.dropLineEnd();
        }
        if (hasSurrogates_)
            repairSurrogates();
        text_.truncate(position());
    }

    struct Group {
        const CodePage* page = nullptr;
        int font = -1;     ///< -1: the document's default
        int fallbacks = 1; ///< characters behind \u that stand for it
        bool inTable = false;
        bool inNestedRow = false; ///< its definitions are not those of the row around it
    };
    struct Frame {
        Group group;
        typename Sink::State state;
    };
    static constexpr qsizetype slack = 64;
    static constexpr std::size_t depthLimit = 4096; ///< deeper groups are only counted

    qsizetype position() const { return o_ - base_; }

    void run();
    void open();
    void close();
    void word(const Token& token);
    bool destination(const Token& token);
    bool character(Word word);
    void symbol();
    void star();
    void unicode(int number);
    void passFallbacks();
    void upr();
    void fontTable();
    void selectPage();
    void repairSurrogates();
    void byte(unsigned char value, bool raw);
    int peekByte(const char*& p, bool raw) const;
    void utf8(unsigned char first, bool raw);
    void put(char16_t unit);
    void lineEnd(LineEnd kind);
    void paragraph(LineEnd kind);
    void rowEnd();
    void ensure(qsizetype extra);

    const char* p_;
    const char* end_;
    char16_t* base_ = nullptr;
    /// Behind it there is always room for one unit per byte still to be read, and the slack.
    char16_t* o_ = nullptr;
    const char* groupStart_ = nullptr; ///< behind the last opening brace
    bool done_ = false;
    qsizetype stop_ = std::numeric_limits<qsizetype>::max();
    bool hasSurrogates_ = false;
    QString& text_;
    Sink& sink_;
    Group group_;
    std::vector<Frame> frames_;
    std::size_t deeper_ = 0; ///< open groups beyond the limit
    FontTable fonts_;
    const CodePage* document_ = &codePage(ansiPage);
    int defaultFont_ = 0;
    Row row_;
    qsizetype lineEnd_ = -1; ///< position behind the last line end
};

template <class Sink>
void Reader<Sink>::run() {
    const char* p = p_;
    char16_t* o = o_;
    const char16_t* units = group_.page->units.data();
    const auto slowly = [&](auto&& action) {
        p_ = p;
        o_ = o;
        action();
        p = p_;
        o = o_;
        units = group_.page->units.data();
    };
    const auto copy = [&](char16_t unit) {
        if constexpr (Sink::withFormats)
            sink_.text(o - base_);
        *o++ = unit;
    };
    while (!done_) {
        if constexpr (Sink::withFormats) {
            const char16_t* const from = o;
            p = copyPlain(p, end_, o);
            if (o != from)
                sink_.text(from - base_);
        } else {
            p = copyPlain(p, end_, o);
        }
        if (p == end_ || o - base_ >= stop_)
            break;
        switch (sortAt(p)) {
        case Sort::Backslash:
            if (end_ - p >= 2 && isLetter(p[1])) {
                Token token;
                p = readWord(p + 1, end_, token);
                if (token.word != Word::unknown && (Sink::withFormats || changesText(token.word)))
                    slowly([&] { word(token); });
            } else if (const int value = end_ - p >= 4 && p[1] == '\'' ? hexByte(p + 2, end_) : -1;
                       value >= 0 && units[value] != 0) {
                copy(units[value]);
                p += 4;
            } else {
                slowly([this] { symbol(); });
            }
            break;
        case Sort::Open:
            slowly([this] { open(); });
            break;
        case Sort::Close:
            slowly([this] { close(); });
            break;
        case Sort::LineEnd:
            ++p;
            break;
        case Sort::Plain:
        case Sort::Nul:
        case Sort::High:
            if (const char16_t unit = units[byteAt(p)]) {
                copy(unit);
                ++p;
            } else {
                slowly([this] {
                    const unsigned char value = byteAt(p_++);
                    byte(value, true);
                });
            }
            break;
        }
    }
    p_ = p;
    o_ = o;
}

template <class Sink>
void Reader<Sink>::open() {
    groupStart_ = ++p_;
    if (frames_.size() < depthLimit)
        frames_.push_back({group_, sink_.state});
    else
        ++deeper_;
}

template <class Sink>
void Reader<Sink>::close() {
    ++p_;
    if (frames_.empty()) {
        done_ = true;
        return;
    }
    group_ = frames_.back().group;
    sink_.restore(frames_.back().state);
    if (deeper_ > 0) {
        --deeper_;
        return;
    }
    frames_.pop_back();
    done_ = frames_.empty();
}

template <class Sink>
void Reader<Sink>::put(char16_t unit) {
    if (unit == u'\r' || unit == u'\n') {
        paragraph(LineEnd::Paragraph);
        return;
    }
    sink_.text(position());
    *o_++ = unit != 0 ? unit : u' ';
}

template <class Sink>
void Reader<Sink>::lineEnd(LineEnd kind) {
    sink_.text(position());
    *o_++ = u'\r';
    *o_++ = u'\n';
    lineEnd_ = position();
    sink_.lineEnd(kind, lineEnd_);
}

/// A paragraph end inside a row is a blank.
template <class Sink>
void Reader<Sink>::paragraph(LineEnd kind) {
    if (group_.inTable && row_.holdsText()) {
        put(u' ');
        return;
    }
    if (!group_.inTable)
        row_.leave();
    lineEnd(kind);
}

template <class Sink>
void Reader<Sink>::rowEnd() {
    const int missing = row_.end();
    ensure(missing);
    for (int i = 0; i < missing; ++i)
        put(u'\t');
    sink_.text(position());
    *o_++ = u'\r';
    *o_++ = u'\n';
    lineEnd_ = position();
    sink_.rowEnd(row_, lineEnd_);
}

template <class Sink>
void Reader<Sink>::ensure(qsizetype extra) {
    const qsizetype need = position() + (end_ - p_) + slack + extra;
    if (need <= text_.size())
        return;
    const qsizetype at = position();
    text_.resize(std::max(need, text_.size() + text_.size() / 2));
    base_ = reinterpret_cast<char16_t*>(text_.data());
    o_ = base_ + at;
}

template <class Sink>
void Reader<Sink>::selectPage() {
    const CodePage* page = fonts_.page(group_.font < 0 ? defaultFont_ : group_.font);
    group_.page = page != nullptr ? page : document_;
}

template <class Sink>
int Reader<Sink>::peekByte(const char*& p, bool raw) const {
    const char* q = p;
    while (q != end_ && (*q == '\r' || *q == '\n'))
        ++q;
    if (q == end_)
        return -1;
    if (*q == '\\' && end_ - q >= 4 && q[1] == '\'') {
        const int value = hexByte(q + 2, end_);
        p = q + 4;
        return value;
    }
    // Behind a raw lead byte even a raw backslash or brace belongs to the pair.
    if (!raw && (*q == '\\' || *q == '{' || *q == '}'))
        return -1;
    p = q + 1;
    return byteAt(q);
}

template <class Sink>
void Reader<Sink>::byte(unsigned char value, bool raw) {
    const CodePage& page = *group_.page;
    if (page.units[value] != 0) {
        put(page.units[value]);
    } else if (page.isLead(value)) {
        const char* behind = p_;
        const int trail = peekByte(behind, raw);
        const char16_t unit = trail >= 0 ? page.pair(value, static_cast<unsigned char>(trail)) : u'\0';
        if (unit != 0)
            p_ = behind;
        put(unit != 0 ? unit : u'\uFFFD');
    } else if (value >= 0x80) {
        utf8(value, raw);
    } else {
        paragraph(LineEnd::Paragraph);
    }
}

template <class Sink>
void Reader<Sink>::utf8(unsigned char first, bool raw) {
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    char32_t point = first & (0x3FU >> more);
    const char* behind = p_;
    bool good = more > 0 && first < 0xF5;
    for (int i = 0; i < more && good; ++i) {
        const int next = peekByte(behind, raw);
        good = next >= 0x80 && next < 0xC0;
        point = point << 6 | (static_cast<char32_t>(next) & 0x3F);
    }
    constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    if (!good || point < least[more] || point > 0x10FFFF || QChar::isSurrogate(point)) {
        put(codePage(ansiPage).units[first]);
        return;
    }
    p_ = behind;
    if (QChar::requiresSurrogates(point)) {
        put(QChar::highSurrogate(point));
        put(QChar::lowSurrogate(point));
    } else {
        put(static_cast<char16_t>(point));
    }
}

} // namespace velm::rtf

#include "platform/richtext/rtf_reader_words.h"
