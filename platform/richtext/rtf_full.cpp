#include "platform/richtext/rtf_look.h"
#include "platform/richtext/rtf_picture.h"
#include "platform/richtext/rtf_reader.h"

#include <string_view>

namespace velm {
namespace rtf {
namespace {

/// What a list text or a numbering group tells.
struct Numbering {
    bool bullet = false;
    int indent = 0;
};

/// Takes text, formats and pictures: runs and paragraphs are noted while the text is read and put together at the end.
class FullSink {
public:
    static constexpr bool withFormats = true;
    using State = Look;
    State state;

    explicit FullSink(RichText& out) : out_(out), formats_(out) {}

    void restore(const State& saved) {
        state = saved;
        changed_ = true;
    }
    void text(qsizetype position) {
        if (changed_)
            startRun(position, formats_.id(state.character));
        changed_ = false;
    }
    void lineEnd(LineEnd kind, qsizetype position) {
        ParaLook look = state.paragraph;
        look.continues = continues_;
        look.bullet = look.bullet || listBullet_;
        continues_ = kind == LineEnd::Line;
        if (continues_)
            look.after = 0;
        else
            listBullet_ = false;
        paragraphs_.push_back({position, formats_.id(look)});
    }
    void rowEnd(const Row& row, qsizetype position) {
        paragraphs_.push_back({position, formats_.id(state.paragraph, row)});
        continues_ = listBullet_ = false;
    }
    void dropLineEnd() {
        lastParagraph_ = paragraphs_.back().id;
        paragraphs_.pop_back();
    }
    void apply(const Token& token) {
        applyWord(state, token, colours_, formats_.tabs);
        changed_ = true;
    }
    void fontsChanged(const FontTable& fonts, int defaultFont) { formats_.setFonts(fonts, defaultFont); }
    const char* colours(const char* p, const char* end);
    const char* picture(const char* p, const char* end, qsizetype position);
    const char* numbering(const char* p, const char* end);
    void numberingRead() {
        state.paragraph.bullet = numbering_.bullet;
        state.paragraph.bulletIndent = numbering_.indent;
    }
    const char* listText(const char* p, const char* end);

    void finish(const QString& text);

private:
    struct Mark {
        qsizetype position; ///< start of a run, end of a paragraph
        FormatId id;
    };
    void startRun(qsizetype position, FormatId id) {
        if (!runs_.empty() && runs_.back().position == position)
            runs_.back().id = id;
        else if (runs_.empty() || runs_.back().id != id)
            runs_.push_back({position, id});
    }

    RichText& out_;
    LookFormats formats_;
    std::vector<std::int32_t> colours_;
    std::vector<Mark> runs_;
    std::vector<Mark> paragraphs_;
    FormatId lastParagraph_ = 0; ///< of the paragraph without an end; one that never had any keeps the default
    Numbering numbering_;
    bool changed_ = true;
    bool continues_ = false;
    bool listBullet_ = false; ///< the list text of this paragraph is a bullet
};

const char* FullSink::colours(const char* p, const char* end) {
    constexpr std::size_t mostColours = 0x10000;
    const char* const close = passGroup(p, end);
    std::int32_t colour = autoColour;
    colours_.clear();
    while (p != close) {
        const char c = *p++;
        if (c == ';') {
            if (colours_.size() < mostColours)
                colours_.push_back(colour);
            colour = autoColour;
        } else if (c == '\\' && p != close && isLetter(*p)) {
            std::string_view word;
            Token token;
            p = readWord(p, close, word, token);
            const int shift = word == "red" ? 0 : word == "green" ? 8 : word == "blue" ? 16 : -1;
            if (shift >= 0)
                colour = (std::max(colour, 0) & ~(0xFF << shift)) | std::clamp(token.number, 0, 255) << shift;
        }
    }
    return close;
}

const char* FullSink::picture(const char* p, const char* end, qsizetype position) {
    RichObject object;
    p = readPicture(p, end, object);
    CharFormat format = formats_.charFormat(state.character);
    format.object = out_.addObject(std::move(object));
    startRun(position, out_.intern(format));
    changed_ = true;
    return p;
}

const char* FullSink::numbering(const char* p, const char* end) {
    const char* const close = passGroup(p, end);
    numbering_ = {};
    while (p != close) {
        if (*p++ != '\\' || p == close || !isLetter(*p))
            continue;
        std::string_view word;
        Token token;
        p = readWord(p, close, word, token);
        if (word == "pnlvlblt")
            numbering_.bullet = true;
        else if (word == "pnindent")
            numbering_.indent = std::clamp(token.number, 0, 20'000);
    }
    return close;
}

/// A list text is a bullet when it is one character that is no digit, before a tab or alone.
const char* FullSink::listText(const char* p, const char* end) {
    const char* const close = passGroup(p, end);
    int characters = 0;
    bool isDigit = false;
    while (p != close && characters < 3) {
        const char c = *p++;
        if (c == '\\' && p != close && isLetter(*p)) {
            Token token;
            p = readWord(p, close, token);
            if (token.word == Word::tab)
                break;
            if (token.word == Word::u || token.word == Word::bullet || token.word == Word::endash)
                ++characters;
            if (token.word == Word::u && p != close && *p != '\\' && *p != '}')
                ++p;
            else if (token.word == Word::u && close - p >= 4 && p[1] == '\'')
                p += 4;
        } else if (c == '\\' && close - p >= 3 && *p == '\'') {
            p += 3;
            ++characters;
        } else if (static_cast<unsigned char>(c) > ' ' && c != '{' && c != '}') {
            isDigit = rtf::isDigit(c);
            ++characters;
        }
    }
    listBullet_ = characters == 1 && !isDigit;
    return close;
}

void FullSink::finish(const QString& text) {
    qsizetype at = 0;
    std::size_t run = 0;
    const auto append = [&](qsizetype end, FormatId paragraph) {
        while (at < end) {
            while (run + 1 < runs_.size() && runs_[run + 1].position <= at)
                ++run;
            const qsizetype stop = run + 1 < runs_.size() ? std::min(end, runs_[run + 1].position) : end;
            out_.append(QStringView(text).sliced(at, stop - at), runs_[run].id, paragraph);
            at = stop;
        }
    };
    for (const Mark& paragraph : paragraphs_)
        append(paragraph.position, paragraph.id);
    append(text.size(), lastParagraph_);
    out_.setTail(runs_.empty() ? formats_.id(state.character) : runs_.back().id, lastParagraph_);
}

} // namespace
} // namespace rtf

bool readRtf(QByteArrayView rtf, RichText& out, RtfLoad load) {
    out.clear();
    const qsizetype start = rtf::rtfStart(rtf);
    if (start < 0)
        return false;
    QString text;
    rtf::FullSink sink(out);
    rtf::Reader<rtf::FullSink> reader(rtf.sliced(start), text, sink); // owns the fonts, which the sink still asks for
    reader.read(load);
    sink.finish(text);
    return true;
}

} // namespace velm
