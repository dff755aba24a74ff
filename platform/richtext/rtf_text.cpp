#include "platform/richtext/rtf_reader.h"

namespace velm {
namespace rtf {
namespace {

/// Takes the text alone.
struct TextSink {
    static constexpr bool withFormats = false;
    struct State {};
    State state;

    void restore(State) {}
    void text(qsizetype) {}
    void lineEnd(LineEnd, qsizetype) {}
    void rowEnd(const Row&, qsizetype) {}
    void dropLineEnd() {}
    void apply(const Token&) {}
    void fontsChanged(const FontTable&, int) {}
    const char* colours(const char* p, const char* end) { return passGroup(p, end); }
    const char* picture(const char* p, const char* end, qsizetype) { return passGroup(p, end); }
    const char* numbering(const char* p, const char* end) { return passGroup(p, end); }
    void numberingRead() {}
    const char* listText(const char* p, const char* end) { return passGroup(p, end); }
};

bool startsWord(QByteArrayView bytes, QByteArrayView word) {
    return bytes.startsWith(word) && (bytes.size() == word.size() || !isLetter(bytes[word.size()]));
}

} // namespace

qsizetype rtfStart(QByteArrayView bytes) {
    const char* p = bytes.begin();
    if (bytes.startsWith(QByteArrayView("\xEF\xBB\xBF")))
        p += 3;
    p = passBlanks(p, bytes.end());
    const qsizetype start = p - bytes.begin();
    if (p == bytes.end() || *p != '{')
        return -1;
    p = passBlanks(p + 1, bytes.end());
    const QByteArrayView rest = bytes.sliced(p - bytes.begin());
    // Old writers begin with a table at once.
    for (const QByteArrayView head : {QByteArrayView("\\rtf"), QByteArrayView("\\urtf"), QByteArrayView("{\\colortbl"),
                                      QByteArrayView("{\\fonttbl")}) {
        if (startsWord(rest, head))
            return start;
    }
    return -1;
}

} // namespace rtf

bool rtfToText(QByteArrayView rtf, QString& out, RtfLoad load) {
    const qsizetype start = rtf::rtfStart(rtf);
    if (start < 0) {
        out.resize(0);
        return false;
    }
    rtf::TextSink sink;
    rtf::Reader<rtf::TextSink>(rtf.sliced(start), out, sink).read(load);
    return true;
}

bool rtfToTextStart(QByteArrayView rtf, QString& out, qsizetype atLeast) {
    const qsizetype start = rtf::rtfStart(rtf);
    if (start < 0) {
        out.resize(0);
        return false;
    }
    rtf::TextSink sink;
    rtf::Reader<rtf::TextSink>(rtf.sliced(start), out, sink).readStart(atLeast);
    return true;
}

QString rtfToText(QByteArrayView rtf, RtfLoad load) {
    QString text;
    rtfToText(rtf, text, load);
    text.squeeze();
    return text;
}

int rtfDecoderVersion() {
    return 1;
}

} // namespace velm
