#include "platform/typeset/metafile.h"

#include "platform/typeset/littleendian.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velm {

namespace {

constexpr std::uint32_t placeableSign = 0x9AC6CDD7;
constexpr qsizetype placeableHeader = 22;
constexpr qsizetype wmfHeader = 18;
constexpr qsizetype leastBitmap = 12; // a bitmap's shortest header

/// A record that draws a bitmap, and where in it the bitmap (or the way to it) stands.
struct BitmapRecord {
    std::uint32_t type;
    qsizetype place;
};

template <std::size_t n>
qsizetype placeIn(const std::array<BitmapRecord, n>& records, std::uint32_t type) {
    const auto found =
        std::find_if(records.begin(), records.end(), [type](const BitmapRecord& r) { return r.type == type; });
    return found == records.end() ? -1 : found->place;
}

/// One bitmap among many lines would stand for a drawing that it is not.
QByteArray ifMostOf(const QByteArray& metafile, const QByteArray& bitmap) {
    return bitmap.size() * 2 > metafile.size() ? bitmap : QByteArray();
}

} // namespace

QByteArray bitmapInWmf(const QByteArray& metafile) {
    static constexpr std::array<BitmapRecord, 4> records{{{0x0F43, 28}, {0x0B41, 26}, {0x0940, 22}, {0x0D33, 24}}};
    QByteArray largest;
    qsizetype at = (number32(metafile, 0) == placeableSign ? placeableHeader : 0) + wmfHeader;
    while (at + 6 <= metafile.size()) {
        const auto size = qsizetype{number32(metafile, at)} * 2;
        if (size < 6)
            break;
        const qsizetype place = placeIn(records, number16(metafile, at + 4));
        if (place >= 0 && size - place > std::max(leastBitmap, largest.size()))
            largest = metafile.mid(at + place, size - place);
        at += size;
    }
    return ifMostOf(metafile, largest);
}

QByteArray bitmapInEmf(const QByteArray& metafile) {
    // Here the record tells where header and dots begin and how long they are.
    static constexpr std::array<BitmapRecord, 4> records{{{81, 48}, {80, 48}, {76, 84}, {77, 84}}};
    QByteArray largest;
    qsizetype at = 0;
    while (at + 8 <= metafile.size()) {
        const auto size = qsizetype{number32(metafile, at + 4)};
        if (size < 8)
            break;
        const qsizetype place = placeIn(records, number32(metafile, at));
        if (place >= 0 && size >= place + 16) {
            const QByteArray header =
                metafile.mid(at + number32(metafile, at + place), number32(metafile, at + place + 4));
            const QByteArray dots =
                metafile.mid(at + number32(metafile, at + place + 8), number32(metafile, at + place + 12));
            if (header.size() + dots.size() > std::max(leastBitmap, largest.size()))
                largest = header + dots;
        }
        at += size;
    }
    return ifMostOf(metafile, largest);
}

} // namespace velm
