#include "platform/richtext/rtf_picture.h"

#include "platform/base/twips.h"
#include "platform/richtext/rtf_scan.h"

#include <QtEndian>

#include <algorithm>
#include <string_view>

namespace velm::rtf {
namespace {

constexpr std::int32_t longestSide = 100'000; ///< twips

std::int32_t side(std::int64_t twips) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(twips, 0, longestSide));
}
std::int32_t fromPixels(std::int64_t pixels) {
    return side(std::min<std::int64_t>(pixels, longestSide) * twipsPerPixel);
}
std::int32_t fromHimetric(std::int64_t length) {
    return side(length * twipsPerInch / himetricPerInch);
}

struct Words {
    RichObject::Kind kind = RichObject::Kind::Unknown;
    int width = 0;
    int height = 0;
    int goalWidth = 0;
    int goalHeight = 0;
    int scaleX = 100;
    int scaleY = 100;
};

void apply(Words& words, std::string_view name, const Token& token) {
    using Kind = RichObject::Kind;
    if (name == "pngblip")
        words.kind = Kind::Png;
    else if (name == "jpegblip")
        words.kind = Kind::Jpeg;
    else if (name == "dibitmap")
        words.kind = Kind::Dib;
    else if (name == "wmetafile")
        words.kind = Kind::Wmf;
    else if (name == "emfblip")
        words.kind = Kind::Emf;
    else if (name == "picw")
        words.width = token.number;
    else if (name == "pich")
        words.height = token.number;
    else if (name == "picwgoal")
        words.goalWidth = token.number;
    else if (name == "pichgoal")
        words.goalHeight = token.number;
    else if (name == "picscalex")
        words.scaleX = token.number;
    else if (name == "picscaley")
        words.scaleY = token.number;
}

std::int32_t shownSide(const Words& words, int goal, int length, std::int32_t natural, int scale) {
    const bool isMetafile = words.kind == RichObject::Kind::Wmf || words.kind == RichObject::Kind::Emf;
    std::int64_t twips = goal;
    if (twips <= 0)
        twips = isMetafile ? fromHimetric(length) : fromPixels(length);
    if (twips <= 0)
        twips = natural;
    return side(std::min<std::int64_t>(twips, longestSide) * (scale > 0 ? scale : 100) / 100);
}

PictureSize pngSize(QByteArrayView data) {
    if (data.size() < 24)
        return {};
    return {fromPixels(qFromBigEndian<quint32>(data.data() + 16)),
            fromPixels(qFromBigEndian<quint32>(data.data() + 20))};
}

/// The first frame header among the segments.
PictureSize jpegSize(QByteArrayView data) {
    for (qsizetype at = 2; data.size() - at >= 9;) {
        const auto* p = reinterpret_cast<const uchar*>(data.data()) + at;
        if (p[0] != 0xFF)
            return {};
        const bool isFrame = p[1] >= 0xC0 && p[1] <= 0xCF && p[1] != 0xC4 && p[1] != 0xC8 && p[1] != 0xCC;
        if (isFrame)
            return {fromPixels(qFromBigEndian<quint16>(p + 7)), fromPixels(qFromBigEndian<quint16>(p + 5))};
        at += 2 + std::max<qsizetype>(qFromBigEndian<quint16>(p + 2), 2);
    }
    return {};
}

PictureSize dibSize(QByteArrayView data) {
    if (data.size() < 12)
        return {};
    const auto width = qFromLittleEndian<qint32>(data.data() + 4);
    const std::int64_t height = qFromLittleEndian<qint32>(data.data() + 8);
    return {fromPixels(width), fromPixels(height < 0 ? -height : height)};
}

/// The frame of an enhanced metafile, in hundredths of a millimetre.
PictureSize emfSize(QByteArrayView data) {
    if (data.size() < 40)
        return {};
    const auto at = [data](qsizetype offset) -> std::int64_t {
        return qFromLittleEndian<qint32>(data.data() + offset);
    };
    return {fromHimetric(at(32) - at(24)), fromHimetric(at(36) - at(28))};
}

/// Appends the bytes of hexadecimal digits from `p` on; stops at what is neither digit nor blank.
const char* readHex(const char* p, const char* end, QByteArray& data, int& half) {
    for (; p != end; ++p) {
        const std::uint8_t digit = charTables.hex[byteAt(p)];
        if (digit != CharTables::noDigit) {
            if (half < 0) {
                half = digit;
                continue;
            }
            data.append(static_cast<char>(half * 16 + digit));
            half = -1;
        } else if (*p == '\\' || *p == '{' || *p == '}') {
            break;
        }
    }
    return p;
}

} // namespace

PictureSize naturalSize(RichObject::Kind kind, QByteArrayView data) {
    switch (kind) {
    case RichObject::Kind::Png:
        return pngSize(data);
    case RichObject::Kind::Jpeg:
        return jpegSize(data);
    case RichObject::Kind::Dib:
        return dibSize(data);
    case RichObject::Kind::Emf:
        return emfSize(data);
    case RichObject::Kind::Wmf:
    case RichObject::Kind::Unknown:
        break;
    }
    return {};
}

const char* readPicture(const char* p, const char* end, RichObject& object) {
    Words words;
    int half = -1;
    const char* const close = passGroup(p, end);
    object.data.reserve((close - p) / 2); // an upper bound for digits; \bin data may ask for more
    while (p != close) {
        p = readHex(p, close, object.data, half);
        if (p == close)
            break;
        if (*p == '{') { // properties, identifiers
            p = passGroup(p + 1, close);
            p += p != close ? 1 : 0;
            continue;
        }
        ++p;
        if (p == close || !isLetter(*p))
            continue;
        std::string_view word;
        Token token;
        p = readWord(p, close, word, token);
        if (word == "bin") {
            const char* const behind = passBytes(p, close, token.number);
            object.data.append(p, behind - p);
            p = behind;
        } else {
            apply(words, word, token);
        }
    }
    object.data.squeeze();
    object.kind = words.kind;
    const PictureSize natural = naturalSize(words.kind, object.data);
    object.width = shownSide(words, words.goalWidth, words.width, natural.width, words.scaleX);
    object.height = shownSide(words, words.goalHeight, words.height, natural.height, words.scaleY);
    return close;
}

} // namespace velm::rtf
