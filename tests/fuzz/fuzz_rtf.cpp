// Any bytes: both readers say the same text, and what is written of it reads back the same.
#include "platform/richtext/rtf.h"

#include <cstdint>
#include <cstdlib>

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
    if (!isRtf)
        return;
    const QByteArray written = velm::writeRtf(rich);
    velm::RichText again;
    require(velm::readRtf(written, again));
    require(sameContent(rich, again));
    require(velm::writeRtf(again) == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Half of the inputs get a head, so that the fuzzer need not find it again and again.
    QByteArray rtf(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (size > 0 && data[0] % 2 != 0)
        rtf.prepend("{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset2 Symbol;}{\\f2\\fcharset128 J;}}"
                    "{\\colortbl;\\red1\\green2\\blue3;}");
    check(rtf, velm::RtfLoad::Whole);
    check(rtf, velm::RtfLoad::Selection);
    return 0;
}
