#include "platform/typeset/richpicture.h"

#include "platform/base/twips.h"
#include "platform/typeset/littleendian.h"
#include "platform/typeset/metafile.h"

#include <QBuffer>
#include <QImageReader>
#include <QLoggingCategory>
#include <QtEndian>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int longest = 32767; // twips
constexpr int fileHeader = 14; // what a bitmap in memory lacks to be a bitmap file

/// Where the dots begin: behind the header, its masks and its colour table.
std::uint32_t dotsOffset(const QByteArray& dib) {
    const std::uint32_t header = number32(dib, 0);
    if (header == 12) {
        const std::uint32_t bits = number16(dib, 10);
        return header + (bits <= 8 ? (1U << bits) * 3 : 0);
    }
    const std::uint32_t bits = number16(dib, 14);
    const std::uint32_t compression = number32(dib, 16);
    const std::uint32_t used = std::min(number32(dib, 32), 256U);
    const std::uint32_t colours = used != 0 ? used : (bits <= 8 ? 1U << bits : 0);
    const std::uint32_t masks = header == 40 && compression == 3 ? 12 : 0;
    return header + masks + colours * 4;
}

QByteArray bitmapFile(const QByteArray& dib) {
    if (dib.startsWith("BM") || dib.size() < 12)
        return dib;
    QByteArray file(fileHeader, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian(static_cast<std::uint32_t>(dib.size() + fileHeader), file.data() + 2);
    qToLittleEndian(dotsOffset(dib) + fileHeader, file.data() + 10);
    return file + dib;
}

struct Source {
    QByteArray data;
    const char* format = nullptr;
};

Source sourceOf(const RichObject& object) {
    switch (object.kind) {
    case RichObject::Kind::Png:
        return {object.data, "PNG"};
    case RichObject::Kind::Jpeg:
        return {object.data, "JPEG"};
    case RichObject::Kind::Dib:
        return {bitmapFile(object.data), "BMP"};
    case RichObject::Kind::Wmf:
        return {bitmapFile(bitmapInWmf(object.data)), "BMP"};
    case RichObject::Kind::Emf:
        return {bitmapFile(bitmapInEmf(object.data)), "BMP"};
    default:
        return {};
    }
}

/// All of a PNG's chunks to the last: of one that was cut short the decoder would complain aloud.
bool isWholePng(const QByteArray& data) {
    qsizetype at = 8;
    while (at + 12 <= data.size()) {
        const auto length = qsizetype{qFromBigEndian<std::uint32_t>(data.constData() + at)};
        if (length > data.size() - at - 12)
            return false;
        if (data.mid(at + 4, 4) == "IEND")
            return true;
        at += length + 12;
    }
    return false;
}

// A damaged picture shows as a box; the decoders' complaints would tell nobody anything.
void silenceDecoders() {
    static const bool silenced = [] {
        QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s);
        return true;
    }();
    Q_UNUSED(silenced)
}

bool canBeRead(const Source& source) {
    silenceDecoders();
    return source.format != nullptr && !source.data.isEmpty() && (source.format[0] != 'P' || isWholePng(source.data));
}

} // namespace

QImage pictureOf(const RichObject& object) {
    Source source = sourceOf(object);
    if (!canBeRead(source))
        return {};
    QBuffer buffer(&source.data);
    return QImageReader(&buffer, source.format).read();
}

QSize pictureSize(const RichObject& object) {
    if (object.width > 0 && object.height > 0)
        return {std::min(object.width, longest), std::min(object.height, longest)};
    Source source = sourceOf(object);
    QSize dots;
    if (canBeRead(source)) {
        QBuffer buffer(&source.data);
        dots = QImageReader(&buffer, source.format).size();
    }
    if (dots.isEmpty())
        return {twipsPerInch, twipsPerInch};
    const int most = longest / twipsPerPixel;
    return QSize(std::min(dots.width(), most), std::min(dots.height(), most)) * twipsPerPixel;
}

} // namespace velm
