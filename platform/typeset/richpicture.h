#pragma once
// Pictures of a rich text for the screen.
#include "platform/richtext/format.h"

#include <QImage>
#include <QSize>

namespace velm {

/// The picture, or a null image when this system cannot show its kind or its data are damaged.
QImage pictureOf(const RichObject& object);

/// Size in twips: as stored, else the picture's own at 96 dots to the inch; never empty.
QSize pictureSize(const RichObject& object);

} // namespace velm
