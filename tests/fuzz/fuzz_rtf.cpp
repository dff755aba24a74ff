// Any bytes: both readers say the same text, and what is written of it reads back the same.
#include "platform/richtext/rtf.h"

#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

void check(QByteArrayView rtf, velm::RtfLoad load) {
    velm::RichText rich;
    QString plain;
    const bool isRtf = velm::readRtf(rtf, rich, load);
    require(velm::rtfToText(rtf, plain, load) == isRtf);
    require(plain == rich.text());
    QString beginning;
    require(velm::rtfToTextStart(rtf, beginning, plain.size() / 2) == isRtf);
    if (!isRtf)
        return;
    if (load == velm::RtfLoad::Whole)
        require(beginning.startsWith(QStringView(plain).left(plain.size() / 2)));
    const QByteArray written = velm::writeRtf(rich);
    velm::RichText again;
    require(velm::readRtf(written, again));
    require(sameContent(rich, again));
    require(velm::writeRtf(again) == written);
}

constexpr const char* tables = "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset2 Symbol;}"
                               "{\\f2\\fcharset128 J;}}{\\colortbl;\\red1\\green2\\blue3;}";

/// What the fuzzer need not find again and again: most inputs begin in the middle of a document, of its text or of one
/// of the groups that only one of the readers looks into.
constexpr const char* heads[] = {
    "",
    tables,
    "{\\rtf1\\ansi{\\fonttbl{\\f0 A",
    "{\\rtf1\\ansi{\\colortbl;",
    "{\\rtf1\\ansi{\\pict",
    "{\\rtf1\\ansi{\\*\\pn",
    "{\\rtf1\\ansi{\\listtext",
    "{\\rtf1\\ansi{\\upr{",
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QByteArray rtf(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (size > 0)
        rtf.prepend(heads[data[0] % std::size(heads)]);
    check(rtf, velm::RtfLoad::Whole);
    check(rtf, velm::RtfLoad::Selection);
    return 0;
}
