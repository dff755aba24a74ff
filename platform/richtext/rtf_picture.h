#pragma once
// Pictures in RTF.
#include "platform/richtext/format.h"

#include <QByteArrayView>

namespace velm::rtf {

/// Sizes of metafiles are in hundredths of a millimetre.
inline constexpr int himetricPerInch = 2540;

/// Reads the group of a picture, `p` behind \pict; returns the place of its closing brace.
const char* readPicture(const char* p, const char* end, RichObject& object);

/// Width and height in twips that a picture of these bytes has by itself; 0 when it does not tell.
struct PictureSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};
PictureSize naturalSize(RichObject::Kind kind, QByteArrayView data);

} // namespace velm::rtf
