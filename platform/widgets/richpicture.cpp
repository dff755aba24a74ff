#include "platform/widgets/richpicture.h"

#include "platform/text/twips.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <array>

namespace velm {

namespace {

constexpr int longest = 32767; // twips
constexpr int fileHeader = 14; // what a bitmap in memory lacks to be a bitmap file

std::uint32_t number32(const QByteArray& bytes, qsizetype at) {
    return bytes.size() >= at + 4 ? qFromLittleEndian<std::uint32_t>(bytes.constData() + at) : 0;
}

std::uint32_t number16(const QByteArray& bytes, qsizetype at) {
    return bytes.size() >= at + 2 ? qFromLittleEndian<std::uint16_t>(bytes.constData() + at) : 0;
}

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
    if (dib.startsWith("BM") || dib.size() < 12) {
        return dib;
    }
    QByteArray file(fileHeader, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian(static_cast<std::uint32_t>(dib.size() + fileHeader), file.data() + 2);
    qToLittleEndian(dotsOffset(dib) + fileHeader, file.data() + 10);
    return file + dib;
}

/// The first bitmap that a metafile draws: most metafiles in texts hold one picture and nothing else.
QByteArray bitmapInMetafile(const QByteArray& metafile) {
    struct Kind {
        std::uint32_t function;
        qsizetype bitmap; // bytes from the record's start
    };
    static constexpr std::array kinds{Kind{0x0F43, 28}, Kind{0x0B41, 26}, Kind{0x0940, 22}, Kind{0x0D33, 24}};
    const bool placeable = number32(metafile, 0) == 0x9AC6CDD7U;
    qsizetype at = (placeable ? 22 : 0) + 18;
    while (at + 6 <= metafile.size()) {
        const auto size = static_cast<qsizetype>(number32(metafile, at)) * 2;
        if (size < 6) {
            break;
        }
        for (const Kind& kind : kinds) {
            if (number16(metafile, at + 4) == kind.function && size > kind.bitmap + 12) {
                return metafile.mid(at + kind.bitmap, size - kind.bitmap);
            }
        }
        at += size;
    }
    return {};
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
        return {bitmapFile(bitmapInMetafile(object.data)), "BMP"};
    default:
        return {};
    }
}

} // namespace

QImage pictureOf(const RichObject& object) {
    Source source = sourceOf(object);
    if (source.format == nullptr || source.data.isEmpty()) {
        return {};
    }
    QBuffer buffer(&source.data);
    QImageReader reader(&buffer, source.format);
    return reader.read();
}

QSize pictureSize(const RichObject& object) {
    if (object.width > 0 && object.height > 0) {
        return {std::min(object.width, longest), std::min(object.height, longest)};
    }
    Source source = sourceOf(object);
    QSize dots;
    if (source.format != nullptr) {
        QBuffer buffer(&source.data);
        dots = QImageReader(&buffer, source.format).size();
    }
    if (dots.isEmpty()) {
        return {twipsPerInch, twipsPerInch};
    }
    const int most = longest / twipsPerPixel;
    return QSize(std::min(dots.width(), most), std::min(dots.height(), most)) * twipsPerPixel;
}

} // namespace velm
